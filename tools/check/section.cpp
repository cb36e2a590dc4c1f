#include "check/section.h"

#include <cmath>
#include <cstdint>

#include "check/names.h"
#include "check/rows.h"
#include "check/rules.h"
#include "check/types.h"
#include "model/load_log.h"
#include "model/places.h"
#include "text/words.h"

namespace {

std::vector<std::string> keyNames(const EboSection& section) {
    std::vector<std::string> names;
    names.emplace_back(section.rows[0].key);
    for (const EboKeyRow* row : keysOf(section)) names.emplace_back(row->key);
    return names;
}

// Follows the section's reader through its table.
class SectionCheck {
public:
    SectionCheck(CheckContext& context, const CheckPass& pass, const CheckStep& step, const KaJsonItem& item)
        : context_(context),
          pass_(pass),
          step_(step),
          section_(*step.section),
          item_(item),
          names_(context.source, context.source.children(item), keyNames(*step.section), "key"),
          record_(section_.recordSize / sizeof(uint64_t) + 1) {
        context.source.section(pass.root, section_.name, &keys_);
    }

    void run() {
        checkStatus();
        if (enabled_ || section_.whenDisabled == EboDisabled::IsRead) {
            for (const EboKeyRow* row : keysOf(section_)) checkKey(*row);
            checkRules({context_, pass_, section_, names_, keys_, enabled_});
        } else {
            checkUnread();
        }
        for (const EboKeyRow* field : fieldsWithoutKey(section_)) {
            if (const KaJsonItem* item = names_.last(field->key)) {
                context_.add(
                    kNeverRead, context_.source.nameOf(*item), "nothing reads the key " + quoted(field->key),
                    std::string("whatever the file says, the record holds ") + valueWithoutKey(*field),
                    "remove it");
                names_.told(*item);
            }
        }
        names_.report(context_, kUnknownKey, " in section " + quoted(section_.name));
    }

private:
    void checkStatus() {
        const EboKeyRow& row = section_.rows[0];
        const char* status = nullptr;
        if (!keys_.findCString(row.key, &status)) {
            notFound(row);
            return;
        }
        enabled_ = util_strcasecmp(status, "enable") == 0;
        if (enabled_ || util_strcasecmp(status, "disable") == 0) return;
        context_.add(kStatusWord, valueOf(row),
                     "status " + quoted(status) + " is neither \"enable\" nor \"disable\"",
                     pass_.how->maskless != 0
                         ? "reads the section all the same: a load of gain control keeps no mask"
                         : "takes " + quoted(section_.name) + " as disabled: nothing but \"enable\" enables",
                     "write \"enable\" or \"disable\"");
    }

    void checkKey(const EboKeyRow& row) {
        int whole = 0;
        float number = 0.0F;
        const char* text = nullptr;
        switch (row.kind) {
            case EboKeyKind::Int32:
            case EboKeyKind::Int16:
            case EboKeyKind::Flag:
            case EboKeyKind::MaskBit:
                keys_.findInt32(row.key, &whole) ? checkInteger(row, whole) : notFound(row);
                break;
            case EboKeyKind::Float:
                keys_.findFloat(row.key, &number) ? checkFloat(row, number) : notFound(row);
                break;
            default:
                keys_.findCString(row.key, &text) ? checkText(row, text) : notFound(row);
        }
    }

    void checkInteger(const EboKeyRow& row, int value) {
        const auto low = static_cast<int16_t>(value);
        if (row.kind == EboKeyKind::Int16 && low != value) {
            context_.add(kNarrowed, valueOf(row),
                         std::to_string(value) + " does not fit the 16 bits of " + quoted(row.key),
                         "stores " + std::to_string(low), "write an integer from -32768 to 32767");
        }
        if (row.kind == EboKeyKind::Flag && value != 0 && value != 1) {
            context_.add(kFlagValue, valueOf(row), quoted(row.key) + " is a flag, and not 0 or 1",
                         "stores 1 for " + std::to_string(value), "write 0 or 1");
        }
    }

    void checkFloat(const EboKeyRow& row, float value) {
        const std::string_view written = CheckSource::value(*names_.last(row.key));
        const bool zero = written.substr(0, written.find_first_of("eE")).find_first_of("123456789") ==
                          std::string_view::npos;
        if (std::isfinite(value) && (value != 0.0F || zero)) return;
        context_.add(kFloatRange, valueOf(row), "no float holds the value of " + quoted(row.key),
                     "stores " + numberText(value), "write a number that a float can hold");
    }

    void checkText(const EboKeyRow& row, const char* text) {
        if (row.kind == EboKeyKind::Word) return;
        for (const RowFinding& found : checkRow(section_, row, text, record_.data())) {
            context_.add(*found.code, valueOf(row), found.text, found.device, found.help);
            if (found.code == &kMapAborts) ends(kMapAssertion, CheckOutcome::Aborts);
        }
    }

    // The key is missing, or has a value that counts as missing.
    void notFound(const EboKeyRow& row) {
        const KaJsonItem* item = names_.last(row.key);
        if (item == nullptr) {
            if (missingMessage(row) != nullptr) missing(row);
            return;
        }
        const bool big = isIntegerBeyond32Bits(row, *item);
        const std::string text =
            big ? quoted(row.key) + " does not fit 32 bits"
                : quoted(row.key) + " is " + typeOf(*item) + " and must be " + typeWanted(row);
        const CheckPlace place = context_.source.valueOf(*item);
        const std::string help = big ? "write an integer from -2147483648 to 2147483647"
                                     : howToMend(row, *item, context_.source.insideArray(*item));
        if (missingMessage(row) == nullptr) {
            context_.add(big ? kBeyond32LeftOut : kWrongTypeLeftOut, place, text,
                         std::string("takes the key as missing, which is allowed") +
                             (section_.whenDisabled != EboDisabled::GoesByMask ? ", and says nothing" : ""),
                         help);
        } else if (big) {
            fails(row, kBeyond32Bits, kBeyond32LeftOut, place, text, help);
        } else {
            fails(row, kWrongType, kWrongTypeLeftOut, place, text, help);
        }
    }

    void missing(const EboKeyRow& row) {
        const std::string text =
            "key " + quoted(row.key) + " is missing from section " + quoted(section_.name);
        if (const KaJsonItem* slip = names_.takeSlip(row.key)) {
            const std::string written = quoted(CheckSource::name(*slip));
            fails(row, kMissingKey, kKeyLeftOut, context_.source.nameOf(*slip),
                  text + ", which has " + written + " instead",
                  "did you mean " + quoted(row.key) + "? Rename " + written);
        } else {
            fails(row, kMissingKey, kKeyLeftOut, context_.source.nameOf(item_), text,
                  "add " + quoted(row.key) + ": " + placeholder(row));
        }
    }

    void fails(const EboKeyRow& row, const CheckCode& error, const CheckCode& warning,
               const CheckPlace& place, const std::string& text, const std::string& help) {
        const std::string message = plainText(missingMessage(row));
        const bool fatal = step_.required && pass_.chosen;
        context_.add(fatal ? error : warning, place, text, effectOfFailure(pass_, step_, enabled_, message),
                     help);
        ends(message, CheckOutcome::Fails);
    }

    // A reader stops at its first failure.
    void ends(const std::string& message, CheckOutcome outcome) {
        if (!ended_) context_.logs(pass_, message);
        if (!ended_ && step_.required && pass_.chosen) context_.endLoad(outcome);
        ended_ = true;
    }

    void checkUnread() {
        size_t count = 0;
        for (const EboKeyRow* row : keysOf(section_)) {
            const KaJsonItem* item = names_.last(row->key);
            // An empty word says what is stored anyway.
            if (item != nullptr && !(row->kind == EboKeyKind::Word && item->value_length == 0)) ++count;
        }
        const CheckPlace place = context_.source.nameOf(item_);
        const bool disabled = names_.last(section_.rows[0].key) != nullptr;
        if (count == 0 || (ended_ && missingMessage(section_.rows[0]) != nullptr)) return;
        context_.add(
            kDisabledSettings, place,
            countOf(count, "setting") + " of " + quoted(section_.name) + (count == 1 ? " has" : " have") +
                " no effect: the section is not enabled",
            "does not read the keys of a disabled " + quoted(section_.name),
            disabled ? "enable the section, or take them as notes for later" : "add \"status\": \"enable\"");
    }

    CheckPlace valueOf(const EboKeyRow& row) const { return context_.source.valueOf(*names_.last(row.key)); }

    CheckContext& context_;
    const CheckPass& pass_;
    const CheckStep& step_;
    const EboSection& section_;
    const KaJsonItem& item_;
    CheckNames names_;
    KaMetaData keys_;
    std::vector<uint64_t> record_;  // what a device would have stored of the texts
    bool enabled_ = false;
    bool ended_ = false;
};

}  // namespace

void checkSection(CheckContext& context, const CheckPass& pass, const CheckStep& step,
                  const KaJsonItem& item) {
    SectionCheck(context, pass, step, item).run();
}
