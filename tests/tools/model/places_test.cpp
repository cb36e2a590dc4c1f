// What the tool adds to the readers' tables agrees with them.
#include "model/places.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <set>

#include "report/export.h"

namespace {

const EboLoad& kWhole = kEboLoads[kEboFullLoad];

TEST(Places, BeginsWithTheSectionsOfAWholeFileInTheirOrder) {
    ASSERT_EQ(sectionPlaces().size(), kWhole.sectionCount + 3U);
    for (size_t i = 0; i < kWhole.sectionCount; ++i) {
        EXPECT_EQ(sectionPlaces()[i].section, kWhole.sections[i]);
        EXPECT_STREQ(sectionPlaces()[i].root, "ebo_configs");
    }
}

// Every byte of a record belongs to one field, but for padding before an aligned one and for pointers to
// other records.
TEST(Places, CoversEveryRecordToTheByte) {
    for (const SectionPlace& place : sectionPlaces()) {
        if (place.record.empty()) continue;
        std::vector<int> owners(place.section->recordSize, 0);
        const auto own = [&owners](size_t offset, size_t size) {
            for (size_t i = offset; i < offset + size; ++i) ++owners.at(i);
        };
        std::vector<const EboKeyRow*> rows = keysOf(*place.section);
        for (const EboKeyRow* row : fieldsWithoutKey(*place.section)) rows.push_back(row);
        for (const EboKeyRow* row : rows) {
            const Numbers numbers = numbersOf(*row);
            const size_t size = numbers.type == EboKeyKind::Int16 ? 2 : 4;
            for (size_t i = 0; i < numbers.count; ++i) own(numbers.offset + i * numbers.stride, size);
            if (numbers.count == 0) own(row->offset, sizeof(void*));
        }
        if (place.record == "EboAecParam") {
            own(offsetof(EboAecParam, model_aec_en), 4);
            own(offsetof(EboAecParam, delay), sizeof(void*));
        }
        if (place.record == "EboBeamFormParam") {
            own(offsetof(EboBeamFormParam, model_en), 4);
            own(offsetof(EboBeamFormParam, dereverb),
                sizeof(EboBeamFormParam) - offsetof(EboBeamFormParam, dereverb));
        }
        if constexpr (sizeof(void*) == 8) {  // before a pointer
            if (place.record == "EboAecParam") own(20, 4), own(36, 4);
            if (place.record == "EboBeamFormParam") own(20, 4);
            if (place.record == "EboWakeupParam") own(12, 4);
        }
        for (size_t i = 0; i < owners.size(); ++i) {
            const bool padding = owners[i] == 0 && i % 4 != 0;
            EXPECT_TRUE(owners[i] == 1 || padding) << place.record << " byte " << i << ": " << owners[i];
        }
    }
}

TEST(Places, NamesSectionsOutsideOfTheCapturePathWithTheirRoot) {
    std::set<std::string> names;
    for (const SectionPlace& place : sectionPlaces()) names.insert(nameOf(place));
    EXPECT_EQ(names.size(), sectionPlaces().size());
    EXPECT_TRUE(names.count("anr") && names.count("ebo_ao_configs.anr") &&
                names.count("ebo_agc_configs.agc"));
}

std::string fieldOf(const std::string& name) {
    for (const SectionPlace& place : sectionPlaces()) {
        for (const EboKeyRow* row : keysOf(*place.section)) {
            if (nameOf(place, *row) == name) return fieldName(*row);
        }
    }
    return "no such key";
}

TEST(Places, NamesTheFieldOfAKey) {
    EXPECT_EQ(fieldOf("agc.fRk0"), "fRk0");
    EXPECT_EQ(fieldOf("aec.mic_chn_map"), "Array_list");
    EXPECT_EQ(fieldOf("aes.LimitRatio_1"), "LimitRatio[1]");
    EXPECT_EQ(fieldOf("aes.HardThreshold"), "HardThreshold");
    EXPECT_EQ(fieldOf("nlp.band_pass_thd"), "bands[].band_pass_thd");
    EXPECT_EQ(fieldOf("anr.Sup_Freq1"), "Sup_Freq1");
    EXPECT_EQ(fieldOf("gsc.method"), "");
}

class SectionsOfAFile : public testing::TestWithParam<size_t> {
protected:
    // An example with the section's place taken by `section`; empty: without the section.
    static bool loadsWith(const SectionPlace& place, const std::string& section) {
        const Load example = loadTuning(TUNINGS "/two-mic-speaker.json", nullptr);
        std::string text = exportText(example.tuning).text;
        const size_t root = text.find('"' + std::string(place.root) + '"');
        const size_t begin = text.find("    \"" + std::string(place.section->name) + "\": {", root);
        const size_t end = text.find("    }", begin) + 5;
        const std::string comma = text[end] == ',' ? "," : "";
        const std::string member = '"' + std::string(place.section->name) + "\": " + section + comma;
        const std::string unknown = "\"unknown\": {}" + comma;
        text.replace(begin, end + comma.size() - begin, section.empty() ? unknown : member);
        const std::string file =
            testing::TempDir() + std::to_string(getpid()) + "-" + nameOf(place) + ".json";
        std::ofstream(file) << text;
        bool loaded = false;
        messagesOf([&] { loaded = CaptureRoot(parseEboConfigs(file.c_str())) != nullptr; });
        std::remove(file.c_str());
        return loaded;
    }
};

TEST_P(SectionsOfAFile, AreRequiredAndReadAsTheCatalogueSays) {
    const SectionPlace& place = sectionPlaces()[GetParam()];
    EXPECT_EQ(loadsWith(place, ""), !place.required) << place.section->name;
    const bool needsKeys = place.readWhenDisabled() && place.section->rowCount > 1;
    EXPECT_EQ(loadsWith(place, R"({"status": "disable"})"), !needsKeys) << place.section->name;
}

INSTANTIATE_TEST_SUITE_P(Places, SectionsOfAFile, testing::Range<size_t>(0, kWhole.sectionCount),
                         [](const auto& index) { return sectionPlaces()[index.param].section->name; });

TEST(Places, TellsWhetherASectionIsEnabled) {
    const Load load = loadTuning(TUNINGS "/two-mic-speaker.json", nullptr);
    std::string disabled;
    for (const SectionPlace& place : sectionPlaces()) {
        if (!isEnabled(place, load.tuning)) disabled += nameOf(place) + " ";
    }
    EXPECT_EQ(disabled, "dereverb howl ainr ");
}

}  // namespace
