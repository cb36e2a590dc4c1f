// Texts that hold numbers: the library's scanner against the C library's, and the readers of such texts against the
// model.
#include <cstdint>
#include <nlohmann/json.hpp>

#include "check.h"
#include "model/row_check.h"

using nlohmann::json;

namespace {

// Only the sections that hold such texts; the loader reads past the others.
json sections(const std::string& row) {
    json aes = {{"status", "enable"}, {"beta_up", 1},       {"beta_down", 1},
                {"beta_up_low", 1},   {"beta_down_low", 1}, {"low_freq", 1},
                {"high_freq", 1},     {"thd_flag", 1},      {"hard_flag", 1}};
    for (const char* key : {"LimitRatio_0", "LimitRatio_1", "ThdSplitFreq_0", "ThdSplitFreq_1",
                            "ThdSplitFreq_2", "ThdSplitFreq_3", "ThdSupDegree_0", "ThdSupDegree_1",
                            "ThdSupDegree_2", "ThdSupDegree_3", "HardSplitFreq_0", "HardSplitFreq_1",
                            "HardSplitFreq_2", "HardSplitFreq_3", "HardSplitFreq_4", "HardThreshold"}) {
        aes[key] = row;
    }
    return {{"aec",
             {{"status", "enable"},
              {"mic_chn_map", row},
              {"drop_ref_channel", 1},
              {"delay_len", 1},
              {"look_ahead", 1},
              {"filter_len", 1}}},
            {"bf", {{"status", "enable"}, {"drop_ref_channel", 1}, {"targ", 1}}},
            {"nlp", {{"status", "enable"}, {"band_pass_thd", "1,2,3,4,5,6,7,8"}, {"super_est_factor", row}}},
            {"aes", std::move(aes)}};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string row(reinterpret_cast<const char*>(data), size);
    row.resize(row.find('\0') == std::string::npos ? size : row.find('\0'));
    expectEmpty(model::rowDifferences(row), row);
    if (!json::accept("\"" + row + "\"")) return 0;  // no document can hold it as it is
    checkAgainstModel(json{{"ebo_configs", sections(row)}}.dump(),
                      {model::Loader::Aec, model::Loader::BeamForm});
    return 0;
}
