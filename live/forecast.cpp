#include "forecast.h"

#include "log.h"
#include "parse/row_scan.h"

namespace ebo_live {
namespace {

// The same lookups as the reader's. *text becomes the value where that is one.
bool finds(const KaMetaData& keys, const EboKeyRow& row, const char** text) {
    switch (row.kind) {
        case EboKeyKind::Int32:
        case EboKeyKind::Int16:
        case EboKeyKind::Flag:
        case EboKeyKind::MaskBit: {
            int value = 0;
            return keys.findInt32(row.key, &value);
        }
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

// All of its keys, whatever its status: a section of which the reader leaves keys unread when it is not
// enabled is an optional one, or requires none of them.
Forecast ofSection(KAJsonParser& parser, const EboLoad& load, const EboSection& section) {
    KaMetaData keys;
    parser.getOptions(load.root, section.name, &keys);
    for (size_t i = 0; i < section.rowCount; ++i) {
        const EboKeyRow& row = section.rows[i];
        if (row.ifMissing == EboIfMissing::NoKey) continue;
        const char* text = nullptr;
        const bool found = finds(keys, row, &text);
        if (!found && row.ifMissing == EboIfMissing::Fails)
            return {false, said(section, plainText(row.text))};
        if (row.kind != EboKeyKind::ChannelMap || !found) continue;
        int32_t channels = 0;
        EboScanner(text).integer(&channels);
        if (channels > static_cast<int32_t>(row.count))
            return {true, said(section, std::string(row.key) + " has " + std::to_string(channels) +
                                            " channels; the most are " + std::to_string(row.count))};
    }
    return {};
}

}  // namespace

Forecast forecast(KAJsonParser& parser, const EboLoad& load, bool whole) {
    for (size_t i = 0; i < load.sectionCount; ++i) {
        const EboSection& section = *load.sections[i];
        Forecast expected = ofSection(parser, load, section);
        const bool must = whole ? section.optional == 0 : eboMustLoad(load, section);
        if (expected.aborts || (must && !expected.reason.empty())) return expected;
    }
    return {};
}

}  // namespace ebo_live
