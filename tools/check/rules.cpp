#include "check/rules.h"

#include <algorithm>
#include <string_view>

#include "model/places.h"
#include "model/values.h"
#include "text/words.h"

namespace {

int32_t integerOf(const RuleSubject& subject, const char* key) {
    int value = 0;
    subject.keys.findInt32(key, &value);
    return value;
}

bool hasText(const RuleSubject& subject, const char* key) {
    const char* text = nullptr;
    return subject.keys.findCString(key, &text) && text[0] != '\0';
}

void checkOrder(const RuleSubject& subject, const OrderRule& rule) {
    float low = 0.0F;
    float high = 0.0F;
    if (!subject.keys.findFloat(rule.low, &low) || !subject.keys.findFloat(rule.high, &high) || !(low > high))
        return;
    subject.report.add({&kUpsideDown,
                        subject.placeOf(rule.low),
                        inQuotes(rule.low) + " (" + floatText(low) + ") is above " + inQuotes(rule.high) +
                            " (" + floatText(high) + ")",
                        "stores both as they are",
                        "exchange the two values, or correct one of them",
                        {},
                        false,
                        {{subject.placeOf(rule.high), "what is to be the higher value"}}});
}

void checkWakeup(const RuleSubject& subject) {
    const int32_t words = integerOf(subject, "wakeup_words");
    const int given = (hasText(subject, "model_word1") ? 1 : 0) + (hasText(subject, "model_word2") ? 1 : 0);
    if (words == 0) {
        const std::string message = "the wakeup word is 0, please configure it which you need";
        subject.load.logs(message);
        subject.report.add({&kWakeupWords, subject.placeOf("wakeup_words"), "\"wakeup_words\" is 0",
                            "goes on with 0 wake words, and logs: " + message,
                            "set \"wakeup_words\" to the number of words, 1 or 2"});
    } else if (words != given) {
        subject.report.add({&kWakeupWords, subject.placeOf("wakeup_words"),
                            "\"wakeup_words\" is " + std::to_string(words) + ", but " +
                                countOf(static_cast<size_t>(given), "word") + (given == 1 ? " is" : " are") +
                                " given",
                            "stores the number and the words as they are",
                            words > 2 ? "a device knows two wake words, \"model_word1\" and \"model_word2\""
                                      : "give as many of \"model_word1\" and \"model_word2\" as "
                                        "\"wakeup_words\" says"});
    }
    const int32_t mode = integerOf(subject, "mode");
    if (mode >= 1 && mode <= 3) return;
    const std::string message = "Invalid mode: " + std::to_string(mode) + ", please check mode follow these:";
    subject.load.logs(message);
    subject.report.add(
        {&kWakeupMode, subject.placeOf("mode"), "wake-up mode " + std::to_string(mode) + " is not 1, 2 or 3",
         "keeps the mode, and logs: " + message, "write 1 (oneshot only), 2 (wakeup + command) or 3 (both)"});
}

void checkMaskBit(const RuleSubject& subject, const EboKeyRow& row) {
    if (subject.enabled || integerOf(subject, row.key) != 1) return;
    const std::string section = subject.section.name;
    subject.report.add({&kGscMethodAlone, subject.placeOf(row.key),
                        inQuotes(row.key) + " is 1 while " + inQuotes(section) + " is not enabled",
                        std::string("sets the bit of ") + row.key +
                            " 1 all the same, and a dump prints its " + inQuotes(section + ":") + " block",
                        "enable " + inQuotes(section) + ", or write another " + row.key + ", such as 0"});
}

void checkModel(const RuleSubject& subject) {
    if (hasText(subject, "model_path")) return;
    subject.report.add({&kNoModel, subject.placeOf("model_path"),
                        inQuotes(subject.section.name) + " is enabled without a model",
                        "enables the module with no \"model_path\", and says nothing",
                        "set \"model_path\" to the model's file, or disable the section"});
}

}  // namespace

const std::vector<OrderRule>& orderRules() {
    static const std::vector<OrderRule> rules = {
        {"delay", "StartFreq", "EndFreq"}, {"dtd", "ksiThd_low", "ksiThd_high"},
        {"doa", "start_freq", "end_freq"}, {"anr", "psiMin", "psiMax"},
        {"anr", "Sup_Freq1", "Sup_Freq2"}, {"anr", "SabsGammaThr0", "SabsGammaThr1"},
        {"aes", "low_freq", "high_freq"},  {"agc", "fRth0", "fRth1"},
        {"agc", "fRth1", "fRth2"},
    };
    return rules;
}

void checkRules(const RuleSubject& subject) {
    for (const OrderRule& rule : orderRules()) {
        if (rule.section == std::string_view(subject.section.name)) checkOrder(subject, rule);
    }
    const EboSection& section = subject.section;
    for (const EboKeyRow* row : keysOf(section)) {
        const std::string_view key = row->key;
        if (key == "wakeup_words") checkWakeup(subject);
        if (key == "model_path") checkModel(subject);
        if (row->kind == EboKeyKind::MaskBit) checkMaskBit(subject, *row);
    }
}
