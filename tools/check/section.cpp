#include "check/section.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "check/names.h"
#include "check/rows.h"
#include "check/rules.h"
#include "check/types.h"
#include "model/kinds.h"
#include "model/load_log.h"
#include "model/places.h"
#include "model/values.h"
#include "text/words.h"

namespace {

// Two sections report a missing status in the words of another one.
std::string whoseMessage(const EboSection& section, const std::string& message) {
    if (message.find(' ' + std::string(section.name) + ' ') != std::string::npos) return {};
    return " (the message does not say so, but it is about " + inQuotes(section.name) + ")";
}

// What a device does when the section fails with `message`.
std::string effectOfFailure(const CheckPass& pass, const CheckStep& step, bool enabled,
                            const std::string& message) {
    const EboSection& section = *step.section;
    const std::string logged = ": " + message + whoseMessage(section, message);
    if (step.required) return pass.load.words + " fails" + logged;

    const std::string goesOn = pass.load.words + " goes on ";
    if (section.container == EboContainer::EchoCanceller) return goesOn + "without delay estimation" + logged;
    if (section.recordSize == 0)
        return goesOn + "with " + inQuotes(section.name) + (enabled ? " on" : " off") + logged;
    return goesOn + "without the record of " + inQuotes(section.name) +
           (enabled ? ", though its enable bit is set" : "") + logged;
}

std::vector<std::string> keyNames(const EboSection& section) {
    std::vector<std::string> names;
    names.emplace_back(section.rows[0].key);
    for (const EboKeyRow* row : keysOf(section)) names.emplace_back(row->key);
    return names;
}

void lacksRecord(CheckPass& pass, const CheckStep& step) {
    if (step.section->recordSize != 0) pass.load.lacks.emplace_back(step.section->name);
}

// Follows the section's reader through its table.
class SectionCheck {
public:
    SectionCheck(CheckReport& report, CheckSource& source, CheckPass& pass, const CheckStep& step,
                 const KaJsonItem& item)
        : report_(report),
          source_(source),
          pass_(pass),
          step_(step),
          section_(*step.section),
          item_(item),
          names_(source, source.children(item), keyNames(*step.section), "key"),
          record_(section_.recordSize / sizeof(uint64_t) + 1) {
        source.section(pass.root(), section_.name, &keys_);
    }

    void run() {
        checkStatus();
        if (enabled_ || section_.whenDisabled == EboDisabled::IsRead) {
            for (const EboKeyRow* row : keysOf(section_)) checkKey(*row);
            checkRules({report_, pass_.load, section_, keys_, enabled_,
                        [this](const char* key) { return valueOrStatus(key); }});
        } else {
            checkUnread();
        }
        for (const EboKeyRow* field : fieldsWithoutKey(section_)) {
            if (const KaJsonItem* item = names_.last(field->key)) {
                report_.add(
                    {&kNeverRead, source_.nameOf(*item), "nothing reads the key " + inQuotes(field->key),
                     std::string("whatever the file says, the record holds ") + valueWithoutKey(*field),
                     "remove it"});
                names_.told(*item);
            }
        }
        names_.report(report_, kUnknownKey, " in section " + inQuotes(section_.name));
    }

private:
    void checkStatus() {
        const EboKeyRow& row = section_.rows[0];
        const char* status = nullptr;
        if (!keys_.findCString(row.key, &status)) {
            notFound(row);
            return;
        }
        checkNul(row);
        enabled_ = util_strcasecmp(status, "enable") == 0;
        if (enabled_ || util_strcasecmp(status, "disable") == 0) return;
        report_.add(
            {&kStatusWord, valueOf(row),
             "status " + inQuotes(status) + " is neither \"enable\" nor \"disable\"",
             pass_.how->maskless != 0
                 ? "reads the section all the same: a load of gain control keeps no mask"
                 : "takes " + inQuotes(section_.name) + " as disabled: nothing but \"enable\" enables",
             helpWithStatus(status)});
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
            report_.add({&kNarrowed, valueOf(row),
                         std::to_string(value) + " does not fit the 16 bits of " + inQuotes(row.key),
                         "stores " + std::to_string(low), "write an integer from -32768 to 32767"});
        }
        if (row.kind == EboKeyKind::Flag && value != 0 && value != 1) {
            report_.add({&kFlagValue, valueOf(row), inQuotes(row.key) + " is a flag, and not 0 or 1",
                         "stores 1 for " + std::to_string(value), "write 0 or 1"});
        }
    }

    void checkFloat(const EboKeyRow& row, float value) {
        const std::string_view written = CheckSource::value(*names_.last(row.key));
        if (std::isfinite(value) && (value != 0.0F || isZeroAsWritten(written))) return;
        report_.add({&kFloatRange, valueOf(row), "no float holds the value of " + inQuotes(row.key),
                     "stores " + floatText(value), "write a number that a float can hold"});
    }

    void checkText(const EboKeyRow& row, const char* text) {
        checkNul(row);
        if (row.kind == EboKeyKind::Word) return;
        if (!checkRow({report_, valueOf(row), section_, row, text, record_.data()}))
            ends(kMapAssertion, CheckOutcome::Aborts);
    }

    // A reader takes a text up to there.
    void checkNul(const EboKeyRow& row) {
        const std::string_view text = CheckSource::value(*names_.last(row.key));
        const size_t nul = text.find('\0');
        if (nul == std::string_view::npos) return;
        report_.add({&kCutAtNul, valueOf(row), inQuotes(row.key) + " holds a NUL character (\\u0000)",
                     "reads it up to there: " + inQuotes(text.substr(0, nul)), "remove the \\u0000"});
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
            big ? inQuotes(row.key) + " does not fit 32 bits"
                : inQuotes(row.key) + " is " + typeOf(*item) + "; expected " + nameOf(kindOf(row).type);
        const TextPlace place = source_.valueOf(*item);
        const std::string help = big ? "write an integer from -2147483648 to 2147483647"
                                     : howToMend(row, *item, source_.insideArray(*item));
        if (missingMessage(row) == nullptr) {
            report_.add({big ? &kBeyond32LeftOut : &kWrongTypeLeftOut, place, text,
                         std::string("takes the key as missing, which is allowed") +
                             (section_.whenDisabled != EboDisabled::GoesByMask ? ", and says nothing" : ""),
                         help});
        } else if (big) {
            fails(row, {&kBeyond32Bits, &kBeyond32LeftOut, place, text, help});
        } else {
            fails(row, {&kWrongType, &kWrongTypeLeftOut, place, text, help});
        }
    }

    void missing(const EboKeyRow& row) {
        const std::string text =
            "key " + inQuotes(row.key) + " is missing from section " + inQuotes(section_.name);
        if (const CheckSource::Items rows = names_.rowsCountedFromOne(row.key); !rows.empty()) {
            countedFromOne(row, rows);
        } else if (const KaJsonItem* slip = names_.takeSlip(row.key)) {
            const std::string_view written = CheckSource::name(*slip);
            fails(row, {&kMissingKey,
                        &kKeyLeftOut,
                        source_.nameOf(*slip),
                        text + ", which has " + inQuotes(written) + " instead",
                        howToRename(written, row.key),
                        {source_.rename(*slip, row.key)}});
        } else {
            fails(row, {&kMissingKey, &kKeyLeftOut, source_.nameOf(item_), text,
                        "add " + inQuotes(row.key) + ": " + exampleFor(row)});
        }
    }

    void countedFromOne(const EboKeyRow& row, const CheckSource::Items& rows) {
        const std::string key = row.key;
        const std::string stem = key.substr(0, key.size() - 1);
        std::vector<TextEdit> edits;
        for (size_t i = 0; i < rows.size(); ++i)
            edits.push_back(source_.rename(*rows[i], stem + std::to_string(i)));
        std::sort(edits.begin(), edits.end(),
                  [](const TextEdit& a, const TextEdit& b) { return a.offset < b.offset; });
        names_.told(*rows.back());
        fails(
            row,
            {&kMissingKey, &kKeyLeftOut, source_.nameOf(*rows.front()),
             "the rows of " + inQuotes(stem.substr(0, stem.size() - 1)) + " are counted from 1, not from 0",
             "number them from " + inQuotes(key) + " to " + inQuotes(stem + std::to_string(rows.size() - 1)),
             edits});
    }

    void fails(const EboKeyRow& row, const CheckAbsence& absence) {
        const std::string message = plainText(missingMessage(row));
        report_.add({pass_.isError(step_) ? absence.error : absence.warning, absence.place, absence.text,
                     effectOfFailure(pass_, step_, enabled_, message), absence.help, absence.edits});
        ends(message, CheckOutcome::Fails);
    }

    // A reader stops at its first failure.
    void ends(const std::string& message, CheckOutcome outcome) {
        if (!ended_) pass_.load.logs(message);
        if (!ended_ && !step_.required) lacksRecord(pass_, step_);
        if (!ended_ && pass_.endsWith(step_)) pass_.load.ends(outcome);
        ended_ = true;
    }

    void checkUnread() {
        size_t count = 0;
        for (const EboKeyRow* row : keysOf(section_)) {
            const KaJsonItem* item = names_.last(row->key);
            // An empty word says what is stored anyway.
            if (item != nullptr && !(row->kind == EboKeyKind::Word && item->value_length == 0)) ++count;
        }
        const TextPlace place = source_.nameOf(item_);
        const bool disabled = names_.last(section_.rows[0].key) != nullptr;
        if (count == 0 || (ended_ && missingMessage(section_.rows[0]) != nullptr)) return;
        report_.add({&kDisabledSettings, place,
                     countOf(count, "setting") + " of " + inQuotes(section_.name) +
                         (count == 1 ? " has" : " have") + " no effect: the section is not enabled",
                     "does not read the keys of a disabled " + inQuotes(section_.name),
                     disabled ? "enable the section, or leave them as notes for later"
                              : "add \"status\": \"enable\""});
    }

    TextPlace valueOrStatus(const char* key) const {
        for (const char* stated : {key, "status"}) {
            if (const KaJsonItem* item = names_.last(stated)) return source_.valueOf(*item);
        }
        return source_.nameOf(item_);
    }
    TextPlace valueOf(const EboKeyRow& row) const { return source_.valueOf(*names_.last(row.key)); }

    CheckReport& report_;
    CheckSource& source_;
    CheckPass& pass_;
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

void checkSection(CheckReport& report, CheckSource& source, CheckPass& pass, const CheckStep& step,
                  const KaJsonItem& item) {
    SectionCheck(report, source, pass, step, item).run();
}

void checkMissingSection(CheckReport& report, CheckPass& pass, const CheckStep& step,
                         const CheckAbsence& absence) {
    const char* format = missingMessage(step.section->rows[0]);
    if (format == nullptr) {
        report.add({absence.warning, absence.place, absence.text,
                    pass.load.words + " goes on with an all-zero record of " + inQuotes(step.section->name) +
                        ", and says nothing",
                    absence.help});
        return;
    }
    const std::string message = plainText(format);
    report.add({pass.isError(step) ? absence.error : absence.warning, absence.place, absence.text,
                effectOfFailure(pass, step, false, message), absence.help, absence.edits});
    pass.load.logs(message);
    if (pass.endsWith(step)) pass.load.ends(CheckOutcome::Fails);
    if (!step.required) lacksRecord(pass, step);
}
