#include "record_bytes.h"

#include <cstring>

namespace {

// Takes a field out of a record that is about to be written, and returns what it pointed at.
template <typename Pointee>
Pointee* cut(Pointee*& field) {
    Pointee* pointee = field;
    field = nullptr;
    return pointee;
}

template <typename Record>
void append(std::string* bytes, const Record* record) {
    *bytes += record != nullptr ? '+' : '-';
    if (record != nullptr) bytes->append(reinterpret_cast<const char*>(record), sizeof *record);
}

void appendText(std::string* bytes, const char* text) {
    *bytes += text != nullptr ? '+' : '-';
    if (text != nullptr) bytes->append(text).push_back('\0');
}

void appendAec(std::string* bytes, const EboAecParam* from, size_t channels) {
    if (from == nullptr) return;
    EboAecParam aec;
    std::memcpy(static_cast<void*>(&aec), from, sizeof aec);
    const int16_t* map = cut(aec.Array_list);
    const EboDelayParam* delay = cut(aec.delay);
    append(bytes, &aec);
    if (map != nullptr) bytes->append(reinterpret_cast<const char*>(map), channels * sizeof *map);
    append(bytes, delay);
}

void appendBf(std::string* bytes, const EboBeamFormParam* from) {
    if (from == nullptr) return;
    EboBeamFormParam bf;
    std::memcpy(static_cast<void*>(&bf), from, sizeof bf);
    append(bytes, cut(bf.dereverb));
    append(bytes, cut(bf.aes));
    append(bytes, cut(bf.nlp));
    append(bytes, cut(bf.anr));
    append(bytes, cut(bf.agc));
    append(bytes, cut(bf.cng));
    append(bytes, cut(bf.dtd));
    append(bytes, cut(bf.howl));
    append(bytes, cut(bf.doa));
    if (const EboWakeupParam* wakeup = cut(bf.wakeup); wakeup != nullptr) {
        const int32_t numbers[] = {wakeup->mode, wakeup->wakeup_frames, wakeup->wakeup_words};
        bytes->append(reinterpret_cast<const char*>(numbers), sizeof numbers);
        appendText(bytes, wakeup->model_word1);
        appendText(bytes, wakeup->model_word2);
    }
    if (const EboAiNRParam* ainr = cut(bf.ainr); ainr != nullptr) appendText(bytes, ainr->model_path);
    append(bytes, &bf);
}

}  // namespace

std::string recordBytes(const KAEboParam& ebo, size_t channels) {
    std::string bytes(reinterpret_cast<const char*>(&ebo.model_en), sizeof ebo.model_en);
    appendAec(&bytes, ebo.aec, channels);
    appendBf(&bytes, ebo.bf);
    if (ebo.rx != nullptr) bytes += "rx";
    return bytes;
}
