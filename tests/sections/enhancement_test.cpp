#include "sections/reading.h"

namespace {

TEST(Anr, ReportsTheFirstMissingKeyOnly) {
    Reading anr("anr");
    anr.keys.erase("noiseFactor");
    anr.keys.erase("swU");
    anr.run();
    expectLog(anr.host, {error("parseEboAnrConfigs", "find anr noiseFactor failed")});
}

TEST(Anr, ReadsSwUAfterFGminThoughItIsTheSecondField) {
    Reading anr("anr");
    anr.keys.erase("swU");
    anr.keys.erase("fGmin");
    anr.run();
    expectLog(anr.host, {error("parseEboAnrConfigs", "find anr fGmin failed")});
}

TEST(Anr, MissingLastKeyLeavesTheBitSet) {
    Reading anr("anr");
    anr.keys.erase("TranMode");
    anr.run();
    EXPECT_TRUE(anr.failed);
    EXPECT_EQ(anr.mask, 0x40);
    expectLog(anr.host, {error("parseEboAnrConfigs", "find anr TranMode failed")});
}

TEST(Dereverb, ThatIsDisabledIsFilledAllTheSame) {
    Reading dereverb("dereverb");
    dereverb.keys["status"] = "disable";
    dereverb.run();
    EXPECT_EQ(dereverb.mask, 0);
    EXPECT_EQ(dereverb.as<EboDereverbParam>().rlsLg, 4);
    EXPECT_EQ(dereverb.as<EboDereverbParam>().coCoeff, 1.25F);
    expectLog(dereverb.host, {});
}

TEST(Cng, MissingLastKeyLeavesTheBitSet) {
    Reading cng("cng");
    cng.keys.erase("fSpeechGain");
    cng.run();
    EXPECT_TRUE(cng.failed);
    EXPECT_EQ(cng.mask, 0x800);
    expectLog(cng.host, {error("parseEboCngConfigs", "find cng fSpeechGain failed")});
}

TEST(Dtd, AcceptsAnUpperThresholdBelowTheLower) {
    Reading dtd("dtd");
    dtd.keys["ksiThd_high"] = 0.2;
    dtd.keys["ksiThd_low"] = 0.5;
    dtd.run();
    EXPECT_EQ(dtd.as<EboDtdParam>().ksiThd_high, 0.2F);
    EXPECT_EQ(dtd.as<EboDtdParam>().ksiThd_low, 0.5F);
    expectLog(dtd.host, {});
}

TEST(Agc, ReadsWithoutAMask) {
    for (const char* status : {"enable", "disable"}) {
        Reading agc("agc");
        agc.root = "ebo_agc_configs";
        agc.keys["status"] = status;
        agc.model_en = nullptr;
        agc.run();
        ASSERT_FALSE(agc.failed);
        EXPECT_EQ(agc.as<EboAgcParam>().swSmL2, 96);
        EXPECT_EQ(agc.mask, 0);
        expectLog(agc.host, {});
    }
}

TEST(Agc, MissingKeyWithoutAMaskIsReportedAsWell) {
    Reading agc("agc");
    agc.keys.erase("attack_time");
    agc.model_en = nullptr;
    agc.run();
    EXPECT_TRUE(agc.failed);
    expectLog(agc.host, {error("parseEboAgcConfigs", "find agc attack_time failed")});
}

TEST(Agc, FixesSampleRateAndFrameLengthWhateverTheFileSays) {
    for (const char* status : {"enable", "disable"}) {
        Reading agc("agc");
        agc.keys["status"] = status;
        agc.keys["sample_rate"] = 8000;
        agc.keys["frame_len"] = 128;
        agc.run();
        EXPECT_EQ(agc.as<EboAgcParam>().sample_rate, 16000);
        EXPECT_EQ(agc.as<EboAgcParam>().frame_len, 256);
    }
}

TEST(AiNR, OwnsACopyOfTheModelPath) {
    Reading ainr("ainr");
    ainr.run();
    ainr.closeDocument();
    EXPECT_STREQ(ainr.as<EboAiNRParam>().model_path, "/opt/model.bin");
    EXPECT_EQ(ainr.mask, 0x20000);
    expectLog(ainr.host, {});
}

TEST(AiNR, KeepsTheModelPathAsItStands) {
    for (const std::string& path : {std::string(" "), std::string(" /a "), std::string(1000, 'x')}) {
        Reading ainr("ainr");
        ainr.keys["model_path"] = path;
        ainr.run();
        EXPECT_STREQ(ainr.as<EboAiNRParam>().model_path, path.c_str());
    }
}

TEST(AiNR, EnabledWithoutUsablePathHasTheBitAndNoPath) {
    for (const json& path : {json(""), json(nullptr), json(7), json::array({"/opt/model.bin"})}) {
        Reading ainr("ainr");
        ainr.keys["model_path"] = path;
        ainr.run();
        ASSERT_FALSE(ainr.failed);
        EXPECT_EQ(ainr.as<EboAiNRParam>().model_path, nullptr);
        EXPECT_EQ(ainr.mask, 0x20000);
        expectLog(ainr.host, {});
    }
    Reading absent("ainr");
    absent.keys.erase("model_path");
    absent.run();
    EXPECT_EQ(absent.as<EboAiNRParam>().model_path, nullptr);
    EXPECT_EQ(absent.mask, 0x20000);
    expectLog(absent.host, {});
}

// Unlike the wake-up section it goes by its own status, not by the bit.
TEST(AiNR, DisabledIgnoresThePathEvenWhenTheBitWasSetBefore) {
    for (const int before : {0, 0x20000}) {
        Reading ainr("ainr");
        ainr.keys["status"] = "disable";
        ainr.mask = before;
        ainr.run();
        ASSERT_FALSE(ainr.failed);
        EXPECT_EQ(ainr.as<EboAiNRParam>().model_path, nullptr);
        EXPECT_EQ(ainr.mask, before);
        expectLog(ainr.host, {});
    }
}

}  // namespace
