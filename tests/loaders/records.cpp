#include "records.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "harness/bytes.h"

namespace {

const EboDelayParam kDelay = {60, 0, 8, 1, -25536, 80, 400, 3600, 0.9725F};

// In the order of the fields, not of the keys.
const EboAgcParam kAgc = {160.5F, 1800.0F, 24.0F, -1.5F,  -48.0F, 1.25F, -36.5F, 16000, 256,
                          900.0F, -18.0F,  0.8F,  0.375F, -6.0F,  41,    82,     96};
const EboAgcParam kAgcOfItsOwnFile = {1.5F, 2.5F, 4.5F,  5.5F,  6.5F,  9.5F, 7.5F, 16000, 256,
                                      3.5F, 8.5F, 10.5F, 11.5F, 12.5F, 13,   14,   15};

const EboAnrParam kAnr = {0.88F,  100000,    0.0125F, 0.516F, 0.0562F, 3600,  -5200, 100000.0F, 250000.0F,
                          9,      1.67F,     15,      4.6F,   1.6703F, 1.0F,  3.0F,  0.925F,    0.81F,
                          1.475F, 0.003162F, 40.0F,   0.95F,  0.85F,   65536, 0.7F,  2};
const EboAnrParam kAoAnr = {1.5F,  5,     2.5F,  3.5F,  4.5F,  6,     7,     8.5F,  9.5F,
                            10,    11.5F, 12,    13.5F, 14.5F, 15.5F, 16.5F, 17.5F, 18.5F,
                            19.5F, 20.5F, 21.5F, 22.5F, 23.5F, 24,    25.5F, 26};

const EboNlpParam kNlp = {{{11, 21}, {12, 22}, {13, 23}, {14, 24}, {15, 25}, {16, 26}, {17, 27}, {-18, 28}}};
const EboDereverbParam kDereverb = {70000, 12, 3, 0.98F, 0.45F, 1.0F};
const EboCngParam kCng = {12.5F, 18.0F, 0.985F, 0.3F};
const EboDtdParam kDtd = {0.2F, 0.5F};

const EboAesParam kAes = {
    0.005F,
    0.00125F,
    0.004F,
    0.0008F,
    300,
    3800,
    1,
    2,
    {{1.0F, 0.85F, 0.7F}, {0.9F, 0.625F, 0.5F}},
    {{0, 500}, {501, 1500}, {1501, 4000}, {4001, 8000}},
    {{0.95F, 0.9F, 0.82F, 0.7F, 0.58F, 0.45F, 0.33F, 0.22F, 0.12F, 0.05F},
     {1.95F, 1.9F, 1.82F, 1.7F, 1.58F, 1.45F, 1.33F, 1.22F, 1.12F, 1.05F},
     {2.95F, 2.9F, 2.82F, 2.7F, 2.58F, 2.45F, 2.33F, 2.22F, 2.12F, 2.05F},
     {3.95F, 3.9F, 3.82F, 3.7F, 3.58F, 3.45F, 3.33F, 3.22F, 3.12F, 3.05F}},
    {{1, 400}, {402, 1200}, {1202, 2800}, {2802, 5200}, {4464, -1}},
    {0.45F, 0.38F, 0.3F, 0.225F},
};

const EboHowlParam kHowl = {2};
const EboHowlParam kAoHowl = {3};
const EboDoaParam kDoa = {0.0325F, 600, 3400, 36, 7};

template <typename Record>
void expectSame(const char* name, const Record* got, const Record& want) {
    if (!got) return;
    EXPECT_EQ(bytes(*got), bytes(want)) << name;
}

// Keys of a section that is not enabled are not read.
void expectWakeup(const EboWakeupParam& wakeup, bool enabled) {
    EXPECT_EQ(wakeup.mode, enabled ? 2 : 0);
    EXPECT_EQ(wakeup.wakeup_frames, enabled ? 150 : 0);
    EXPECT_EQ(wakeup.wakeup_words, enabled ? 4 : 0);
    EXPECT_STREQ(wakeup.model_word1, enabled ? "hello-lamp" : nullptr);
    EXPECT_STREQ(wakeup.model_word2, enabled ? "good-night" : nullptr);
}

}  // namespace

void expectAec(const EboAecParam* aec) {
    ASSERT_NE(aec, nullptr);
    ASSERT_NE(aec->Array_list, nullptr);
    EboAecParam want = {};
    want.drop_ref_channel = 1;
    want.model_aec_en = 0x3;
    want.delay_len = 48;
    want.look_ahead = -2;
    want.Array_list = aec->Array_list;
    want.filter_len = 4464;
    want.delay = aec->delay;
    EXPECT_EQ(bytes(*aec), bytes(want));
    EXPECT_THAT(std::vector<int16_t>(aec->Array_list, aec->Array_list + 3), testing::ElementsAre(2, 0, -1));
    ASSERT_NE(aec->delay, nullptr);
    expectSame("delay", aec->delay, kDelay);
}

void expectBeamForm(const EboBeamFormParam* bf, int model_en) {
    ASSERT_NE(bf, nullptr);
    EboBeamFormParam want = *bf;  // the slots
    want.model_en = model_en;
    want.ref_pos = 0;
    want.targ = 3;
    want.num_ref_channel = 0;
    want.drop_ref_channel = 1;
    want.reserved = nullptr;
    EXPECT_EQ(bytes(*bf), bytes(want));
    expectSame("dereverb", bf->dereverb, kDereverb);
    expectSame("aes", bf->aes, kAes);
    expectSame("nlp", bf->nlp, kNlp);
    expectSame("anr", bf->anr, kAnr);
    expectSame("agc", bf->agc, kAgc);
    expectSame("cng", bf->cng, kCng);
    expectSame("dtd", bf->dtd, kDtd);
    expectSame("howl", bf->howl, kHowl);
    expectSame("doa", bf->doa, kDoa);
    if (bf->wakeup) expectWakeup(*bf->wakeup, (model_en & 0x2) != 0);
    if (bf->ainr) {
        EXPECT_STREQ(bf->ainr->model_path, (model_en & 0x20000) != 0 ? "/models/noise.bin" : nullptr);
    }
}

void expectAoAnr(const EboAnrParam* anr) {
    ASSERT_NE(anr, nullptr);
    expectSame("anr", anr, kAoAnr);
}

void expectAoHowl(const EboHowlParam* howl) {
    ASSERT_NE(howl, nullptr);
    expectSame("howl", howl, kAoHowl);
}

void expectAgcOfItsOwnFile(const EboAgcParam* agc) {
    ASSERT_NE(agc, nullptr);
    expectSame("agc", agc, kAgcOfItsOwnFile);
}

std::string slots(const EboBeamFormParam& bf) {
    std::string names;
    const auto add = [&names](const void* slot, const char* name) {
        if (slot) names += name;
    };
    add(bf.dereverb, "dereverb ");
    add(bf.aes, "aes ");
    add(bf.nlp, "nlp ");
    add(bf.anr, "anr ");
    add(bf.agc, "agc ");
    add(bf.cng, "cng ");
    add(bf.dtd, "dtd ");
    add(bf.howl, "howl ");
    add(bf.doa, "doa ");
    add(bf.wakeup, "wakeup ");
    add(bf.ainr, "ainr ");
    return names;
}
