#include "model/rows.h"

#include <algorithm>
#include <clocale>
#include <cstdio>

namespace model {

namespace {

using Wide = long long;

class CLocale {
public:
    CLocale() : former_(uselocale(plain())) {}
    ~CLocale() { uselocale(former_); }
    CLocale(const CLocale&) = delete;
    CLocale& operator=(const CLocale&) = delete;

private:
    static locale_t plain() {
        static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
        return locale;
    }
    const locale_t former_;
};

int32_t nearest32(Wide value) {
    return static_cast<int32_t>(std::clamp<Wide>(value, INT32_MIN, INT32_MAX));
}

}  // namespace

ChannelMap scanChannelMap(const std::string& text) {
    const CLocale locale;
    Wide n = 0;
    Wide c[16] = {};
    std::sscanf(
        text.c_str(),
        "%lld chn;map:%lld,%lld,%lld,%lld,%lld,%lld,%lld,%lld,%lld,%lld,%lld,%lld,%lld,%lld,%lld,%lld", &n,
        &c[0], &c[1], &c[2], &c[3], &c[4], &c[5], &c[6], &c[7], &c[8], &c[9], &c[10], &c[11], &c[12], &c[13],
        &c[14], &c[15]);
    ChannelMap map;
    map.count = nearest32(n);
    std::transform(c, c + 16, map.channels.begin(), nearest32);
    return map;
}

void scanFloats(const std::string& text, float* row, size_t count) {
    const CLocale locale;
    const char* const from = text.c_str();
    if (count == 3) {
        std::sscanf(from, "%f  %f  %f", &row[0], &row[1], &row[2]);
    } else if (count == 4) {
        std::sscanf(from, "%f  %f  %f  %f", &row[0], &row[1], &row[2], &row[3]);
    } else {
        std::sscanf(from, "%f  %f  %f  %f  %f  %f  %f  %f  %f  %f", &row[0], &row[1], &row[2], &row[3],
                    &row[4], &row[5], &row[6], &row[7], &row[8], &row[9]);
    }
}

void scanPair(const std::string& text, int16_t (&row)[2]) {
    const CLocale locale;
    Wide first = 0;
    Wide second = 0;
    const int found = std::sscanf(text.c_str(), "%lld  %lld", &first, &second);
    if (found < 1) return;
    const int32_t whole = nearest32(first);
    row[0] = static_cast<int16_t>(whole);
    row[1] = static_cast<int16_t>(found == 2 ? nearest32(second) : whole >> 16);
}

void scanBands(const std::string& text, std::array<int32_t, 8>& bands) {
    const CLocale locale;
    Wide b[8];
    std::copy(bands.begin(), bands.end(), b);
    std::sscanf(text.c_str(), "%lld,%lld,%lld,%lld,%lld,%lld,%lld,%lld", &b[0], &b[1], &b[2], &b[3], &b[4],
                &b[5], &b[6], &b[7]);
    std::transform(b, b + 8, bands.begin(), nearest32);
}

bool scanFloat(const std::string& text, float& value) {
    const CLocale locale;
    return std::sscanf(text.c_str(), "%f", &value) == 1;
}

bool scanInteger(const std::string& text, int32_t& value) {
    const CLocale locale;
    Wide wide = 0;
    if (std::sscanf(text.c_str(), "%lld", &wide) != 1) return false;
    value = nearest32(wide);
    return true;
}

}  // namespace model
