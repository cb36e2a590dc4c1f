#include "peer_records.h"

namespace peer_records {

void takeFloats(const char* text, float* row, int count) {
    switch (count) {
        case 3:
            std::sscanf(text, "%f  %f  %f", row, row + 1, row + 2);
            break;
        case 4:
            std::sscanf(text, "%f  %f  %f  %f", row, row + 1, row + 2, row + 3);
            break;
        default:
            std::sscanf(text, "%f  %f  %f  %f  %f  %f  %f  %f  %f  %f", row, row + 1, row + 2, row + 3,
                        row + 4, row + 5, row + 6, row + 7, row + 8, row + 9);
    }
}

void takeIntPair(const char* text, int16_t* row) {
    int n[2] = {};
    std::sscanf(text, "%d  %d", &n[0], &n[1]);
    for (int i = 0; i < 2; ++i) row[i] = static_cast<int16_t>(n[i]);
}

void takeBands(const char* text, int16_t* first, size_t stride) {
    int n[8] = {};
    std::sscanf(text, "%d,%d,%d,%d,%d,%d,%d,%d", &n[0], &n[1], &n[2], &n[3], &n[4], &n[5], &n[6], &n[7]);
    for (size_t i = 0; i < 8; ++i) first[i * stride] = static_cast<int16_t>(n[i]);
}

void takeChannelMap(const char* text, EboAecParam* aec) {
    int chns = 0;
    int n[16] = {};
    std::sscanf(text, "%d chn;map:%d,%d,%d,%d,%d,%d,%d,%d,%d,%d,%d,%d,%d,%d,%d,%d", &chns, &n[0], &n[1],
                &n[2], &n[3], &n[4], &n[5], &n[6], &n[7], &n[8], &n[9], &n[10], &n[11], &n[12], &n[13],
                &n[14], &n[15]);
    if (chns <= 0 || chns > 16) return;
    aec->model_aec_en |= EBO_AEC_CHN_MAP;
    aec->Array_list = static_cast<int16_t*>(std::calloc(static_cast<size_t>(chns), sizeof(int16_t)));
    for (int i = 0; i < chns; ++i) aec->Array_list[i] = static_cast<int16_t>(n[i]);
}

}  // namespace peer_records
