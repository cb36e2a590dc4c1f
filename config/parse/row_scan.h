// Numbers in the texts of a tuning file (channel map, table rows), read as the C library's scanner reads them
// in the C locale, whatever locale the process has set, and with a defined result for every text.
#pragma once

#include <cstddef>
#include <cstdint>

// A place in a text. Each call that finds what it looks for moves on past it and returns true; otherwise it
// returns false, stores nothing, and scanning is over.
class EboScanner {
public:
    explicit EboScanner(const char* text) : at_(text) {}

    // "%d": blanks, sign, digits. Beyond 32 bits: the nearest 32-bit value.
    bool integer(int32_t* out);
    // "%f": blanks, sign, a decimal or hexadecimal number, "inf" or "nan". The nearest float; beyond the
    // range of float infinity or zero.
    bool real(float* out);
    // `word` itself, no blanks before it.
    bool literal(const char* word);
    void skipBlanks();
    // Where it stands: what comes next in the text.
    const char* at() const { return at_; }

private:
    const char* at_;
};

// "%d,%d ...": up to `count` integers with a comma directly after each. Those that the text does not supply
// are left as they were.
void eboScanIntList(EboScanner& scanner, int32_t* out, size_t count);
