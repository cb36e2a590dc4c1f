// Floats in the rows of a dump, printed in the same way whatever locale the process has set.
#pragma once

// The longest text: a sign, 39 digits, the point and four digits.
constexpr int kEboLongestFixed = 45;

// Prints `value` as "%.4f" in the C locale, up to `end` and without a NUL. Returns where the text begins.
char* eboPrintFixed(char* end, float value);
