// Sections "aes", "nlp" and "dtd": echo suppression, non-linear processing, double-talk detection.
//
// Rows of numbers are texts; a short row is not an error. What it does not supply stays zero, with two
// exceptions that are stated where the texts are stored.
#include <type_traits>

#include "ebo_parse.h"
#include "row_scan.h"
#include "section_reader.h"
#include "section_table.h"

namespace {

constexpr uint8_t kBands = std::extent_v<decltype(EboNlpParam::bands)>;

// Every key of the section is such a list, and required: there is a text. A super_est_factor that it does not
// supply is the band's band_pass_thd, on purpose: as if both texts were read into one scratch. A
// band_pass_thd that the text does not supply stays zero.
void takeBands(const EboSection& /*section*/, const EboKeyRow& row, const char* text, void* record) {
    auto* nlp = static_cast<EboNlpParam*>(record);
    int32_t scratch[kBands];
    for (size_t i = 0; i < kBands; ++i) scratch[i] = nlp->bands[i].band_pass_thd;
    EboScanner scanner(text);
    eboScanIntList(scanner, scratch, kBands);
    for (size_t i = 0; i < kBands; ++i) {
        auto* field = reinterpret_cast<char*>(&nlp->bands[i]) + row.offset;
        *reinterpret_cast<int16_t*>(field) = static_cast<int16_t>(scratch[i]);
    }
}

// clang-format off
#define AES(field, text) EBO_NUMBER(EboAesParam, field, text)
#define AES_ROW(table, r, toCome, text) EBO_TABLE_ROW(#table "_" #r, EboAesParam, table[r], toCome, text)
constexpr EboKeyRow kAesKeys[] = {
    EBO_STATUS("find aes status failed"),
    AES(beta_up, "find aes beta_up failed"),
    AES(beta_down, "find aes beta_down failed"),
    AES(beta_up_low, "find aes beta_up_low failed"),
    AES(beta_down_low, "find aes beta_down_low failed"),
    AES(low_freq, "find aes low_freq failed"),
    AES(high_freq, "find aes high_freq failed"),
    AES(thd_flag, "find aes thd_flag failed"),
    AES(hard_flag, "find aes hard_flag failed"),
    AES_ROW(LimitRatio, 0, 1, "find aes LimitRatio_0 failed"),
    AES_ROW(LimitRatio, 1, 0, "find aes LimitRatio_1 failed"),
    AES_ROW(ThdSplitFreq, 0, 3, "find aes ThdSplitFreq_0 failed"),
    AES_ROW(ThdSplitFreq, 1, 2, "find aes ThdSplitFreq_1 failed"),
    AES_ROW(ThdSplitFreq, 2, 1, "find aes ThdSplitFreq_2 failed"),
    AES_ROW(ThdSplitFreq, 3, 0, "find aes ThdSplitFreq_3 failed"),
    AES_ROW(ThdSupDegree, 0, 3, "find aes ThdSupDegree_0 failed"),
    AES_ROW(ThdSupDegree, 1, 2, "find aes ThdSupDegree_1 failed"),
    AES_ROW(ThdSupDegree, 2, 1, "find aes ThdSupDegree_2 failed"),
    AES_ROW(ThdSupDegree, 3, 0, "find aes ThdSupDegree_3 failed"),
    AES_ROW(HardSplitFreq, 0, 4, "find aes HardSplitFreq_0 failed"),
    AES_ROW(HardSplitFreq, 1, 3, "find aes HardSplitFreq_1 failed"),
    AES_ROW(HardSplitFreq, 2, 2, "find aes HardSplitFreq_2 failed"),
    AES_ROW(HardSplitFreq, 3, 1, "find aes HardSplitFreq_3 failed"),
    AES_ROW(HardSplitFreq, 4, 0, "find aes HardSplitFreq_4 failed"),
    EBO_TABLE_ROW("HardThreshold", EboAesParam, HardThreshold, 0, "find aes HardThreshold failed"),
};

constexpr EboKeyRow kNlpKeys[] = {
    EBO_STATUS("find nlp status failed"),
    EBO_TEXT("band_pass_thd", BandList, kBands, offsetof(EboNlpBand, band_pass_thd), "find nlp band_pass_thd failed"),
    EBO_TEXT("super_est_factor", BandList, kBands, offsetof(EboNlpBand, super_est_factor), "find nlp super_est_factor failed"),
};

#define DTD(field, text) EBO_NUMBER(EboDtdParam, field, text)
constexpr EboKeyRow kDtdKeys[] = {
    EBO_STATUS("find dtd status failed"),
    DTD(ksiThd_high, "find dtd ksiThd_high failed"),
    DTD(ksiThd_low, "find dtd ksiThd_low failed"),
};
// clang-format on

}  // namespace

// clang-format off
constexpr EboSection kEboAesSection = EBO_MODULE("aes", parseEboAesConfigs, kAesKeys, EboAesParam, EBO_BF_AES, aes, "aes != KA_NULL");
EBO_SOUND(kEboAesSection);
constexpr EboSection kEboNlpSection = EBO_MODULE("nlp", parseEboNlpConfigs, kNlpKeys, EboNlpParam, EBO_BF_NLP, nlp, "nlp != KA_NULL").with(takeBands);
EBO_SOUND(kEboNlpSection);
// The expression does not bear the section's name, on purpose.
constexpr EboSection kEboDtdSection = EBO_MODULE("dtd", parseEboDtdConfigs, kDtdKeys, EboDtdParam, EBO_BF_DTD, dtd, "sdtd != KA_NULL");
EBO_SOUND(kEboDtdSection);
// clang-format on

EboAesParam* parseEboAesConfigs(void* parser, const char* root, int* model_en) {
    return readSection<EboAesParam>(parser, root, model_en, kEboAesSection);
}

EboNlpParam* parseEboNlpConfigs(void* parser, const char* root, int* model_en) {
    return readSection<EboNlpParam>(parser, root, model_en, kEboNlpSection);
}

EboDtdParam* parseEboDtdConfigs(void* parser, const char* root, int* model_en) {
    return readSection<EboDtdParam>(parser, root, model_en, kEboDtdSection);
}
