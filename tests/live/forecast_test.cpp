// The forecast says of every file what its loader then does.
#include "forecast.h"

#include <gtest/gtest.h>
#include <ka/log_sink.h>
#include <sys/mman.h>
#include <sys/wait.h>

#include <csignal>
#include <cstring>
#include <random>

#include "file.h"
#include "files.h"
#include "log.h"

using ebo_live::Forecast;
using live_test::json;

namespace {

// What a loader did in another process.
struct Deed {
    bool aborted;
    bool loaded;
    char last_error[256];  // "function: message"
};

void remember(const KaLogMessage& message, void* user) {
    if (!message.error) return;
    auto* deed = static_cast<Deed*>(user);
    std::snprintf(deed->last_error, sizeof deed->last_error, "%s: %s", message.function,
                  ebo_live::plainText(message.text).c_str());
}

bool loads(size_t load, const char* path) {
    switch (load) {
        case kEboFullLoad:
            return parseEboConfigs(path) != nullptr;
        case kEboAecLoad:
            return parseEboAecConfigs(path) != nullptr;
        case kEboBeamFormLoad:
            return parseEboBeamFormConfigs(path) != nullptr;
        case kEboAoLoad:
            return parseEboAoConfigs(path) != nullptr;
        default:
            return parseEboAgcConfigsFile(path) != nullptr;
    }
}

// All loads in one process, as long as it lives.
class Deeds {
public:
    Deeds()
        : all_(static_cast<Deed*>(mmap(nullptr, kEboLoadCount * sizeof(Deed), PROT_READ | PROT_WRITE,
                                       MAP_SHARED | MAP_ANONYMOUS, -1, 0))) {}
    ~Deeds() { munmap(all_, kEboLoadCount * sizeof(Deed)); }
    Deeds(const Deeds&) = delete;
    Deeds& operator=(const Deeds&) = delete;

    void see(const char* path) {
        std::memset(all_, 0, kEboLoadCount * sizeof(Deed));
        for (size_t first = 0; first < kEboLoadCount;) first = seeFrom(first, path);
    }
    const Deed& of(size_t load) const { return all_[load]; }

private:
    size_t seeFrom(size_t first, const char* path) {
        const pid_t child = fork();
        if (child == 0) {
            for (size_t load = first; load < kEboLoadCount; ++load) {
                all_[load].aborted = true;
                ka_install_log_sink(remember, &all_[load]);
                all_[load].loaded = loads(load, path);
                all_[load].aborted = false;
            }
            _exit(0);
        }
        int status = 0;
        EXPECT_EQ(waitpid(child, &status, 0), child);
        if (WIFEXITED(status)) return kEboLoadCount;
        EXPECT_EQ(WTERMSIG(status), SIGABRT);
        for (size_t load = first; load < kEboLoadCount; ++load) {
            if (all_[load].aborted) return load + 1;
        }
        ADD_FAILURE() << "ended outside a load";
        return kEboLoadCount;
    }

    Deed* const all_;
};

struct Seen {
    int loaded = 0;
    int failed = 0;
    int aborted = 0;
};

void compare(Deeds& deeds, const std::string& text, Seen& seen) {
    const ebo_live::Snapshot file(text);
    KAJsonParser parser;
    ASSERT_NE(parser.parseFile(file.path().c_str()), 0) << text;
    deeds.see(file.path().c_str());
    for (size_t load = 0; load < kEboLoadCount; ++load) {
        SCOPED_TRACE(std::string(kEboLoads[load].name) + " of " + text);
        const Deed& deed = deeds.of(load);
        const Forecast expected = ebo_live::forecast(parser, kEboLoads[load], false);
        EXPECT_EQ(expected.aborts, deed.aborted) << expected.reason;
        if (deed.aborted) {
            EXPECT_NE(std::strstr(deed.last_error, "Assertion chns <= 16 failed"), nullptr);
            EXPECT_NE(expected.reason.find("mic_chn_map has "), std::string::npos);
            ++seen.aborted;
        } else if (deed.loaded) {
            EXPECT_EQ(expected.reason, "");
            ++seen.loaded;
        } else {
            EXPECT_EQ(expected.reason, deed.last_error);
            ++seen.failed;
        }
    }
}

const json kValues[] = {nullptr,
                        true,
                        -1,
                        1.5,
                        2147483648,
                        json::array(),
                        json::object(),
                        "",
                        "enable",
                        "ENABLE",
                        "other",
                        "17 chn;map:1,2,3,",
                        "1"};

// The tuning without something, and with something else in its place.
void changeKey(json& section, const std::string& key, size_t choice) {
    if (choice == 0) {
        section.erase(key);
    } else {
        section[key] = kValues[choice - 1];
    }
}

TEST(Forecast, OfEveryFaultOfOneKeyIsWhatTheLoadersDo) {
    Deeds deeds;
    Seen seen;
    const json whole = live_test::numbered(7);
    compare(deeds, whole.dump(), seen);
    EXPECT_EQ(seen.loaded, kEboLoadCount);
    size_t turn = 0;
    for (const auto& [root, sections] : whole.items()) {
        for (const auto& [section, keys] : sections.items()) {
            json without = whole;
            without[root].erase(section);
            compare(deeds, without.dump(), seen);
            without[root][section] = "text";
            compare(deeds, without.dump(), seen);
            for (const auto& [key, value] : keys.items()) {
                // Of the values each key has two, and each value comes up at many keys.
                for (const size_t choice : {size_t{0}, 1 + turn++ % std::size(kValues)}) {
                    json document = whole;
                    changeKey(document[root][section], key, choice);
                    compare(deeds, document.dump(), seen);
                    if (testing::Test::HasFailure()) return;
                }
            }
        }
    }
    EXPECT_GT(seen.failed, 200);
}

TEST(Forecast, OfEveryChannelMapIsWhatTheLoadersDo) {
    Deeds deeds;
    Seen seen;
    for (const char* map : {"16 chn;map:1,",
                            "17 chn;map:1,",
                            "17",
                            "17chn",
                            " \t\n17",
                            "+17",
                            "-17",
                            "0",
                            "",
                            "x17",
                            "1 7",
                            "0x11",
                            "99999999999999999999",
                            "-99999999999999999999",
                            "2147483647",
                            "4294967297",
                            "17.0",
                            "016",
                            "017",
                            "\v17"}) {
        json document = live_test::numbered(7);
        document["ebo_configs"]["aec"]["mic_chn_map"] = map;
        compare(deeds, document.dump(), seen);
        // The map comes before these, and after the status.
        document["ebo_configs"]["aec"].erase("filter_len");
        compare(deeds, document.dump(), seen);
        document["ebo_configs"]["aec"].erase("status");
        compare(deeds, document.dump(), seen);
    }
    EXPECT_GT(seen.aborted, 20);
    EXPECT_GT(seen.loaded, 20);
}

TEST(Forecast, OfManyFaultsAtOnceIsWhatTheLoadersDo) {
    Deeds deeds;
    Seen seen;
    std::mt19937 random(1);  // the same files every time
    const json whole = live_test::numbered(7);
    for (int i = 0; i < 300; ++i) {
        json document = whole;
        for (unsigned fault = 0; fault <= random() % 4; ++fault) {
            auto root = std::next(document.begin(), static_cast<int>(random() % document.size()));
            if (root->empty()) continue;
            auto section = std::next(root->begin(), static_cast<int>(random() % root->size()));
            if (!section->is_object() || section->empty()) continue;
            if (random() % 8 == 0) {
                root->erase(section.key());
                continue;
            }
            // The first keys, a section's status above all, more often than the last.
            const size_t place = random() % (1 + random() % section->size());
            const std::string key = std::next(section->begin(), static_cast<int>(place)).key();
            changeKey(*section, key, random() % (std::size(kValues) + 1));
        }
        compare(deeds, document.dump(), seen);
        if (testing::Test::HasFailure()) return;
    }
    EXPECT_GT(seen.failed, 100);
    EXPECT_GT(seen.loaded, 100);
}

// The forecast looks at every key, also of a section that is not enabled.
TEST(Forecast, NeedsNoKeyThatTheReaderLeavesUnread) {
    for (const EboLoad& load : kEboLoads) {
        for (size_t i = 0; i < load.sectionCount; ++i) {
            const EboSection& section = *load.sections[i];
            if (section.whenDisabled == EboDisabled::IsRead || section.optional != 0) continue;
            for (size_t row = 1; row < section.rowCount; ++row)
                EXPECT_NE(section.rows[row].ifMissing, EboIfMissing::Fails) << section.rows[row].key;
        }
    }
}

TEST(Forecast, DemandsEverySectionOfAPlaybackPathThatMustBeWhole) {
    json document = live_test::numbered(7);
    document["ebo_ao_configs"]["howl"].erase("mode");
    const ebo_live::Snapshot file(document.dump());
    KAJsonParser parser;
    ASSERT_NE(parser.parseFile(file.path().c_str()), 0);
    const EboLoad& playback = kEboLoads[kEboAoLoad];
    EXPECT_EQ(ebo_live::forecast(parser, playback, true).reason,
              "parseEboHowlConfigs: find howl mode failed");
    EXPECT_EQ(ebo_live::forecast(parser, playback, false).reason, "");
}

}  // namespace
