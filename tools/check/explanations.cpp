#include "check/explanations.h"

#include <algorithm>
#include <iterator>

namespace {

// One row per code, in their order.
constexpr CheckExplanation kExplanations[] = {
    {&kUnreadable,
     "The file is not there, may not be opened, is empty, is larger than the framework takes, or is no "
     "regular file. A "
     "device reads nothing of it.",
     "Look at the path, at the rights of file and folder, and at what the file holds.", "",
     R"({ "ebo_ao_configs": {} })"},
    {&kInvalidJson,
     "The text is not JSON, so a device reads nothing of it. The check mends it in memory and reads on, to "
     "find what else "
     "is wrong.",
     "Do what the help of the finding says.", R"("look_ahead": 2;)", R"("look_ahead": 2,)"},
    {&kMissingRoot,
     "The root object that the load reads is not at the top level, and so all of its sections are missing. "
     "Most often its "
     "name is misspelt; upper and lower case differ.",
     "Add the root object, or correct its name.", R"("ebo_config": {)", R"("ebo_configs": {)"},
    {&kMissingSection,
     "The load demands a section that the root object does not have. A section that is disabled must be "
     "there too.",
     "Add the section, or correct its name; \"eboconf keys\" lists them all.", R"("derevreb": {)",
     R"("dereverb": {)"},
    {&kMissingKey,
     "A section lacks a key that a device demands. For most sections that holds when they are disabled, too.",
     "Add the key, or correct its name; \"eboconf keys dtd\" lists those of a section.",
     R"("ksiThd_lo": 0.285)", R"("ksiThd_low": 0.285)"},
    {&kWrongType,
     "A value has another type than a device reads, which takes the key for missing: a number in quotes, a "
     "fraction where "
     "an integer is expected, an array in place of a text.",
     "Write a value of the type that \"eboconf keys\" tells.", R"("filter_len": "1024")",
     R"("filter_len": 1024)"},
    {&kBeyond32Bits, "An integer does not fit 32 bits, and a device takes the key for missing.",
     "Write an integer from -2147483648 to 2147483647.", R"("delay_len": 3000000000)", R"("delay_len": 48)"},
    {&kMapAborts, "A channel map that begins with a count above 16 ends the process with an assertion.",
     "Write at most 16 channels.", R"("mic_chn_map": "17 chn;map:0,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16")",
     R"("mic_chn_map": "2 chn;map:1,0")"},
    {&kWrongPlace,
     "A root object is inside of another object, or a section is outside of its root object, often since a "
     "brace closes "
     "too early. A device looks for each at one place only.",
     "Move it to its place: root objects to the top level, sections into their root object.",
     R"({ "tuning": { "ebo_ao_configs": { "howl": { "status": "disable", "mode": 0 } } } })",
     R"({ "ebo_ao_configs": { "howl": { "status": "disable", "mode": 0 } } })"},
    {&kForeign,
     "The text is something else than a tuning file: a Git LFS pointer, a patch, YAML, HTML, a template that "
     "nobody has "
     "filled in, or JSON that is no object.",
     "Get the file itself; of a Git LFS pointer with \"git lfs pull\".",
     "version https://git-lfs.github.com/spec/v1", R"({ "ebo_ao_configs": {} })"},
    {&kRootLeftOut,
     "The root object that the load reads is not there. The load goes on without any of its records.",
     "Add the root object, or correct its name.", R"("ebo_ao_config": {)", R"("ebo_ao_configs": {)", "ao"},
    {&kSectionLeftOut,
     "A section is not there that the load can do without: the device goes on without its record.",
     "Add the section, if only as { \"status\": \"disable\" }, or correct its name.", R"("dealy": {)",
     R"("delay": {)", "full"},
    {&kKeyLeftOut,
     "A section lacks a key. The load that is checked goes on without the record of the section.",
     "Add the key, or correct its name; \"eboconf keys anr\" lists those of a section.",
     R"("noisefactor": 0.91)", R"("noiseFactor": 0.91)", "full"},
    {&kWrongTypeLeftOut,
     "A value has another type than a device reads, which takes the key for missing. The load that is "
     "checked goes on, "
     "most often without the record of the section.",
     "Write a value of the type that \"eboconf keys\" tells.", R"("psiMin": "0.02")", R"("psiMin": 0.02)",
     "full"},
    {&kBeyond32LeftOut,
     "An integer does not fit 32 bits, and a device takes the key for missing. The load that is checked goes "
     "on without "
     "the record of the section.",
     "Write an integer from -2147483648 to 2147483647.", R"("InterV": 3000000000)", R"("InterV": 10)",
     "full"},
    {&kWrongPlaceLeftOut,
     "A root object is inside of another object, or a section is outside of its root object. The load that "
     "is checked goes "
     "on without it.",
     "Move it to its place: root objects to the top level, sections into their root object.",
     R"({ "tuning": { "ebo_ao_configs": { "howl": { "status": "disable", "mode": 0 } } } })",
     R"({ "ebo_ao_configs": { "howl": { "status": "disable", "mode": 0 } } })", "ao"},
    {&kUnknownRoot, "No load reads a root object of this name.",
     "Correct the name, move what is in it to where it belongs, or begin the name with \"_\" to keep it as a "
     "note.",
     R"({ "version": 3, "ebo_ao_configs": {} })", R"({ "_version": 3, "ebo_ao_configs": {} })"},
    {&kUnknownSection, "No load reads a section of this name in this root object.",
     "Correct the name, move the section to its root object, or begin the name with \"_\" to keep it as a "
     "note.",
     R"({ "ebo_ao_configs": { "equalizer": {} } })", R"({ "ebo_ao_configs": { "_equalizer": {} } })"},
    {&kUnknownKey, "Nothing reads a key of this name in this section.",
     "Correct the name, or begin it with \"_\" to keep it as a note.",
     R"({ "ebo_ao_configs": { "howl": { "status": "disable", "mode": 0, "comment": "small room" } } })",
     R"({ "ebo_ao_configs": { "howl": { "status": "disable", "mode": 0, "_comment": "small room" } } })"},
    {&kDuplicate,
     "A root object, section or key is stated twice. A device reads the last one, and nothing of those "
     "before.",
     "Remove those that are not meant.", R"("delay_len": 64, "delay_len": 48)", R"("delay_len": 48)"},
    {&kNarrowed,
     "The record holds this value in 16 bits: a device stores what is left of the number, another one "
     "without a word.",
     "Write an integer from -32768 to 32767.", R"("filter_len": 70000)", R"("filter_len": 1024)"},
    {&kFlagValue, "A flag has two values, and a device stores 1 for any number but 0.", "Write 0 or 1.",
     R"("drop_ref_channel": 2)", R"("drop_ref_channel": 0)"},
    {&kFloatRange,
     "No float holds the number: a device stores infinity for one that is too large, and 0 for one that is "
     "too small.",
     "Write a number that a float can hold, up to about 3.4e38.", R"("fGain": 1e39)", R"("fGain": 12.5)"},
    {&kTooFewNumbers,
     "A row of numbers, or a channel map, is shorter than what is read. A device goes on; the rest is 0, or "
     "in section \"nlp\" what the row before had there.",
     "Write all numbers; of a channel map as many as its count says.", R"("ThdSplitFreq_1": "500")",
     R"("ThdSplitFreq_1": "500  1500")"},
    {&kTooManyNumbers,
     "A row of numbers, or a channel map, is longer than what is read. A device leaves out what comes after.",
     "Leave out what is too much; of a channel map, or correct its count.",
     R"("LimitRatio_0": "1.0  0.85  0.7  0.5")", R"("LimitRatio_0": "1.0  0.85  0.7")"},
    {&kBadSeparator,
     "Rows of section \"aes\" are separated by blanks, those of \"nlp\" and a channel map by commas alone. A "
     "device stops "
     "reading at anything else.",
     "Separate the numbers as in the example beside.", R"("ThdSplitFreq_1": "500, 1500")",
     R"("ThdSplitFreq_1": "500  1500")"},
    {&kMapIgnored,
     "A channel map begins with the number of its channels. A device goes on without one that does not.",
     "Begin the map with its count.", R"("mic_chn_map": "map:1,0")", R"("mic_chn_map": "2 chn;map:1,0")"},
    {&kMapChannels,
     "A channel map names each microphone once, counted from 0. This one names none, a negative one, or one "
     "twice.",
     "Name as many different channels as the count says.", R"("mic_chn_map": "2 chn;map:1,1")",
     R"("mic_chn_map": "2 chn;map:1,0")"},
    {&kCutAtNul, "A text holds the character NUL, written \\u0000. A device reads the text up to there.",
     "Remove the \\u0000.", R"("model_word1": "hello\u0000-lamp")", R"("model_word1": "hello-lamp")"},
    {&kOddNumber,
     "A row holds what the C library reads as a number although hardly anybody means it: a hexadecimal "
     "number, \"inf\" or "
     "\"nan\".",
     "Write a decimal number.", R"("LimitRatio_0": "0x1  0.85  0.7")", R"("LimitRatio_0": "1.0  0.85  0.7")"},
    {&kStatusWord,
     "A device compares the status with \"enable\", and takes every other word for \"disable\".",
     "Write \"enable\" or \"disable\".", R"({ "ebo_ao_configs": { "howl": { "status": "on", "mode": 0 } } })",
     R"({ "ebo_ao_configs": { "howl": { "status": "enable", "mode": 0 } } })"},
    {&kNeverRead,
     "The record has a field of this name, but no key fills it: it holds the same whatever the file says.",
     "Remove the key, or begin its name with \"_\" to keep it as a note.",
     R"("MaxFrame": 60, "LeastDelay": 5)", R"("MaxFrame": 60)"},
    {&kDisabledSettings,
     "The section is disabled, and then a device does not read its keys. There is nothing to change: they "
     "may wait there "
     "until the section is enabled.",
     "Nothing, or enable the section.", R"("model_path": "/usr/share/voice.bin")", R"("model_path": "")"},
    {&kUpsideDown,
     "Of two values the one that should be lower is above the other, or a range starts above its end. A "
     "device stores both as they are.",
     "Exchange the two values, or correct one of them.", R"("ksiThd_low": 0.8)", R"("ksiThd_low": 0.285)"},
    {&kWakeupMode,
     "There are the wake-up modes 1, 2 and 3. A device keeps any other one, and logs that it is invalid.",
     "Write 1 (oneshot only), 2 (wakeup and command) or 3 (both).", R"("mode": 4)", R"("mode": 3)"},
    {&kWakeupWords,
     "The number of wake words that are used, \"wakeup_words\", is not that of the words given, "
     "\"model_word1\" and \"model_word2\".",
     "Give as many words as the number says, or correct the number.", R"("wakeup_words": 1)",
     R"("wakeup_words": 2)"},
    {&kGscMethodAlone,
     "The bit of method 1 follows from \"method\" alone: a device sets it although \"gsc\" is not enabled.",
     "Enable \"gsc\", or write another method, such as 0.",
     R"({ "ebo_configs": { "gsc": { "status": "disable", "method": 1 } } })",
     R"({ "ebo_configs": { "gsc": { "status": "disable", "method": 0 } } })"},
    {&kNoModel,
     "Neural noise reduction is enabled and has no model to work with. A device enables the module all the "
     "same.",
     "Set \"model_path\" to the model's file, or disable the section.",
     R"({ "ebo_configs": { "ainr": { "status": "enable", "model_path": "" } } })",
     R"({ "ebo_configs": { "ainr": { "status": "enable", "model_path": "/usr/share/voice.bin" } } })"},
};

}  // namespace

const CheckExplanation& explanationOf(const CheckCode& code) {
    return *std::find_if(std::begin(kExplanations), std::end(kExplanations),
                         [&code](const CheckExplanation& row) { return row.code == &code; });
}

const CheckCode* codeNamed(const std::string& id) {
    const auto& codes = checkCodes();
    const auto found =
        std::find_if(codes.begin(), codes.end(), [&id](const CheckCode* code) { return id == code->id; });
    return found == codes.end() ? nullptr : *found;
}
