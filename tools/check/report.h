// What eboconf check finds in one file, as data. A code never changes its meaning; docs/check.md shows each
// at work.
#pragma once

#include <parse/loads.h>

#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "text/edited_text.h"
#include "text/lines.h"

enum class CheckLevel { Error, Warning, Info };  // Info: nothing that has to be changed

enum class FailOn { Error, Warning, Info, Never };  // the mildest level that is a failure

struct CheckCode {
    const char* id;
    CheckLevel level;
    const char* title;
};

// One row per code. EBO1xx: the load fails or aborts, or leaves a record out that the file asks for. EBO2xx:
// it does not; EBO202 to EBO208 are the faults EBO102 to EBO108 that do no such thing to the load which is
// checked.
// clang-format off
#define EBO_CHECK_CODES(ROW) \
    ROW(kUnreadable,         "EBO100", Error,   "file that cannot be read") \
    ROW(kInvalidJson,        "EBO101", Error,   "invalid JSON") \
    ROW(kMissingRoot,        "EBO102", Error,   "missing root object") \
    ROW(kMissingSection,     "EBO103", Error,   "missing section") \
    ROW(kMissingKey,         "EBO104", Error,   "missing key") \
    ROW(kWrongType,          "EBO105", Error,   "value of the wrong type") \
    ROW(kBeyond32Bits,       "EBO106", Error,   "integer beyond 32 bits") \
    ROW(kMapAborts,          "EBO107", Error,   "channel map that aborts the process") \
    ROW(kWrongPlace,         "EBO108", Error,   "root object or section in the wrong place") \
    ROW(kForeign,            "EBO109", Error,   "text that is no tuning file") \
    ROW(kRootLeftOut,        "EBO202", Warning, "missing root object that does not fail the load") \
    ROW(kSectionLeftOut,     "EBO203", Warning, "missing section that does not fail the load") \
    ROW(kKeyLeftOut,         "EBO204", Warning, "missing key that does not fail the load") \
    ROW(kWrongTypeLeftOut,   "EBO205", Warning, "value of the wrong type that does not fail the load") \
    ROW(kBeyond32LeftOut,    "EBO206", Warning, "integer beyond 32 bits that does not fail the load") \
    ROW(kWrongPlaceLeftOut,  "EBO208", Warning, "root object or section in the wrong place that does not fail the load") \
    ROW(kUnknownRoot,        "EBO210", Warning, "unknown root object") \
    ROW(kUnknownSection,     "EBO211", Warning, "unknown section") \
    ROW(kUnknownKey,         "EBO212", Warning, "unknown key") \
    ROW(kDuplicate,          "EBO213", Warning, "duplicate root object, section or key") \
    ROW(kNarrowed,           "EBO220", Warning, "integer that does not fit 16 bits") \
    ROW(kFlagValue,          "EBO221", Warning, "flag other than 0 and 1") \
    ROW(kFloatRange,         "EBO222", Warning, "number beyond the range of a float") \
    ROW(kTooFewNumbers,      "EBO223", Warning, "row or map with too few numbers") \
    ROW(kTooManyNumbers,     "EBO224", Warning, "row or map with too many numbers") \
    ROW(kBadSeparator,       "EBO225", Warning, "row or map with badly separated numbers") \
    ROW(kMapIgnored,         "EBO226", Warning, "channel map without a count") \
    ROW(kMapChannels,        "EBO227", Warning, "channel map without channels, or with one that is negative or named twice") \
    ROW(kCutAtNul,           "EBO228", Warning, "text that a NUL character cuts off") \
    ROW(kOddNumber,          "EBO229", Warning, "row with a number that is hexadecimal, infinite or none") \
    ROW(kStatusWord,         "EBO230", Warning, "status that is neither enable nor disable") \
    ROW(kNeverRead,          "EBO231", Warning, "setting that nothing reads") \
    ROW(kDisabledSettings,   "EBO232", Info,    "unread settings of a disabled section") \
    ROW(kUpsideDown,         "EBO233", Warning, "thresholds upside down") \
    ROW(kWakeupMode,         "EBO234", Warning, "wake-up mode outside 1 to 3") \
    ROW(kWakeupWords,        "EBO235", Warning, "number of wake words that does not match the words") \
    ROW(kGscMethodAlone,     "EBO236", Warning, "gsc method 1 while gsc is off") \
    ROW(kNoModel,            "EBO237", Warning, "neural noise reduction without a model")

#define EBO_CHECK_CODE(name, id, level, title) inline constexpr CheckCode name{id, CheckLevel::level, title};
EBO_CHECK_CODES(EBO_CHECK_CODE)
#undef EBO_CHECK_CODE
// clang-format on

// All codes, in order.
const std::vector<const CheckCode*>& checkCodes();

// Another place that a finding speaks of.
struct RelatedPlace {
    TextPlace place;
    std::string text;  // what is there
};

struct CheckFinding {
    const CheckCode* code;
    TextPlace place;
    std::string text;    // what is wrong
    std::string device;  // what a device will do
    std::string help;    // what to do about it; may be empty

    // Of the file, in ascending order: they do what `help` says. May be empty.
    std::vector<TextEdit> edits = {};
    bool isGuess = false;  // they let the check read on, but only the author knows what was meant
    std::vector<RelatedPlace> related = {};
};

enum class CheckOutcome { Loads, Fails, Aborts };  // Aborts: it ends the process

// What a loader makes of the file.
struct CheckLoad {
    const EboLoad* load;
    std::string words;  // "the whole load"
    CheckOutcome outcome = CheckOutcome::Loads;
    std::vector<std::string> log = {};    // its error messages, in order and without colours
    std::vector<std::string> lacks = {};  // sections without the record that they ask for
    bool ended = false;                   // by a failure: nothing is logged any more

    void logs(const std::string& message);
    void ends(CheckOutcome how);
};

struct ById {
    bool operator()(const CheckCode* a, const CheckCode* b) const { return std::strcmp(a->id, b->id) < 0; }
};

struct CheckReport {
    std::string file;
    std::vector<CheckFinding> findings;  // in the order of their places
    std::map<const CheckCode*, size_t, ById>
        left;  // findings left out of each code, of which there are too many
    std::map<const CheckCode*, CheckLevel, ById> levels;  // chosen in place of the codes' own
    FailOn failOn = FailOn::Error;
    std::vector<CheckLoad> loads;  // those that the check is about

    // The findings of one code that a report holds: a file can have any number of faults.
    static constexpr size_t kMost = 50;
    void add(CheckFinding finding);
    // True when the report is full of this code: the finding is counted, and need not be made.
    bool leaveOut(const CheckCode& code);

    CheckLevel levelOf(const CheckCode& code) const;
    // Those left out too.
    size_t count(CheckLevel level) const;
    bool isFailure(const CheckCode& code) const;
    bool fails() const;
    void sortByPlace();
    CheckOutcome outcome() const;  // the worst of the loads
    std::string words() const;     // of all loads

private:
    std::map<const CheckCode*, size_t, ById> held_;
};

const char* nameOf(CheckLevel level);
const char* nameOf(CheckOutcome outcome);
