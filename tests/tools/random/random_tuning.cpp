#include "random_tuning.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

#include "model/places.h"

namespace {

class Maker {
public:
    explicit Maker(uint32_t seed) : random_(seed) {}

    Tuning run() {
        tuning_.capture.reset(make<KAEboParam>());
        KAEboParam& ebo = *tuning_.capture;
        ebo.model_en = static_cast<int32_t>(below(4));
        ebo.aec = make<EboAecParam>();
        if (below(2) != 0) {
            ebo.aec->delay = make<EboDelayParam>();
            ebo.aec->model_aec_en |= EBO_AEC_DELAY;
        }
        ebo.bf = make<EboBeamFormParam>();
        EboBeamFormParam& bf = *ebo.bf;
        bf.model_en = static_cast<int32_t>(bits()) & beamformerBits();
        const EboLoad& load = kEboLoads[kEboBeamFormLoad];
        for (size_t i = 0; i < load.sectionCount; ++i) {
            const EboSection& section = *load.sections[i];
            if (section.container != EboContainer::Beamformer || section.recordSize == 0) continue;
            void* record = ka_mem_malloc(section.recordSize, __func__);
            std::memcpy(reinterpret_cast<char*>(&bf) + section.slot, &record, sizeof record);
        }
        tuning_.playback.reset(make<KAEboParam>());
        tuning_.playback->model_en = EBO_PATH_RX;
        tuning_.playback->rx = make<EboRxParam>();
        tuning_.playback->rx->model_en = static_cast<int32_t>(below(4));
        tuning_.playback->rx->anr = make<EboAnrParam>();
        tuning_.playback->rx->howl = make<EboHowlParam>();
        tuning_.gain.reset(make<EboAgcParam>());
        tuning_.gainMask = below(2) != 0 ? EBO_BF_AGC : 0;
        for (const SectionPlace& place : sectionPlaces()) fill(place);
        return std::move(tuning_);
    }

private:
    // All that a file can set.
    static int32_t beamformerBits() {
        int32_t all = 0;
        for (const SectionPlace& place : sectionPlaces()) {
            if (place.mask != "bf.model_en") continue;
            all |= place.bit;
            for (const EboKeyRow* row : keysOf(*place.section)) {
                if (row->kind == EboKeyKind::MaskBit) all |= bitOf(*row);
            }
        }
        return all;
    }

    template <typename Record>
    Record* make() {
        return static_cast<Record*>(ka_mem_malloc(sizeof(Record), __func__));
    }

    uint32_t bits() { return static_cast<uint32_t>(random_()); }
    uint32_t below(uint32_t bound) { return bits() % bound; }

    void fill(const SectionPlace& place) {
        char* record = static_cast<char*>(place.recordOf(tuning_));
        if (record == nullptr || (!place.readWhenDisabled() && !isEnabled(place, tuning_))) return;
        for (const EboKeyRow* row : keysOf(*place.section)) {
            fillKey(record, *row);
        }
        for (const EboKeyRow* field : fieldsWithoutKey(*place.section)) {
            if (field->text != nullptr) put(record + field->offset, std::stoi(field->text));
        }
    }

    void fillKey(char* record, const EboKeyRow& row) {
        if (row.kind == EboKeyKind::Word) return put(record + row.offset, word());
        if (row.kind == EboKeyKind::ChannelMap) return fillMap(*reinterpret_cast<EboAecParam*>(record));
        if (row.kind == EboKeyKind::Flag) return put(record + row.offset, static_cast<int32_t>(below(2)));
        const Numbers numbers = numbersOf(row);
        for (size_t i = 0; i < numbers.count; ++i) {
            char* at = record + numbers.offset + i * numbers.stride;
            if (numbers.type == EboKeyKind::Float) put(at, real(row.kind == EboKeyKind::FloatRow));
            if (numbers.type == EboKeyKind::Int16) put(at, static_cast<int16_t>(integer()));
            if (numbers.type == EboKeyKind::Int32) put(at, integer());
        }
    }

    template <typename Value>
    void put(char* at, Value value) {
        std::memcpy(at, &value, sizeof(value));
    }

    void fillMap(EboAecParam& aec) {
        tuning_.channels = static_cast<int>(below(17));
        if (tuning_.channels == 0) return;
        aec.model_aec_en |= EBO_AEC_CHN_MAP;
        const size_t count = static_cast<size_t>(tuning_.channels);
        aec.Array_list = static_cast<int16_t*>(ka_mem_malloc(count * sizeof(int16_t), __func__));
        for (size_t i = 0; i < count; ++i) aec.Array_list[i] = static_cast<int16_t>(integer());
    }

    int32_t integer() {
        const int32_t extremes[] = {0,
                                    1,
                                    -1,
                                    std::numeric_limits<int16_t>::max(),
                                    std::numeric_limits<int16_t>::min(),
                                    std::numeric_limits<int32_t>::max(),
                                    std::numeric_limits<int32_t>::min()};
        return below(3) == 0 ? extremes[below(7)] : static_cast<int32_t>(bits());
    }

    // Any bit pattern; NaNs only where a file can say them, and then as the reader stores them.
    float real(bool mayBeNan) {
        const float extremes[] = {0.0F,
                                  -0.0F,
                                  std::numeric_limits<float>::infinity(),
                                  -std::numeric_limits<float>::infinity(),
                                  std::numeric_limits<float>::denorm_min(),
                                  std::numeric_limits<float>::min(),
                                  std::numeric_limits<float>::max(),
                                  std::numeric_limits<float>::lowest()};
        if (below(8) == 0) return extremes[below(8)];
        const uint32_t pattern = bits();
        float value;
        std::memcpy(&value, &pattern, sizeof(value));
        if (!std::isnan(value)) return value;
        const float nan = std::numeric_limits<float>::quiet_NaN();
        return !mayBeNan ? 1.0F : below(2) != 0 ? nan : -nan;
    }

    // Null, or letters of every length in UTF-8, control characters among them.
    char* word() {
        if (below(4) == 0) return nullptr;
        std::string text;
        for (uint32_t i = 0, length = 1 + below(20); i < length; ++i) text += letter();
        return strdup(text.c_str());
    }

    std::string letter() {
        const char* const odd[] = {"\"",
                                   "\\",
                                   "/",
                                   "\x01",
                                   "\x1f",
                                   "\x7f",
                                   "\n",
                                   "\t",
                                   "\xc3\xa9",
                                   "\xe2\x82\xac",
                                   "\xf0\x9f\x8e\xa4",
                                   "\xef\xbf\xbf",
                                   "\xf4\x8f\xbf\xbf",
                                   "\xc2\x80"};
        if (below(3) == 0) return odd[below(14)];
        return std::string(1, static_cast<char>(' ' + below(95)));
    }

    std::mt19937 random_;
    Tuning tuning_;
};

void append(std::string& bytes, const void* from, size_t size) {
    bytes.append(static_cast<const char*>(from), size);
}

void appendKey(std::string& bytes, const Tuning& tuning, const char* record, const EboKeyRow& row) {
    const Numbers numbers = numbersOf(row);
    for (size_t i = 0; i < numbers.count; ++i) {
        append(bytes, record + numbers.offset + i * numbers.stride,
               numbers.type == EboKeyKind::Int16 ? 2 : 4);
    }
    if (numbers.count != 0) return;
    const char* target = nullptr;
    std::memcpy(&target, record + row.offset, sizeof(target));
    bytes += target != nullptr ? "+" : "-";
    if (target == nullptr) return;
    const bool word = row.kind == EboKeyKind::Word;
    append(bytes, target,
           word ? std::strlen(target) + 1 : static_cast<size_t>(tuning.channels) * sizeof(int16_t));
}

}  // namespace

Tuning randomTuning(uint32_t seed) {
    return Maker(seed).run();
}

std::string bytesOf(const Tuning& tuning) {
    std::string bytes;
    for (const SectionPlace& place : sectionPlaces()) {
        bytes += nameOf(place);
        const int32_t* mask = place.maskOf(tuning);
        append(bytes, mask, mask != nullptr ? sizeof(*mask) : 0);
        const char* record = static_cast<const char*>(place.recordOf(tuning));
        if (record == nullptr) continue;
        for (const EboKeyRow* row : keysOf(*place.section)) appendKey(bytes, tuning, record, *row);
        for (const EboKeyRow* row : fieldsWithoutKey(*place.section)) appendKey(bytes, tuning, record, *row);
    }
    return bytes;
}
