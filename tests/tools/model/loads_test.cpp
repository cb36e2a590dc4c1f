// What the tool says of a load is what the library does, for each of the five loaders.
#include <gmock/gmock.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "../check/loading.h"
#include "many_files.h"
#include "memory_file.h"
#include "model/modules.h"
#include "random_tuning.h"

namespace {

// The same place in a tree of the library's own.
Tuning loadedByTheLibrary(const EboLoad& load, const std::string& file) {
    Tuning tuning;
    const auto newRoot = [] { return static_cast<KAEboParam*>(ka_mem_malloc(sizeof(KAEboParam), "test")); };
    const char* const path = file.c_str();
    messagesOf([&] {
        switch (&load - kEboLoads) {
            case kEboFullLoad:
                tuning.capture.reset(parseEboConfigs(path));
                break;
            case kEboAecLoad:
                if (EboAecParam* aec = parseEboAecConfigs(path)) {
                    tuning.capture.reset(newRoot());
                    tuning.capture->aec = aec;
                }
                break;
            case kEboBeamFormLoad:
                if (EboBeamFormParam* bf = parseEboBeamFormConfigs(path)) {
                    tuning.capture.reset(newRoot());
                    tuning.capture->bf = bf;
                }
                break;
            case kEboAoLoad:
                tuning.playback.reset(parseEboAoConfigs(path));
                break;
            default:
                tuning.gain.reset(parseEboAgcConfigsFile(path));
        }
    });
    return tuning;
}

bool isThere(const Tuning& tuning) {
    return tuning.capture || tuning.playback || tuning.gain;
}

bool wouldAbort(const Load& load) {
    return !load.messages.empty() && load.messages.back().text.find(kMapAssertion) != std::string::npos;
}

std::vector<std::string> errorsOf(const Load& load) {
    std::vector<std::string> errors;
    for (const LogMessage& message : load.messages) {
        if (message.error && message.tag == "KAAEboConfig" && message.text.compare(0, 4, "    ") != 0)
            errors.push_back(message.text);
    }
    return errors;
}

TEST(Loads, GiveWhatTheLibraryGives) {
    const MemoryFile file;
    std::vector<size_t> loaded(kEboLoadCount);
    size_t aborts = 0;
    for (const std::string& text : manyTexts()) {
        file.write(text);
        for (const EboLoad& how : kEboLoads) {
            const Load load = loadTuning(file.path(), &how);
            const bool abort = wouldAbort(load);
            const Loading real = loadPart(how.name, file.path(), abort);
            ASSERT_EQ(real.outcome == CheckOutcome::Aborts, abort) << how.name << "\n" << text;
            if (abort) {
                ++aborts;
                continue;
            }
            ASSERT_EQ(real.outcome == CheckOutcome::Loads, load.loaded) << how.name << "\n" << text;
            ASSERT_EQ(errorsOf(load), real.log) << how.name << "\n" << text;
            if (!load.loaded) continue;
            Tuning library = loadedByTheLibrary(how, file.path());
            library.channels = load.tuning.channels;
            library.gainMask = load.tuning.gainMask;
            ASSERT_EQ(bytesOf(load.tuning), bytesOf(library)) << how.name << "\n" << text;
            ++loaded[static_cast<size_t>(&how - kEboLoads)];
        }
    }
    for (const size_t count : loaded) EXPECT_GT(count, 300U);
    EXPECT_GT(aborts, 10U);
}

// `json` without the section, or without each of its other keys in turn, loads in no way.
bool failsWithout(const EboLoad& how, nlohmann::json json, const ModuleRow& row, bool keys) {
    const MemoryFile file;
    const auto fails = [&](const nlohmann::json& changed) {
        file.write(changed.dump());
        return !isThere(loadedByTheLibrary(how, file.path()));
    };
    nlohmann::json& root = json[how.root];
    if (!root.is_object()) return fails(json);
    const char* const name = row.place->section->name;
    if (keys) {
        for (const EboKeyRow* key : keysOf(*row.place->section)) {
            if (missingMessage(*key) == nullptr) continue;
            nlohmann::json changed = json;
            changed[how.root][name].erase(key->key);
            if (!fails(changed)) return false;
        }
    }
    root.erase(name);
    return fails(json);
}

// Each sentence about what fails is true, and none is missing.
TEST(Loads, FailByWhatIsSaidToBeMandatory) {
    const MemoryFile file;
    size_t told = 0;
    size_t untold = 0;
    for (const std::string& text : givenTexts()) {
        const nlohmann::json json = nlohmann::json::parse(text, nullptr, false);
        if (!json.is_object() || text.find("e400") != std::string::npos) continue;
        for (const EboLoad& how : kEboLoads) {
            file.write(json.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
            const Load load = loadTuning(file.path(), &how);
            if (!load.loaded) continue;
            for (const ModuleRow& row : moduleRows(load)) {
                const auto says = [&row](const char* sentence) {
                    return std::any_of(row.why.begin(), row.why.end(), [sentence](const std::string& why) {
                        return why.find(sentence) != std::string::npos;
                    });
                };
                const bool mandatory = says("still mandatory");
                if (mandatory) {
                    ++told;
                    EXPECT_TRUE(failsWithout(how, json, row, says("missing key")))
                        << how.name << ' ' << nameOf(*row.place);
                } else if (row.masked && !row.enabled) {
                    ++untold;
                    EXPECT_FALSE(failsWithout(how, json, row, false))
                        << how.name << ' ' << nameOf(*row.place);
                }
            }
        }
    }
    EXPECT_GT(told, 50U);
    EXPECT_GT(untold, 50U);
}

// Who loads a component alone gets no root, so nobody sees its status.
TEST(Loads, OfOneComponentShowNoBitThatIsLost) {
    for (const EboLoadIndex alone : {kEboAecLoad, kEboBeamFormLoad}) {
        const Load load = loadTuning(TUNINGS "/two-mic-speaker.json", &kEboLoads[alone]);
        const ModuleRow head = moduleRows(load).front();
        EXPECT_FALSE(head.masked);
        EXPECT_STREQ(effectOf(head), "loaded");
        for (const MaskValue& mask : masksOf(kEboLoads[alone], load.tuning)) EXPECT_NE(mask.name, "model_en");
    }
}

}  // namespace
