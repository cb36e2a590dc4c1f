#include "forecast.h"

#include "log.h"
#include "parse/row_scan.h"

namespace ebo_live {
namespace {

// The masks of the containers, as far as the walk has come.
struct Masks {
    int32_t of[3] = {};
    int32_t& operator[](EboContainer container) { return of[static_cast<size_t>(container)]; }
};

// The same lookups as the reader's. *number and *text become the value where it has that type.
bool finds(const KaMetaData& keys, const EboKeyRow& row, int* number, const char** text) {
    switch (row.kind) {
        case EboKeyKind::Int32:
        case EboKeyKind::Int16:
        case EboKeyKind::Flag:
        case EboKeyKind::MaskBit:
            return keys.findInt32(row.key, number);
        case EboKeyKind::Float: {
            float value = 0.0F;
            return keys.findFloat(row.key, &value);
        }
        default:
            return keys.findCString(row.key, text);
    }
}

std::string said(const EboSection& section, const std::string& message) {
    return std::string(section.function) + ": " + message;
}

// Whether the reader goes on to the keys of a section whose status says this.
bool goesOn(const EboSection& section, bool enabled, int32_t mask, int32_t bit) {
    switch (section.whenDisabled) {
        case EboDisabled::IsRead:
            return true;
        case EboDisabled::GoesByMask:
            return (mask & bit) != 0;
        default:
            return enabled;
    }
}

Forecast ofSection(KAJsonParser& parser, const EboLoad& load, const EboSection& section, Masks& masks) {
    KaMetaData keys;
    parser.getOptions(load.root, section.name, &keys);
    int32_t& mask = masks[section.container];
    const int32_t bit = load.playback != 0 ? static_cast<int32_t>(section.playbackBit) : section.bit;
    bool enabled = false;
    for (size_t i = 0; i < section.rowCount; ++i) {
        const EboKeyRow& row = section.rows[i];
        if (row.ifMissing == EboIfMissing::NoKey) continue;
        int number = 0;
        const char* text = nullptr;
        const bool found = finds(keys, row, &number, &text);
        if (!found && row.ifMissing == EboIfMissing::Fails)
            return {false, said(section, plainText(row.text))};
        if (row.kind == EboKeyKind::Status) {
            enabled = found && util_strcasecmp(text, "enable") == 0;
            if (enabled && section.container != EboContainer::EchoCanceller) mask |= bit;
            if (!goesOn(section, enabled, mask, bit)) return {};
        } else if (row.kind == EboKeyKind::MaskBit && number == 1) {
            mask |= 1 << row.offset;
        } else if (row.kind == EboKeyKind::ChannelMap && found) {
            int32_t channels = 0;
            EboScanner(text).integer(&channels);
            if (channels > static_cast<int32_t>(row.count))
                return {true, said(section, std::string(row.key) + " has " + std::to_string(channels) +
                                                " channels; the most are " + std::to_string(row.count))};
        }
    }
    return {};
}

}  // namespace

Forecast forecast(KAJsonParser& parser, const EboLoad& load, bool whole) {
    Masks masks;
    for (size_t i = 0; i < load.sectionCount; ++i) {
        const EboSection& section = *load.sections[i];
        Forecast expected = ofSection(parser, load, section, masks);
        const bool must = whole ? section.optional == 0 : eboMustLoad(load, section);
        if (expected.aborts || (must && !expected.reason.empty())) return expected;
    }
    return {};
}

}  // namespace ebo_live
