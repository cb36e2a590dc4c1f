// Texts that hold numbers: the library's scanner against the C library's, and the readers of such texts
// against the model.
#include <parse/section.h>

#include <cstdint>
#include <nlohmann/json.hpp>

#include "check.h"
#include "model/row_check.h"

using nlohmann::json;

namespace {

// Only the sections that hold such texts; the loader reads past the others.
json sections(const std::string& row) {
    json aes = {{"status", "enable"}};
    for (uint32_t i = 1; i < kEboAesSection.rowCount; ++i) {
        const EboKeyRow& key = kEboAesSection.rows[i];
        aes[key.key] = key.count == 0 ? json(1) : json(row);
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
