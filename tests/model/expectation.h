// What the model of the reading rules expects of one load, of the dumps of what it returns, and of their
// destruction. Written plainly from the rules, not from the library's tables.
#pragma once

#include <ebo_config.h>

#include <optional>
#include <string>
#include <vector>

#include "model/document.h"

namespace model {

enum class Loader { Full, Aec, BeamForm, Ao, Agc };
constexpr Loader kLoaders[] = {Loader::Full, Loader::Aec, Loader::BeamForm, Loader::Ao, Loader::Agc};
const char* nameOf(Loader loader);

struct Line {
    bool error;  // else information
    int level;
    std::string function;
    std::string text;

    bool operator==(const Line& other) const {
        return error == other.error && level == other.level && function == other.function &&
               text == other.text;
    }
};
using Log = std::vector<Line>;

// Every record that a load can return, all zero until it is read; the pointers among them lead from one to the
// other and say which of them there are.
struct Records {
    KAEboParam ebo;
    EboAecParam aec;
    EboDelayParam delay;
    int16_t map[16];
    EboBeamFormParam bf;
    EboDereverbParam dereverb;
    EboAesParam aes;
    EboNlpParam nlp;
    EboAnrParam anr;
    EboAgcParam agc;
    EboCngParam cng;
    EboDtdParam dtd;
    EboHowlParam howl;
    EboDoaParam doa;
    EboWakeupParam wakeup;
    EboAiNRParam ainr;
    EboRxParam rx;
};

struct Expectation {
    Expectation();
    Expectation(const Expectation&) = delete;  // the records point at each other
    Expectation& operator=(const Expectation&) = delete;

    bool aborts = false;  // a channel map of more than 16 channels ends the process; nothing else counts then
    bool rejected = false;   // not a document: the framework says so, the library nothing
    void* result = nullptr;  // the top record, null when the load fails
    int channels = 0;        // entries of the channel map
    int leaks = 0;           // blocks left over once the result is destroyed, on purpose
    Records records;
    std::string word1, word2, model_path;  // what the records' texts point at
    Log log;
    Log dump;
};

// `document`: nothing for a file that is not JSON.
void expect(Loader loader, const std::optional<Value>& document, Expectation& expectation);

// The lines of the three dumps.
void dumpAec(const EboAecParam& aec, Log& log);
void dumpBeamForm(const EboBeamFormParam& bf, Log& log);
void dumpAo(const EboRxParam& rx, Log& log);

}  // namespace model
