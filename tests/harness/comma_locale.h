// A locale that writes one and a half as "1,5", for as long as the object lives.
#pragma once

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>

class CommaLocale {
public:
    CommaLocale() {
        setenv("LOCPATH", EBO_LOCALE_DIR, 1);
        EXPECT_STREQ(std::setlocale(LC_ALL, "de_DE.UTF-8"), "de_DE.UTF-8");
        EXPECT_STREQ(std::localeconv()->decimal_point, ",");
    }
    ~CommaLocale() {
        std::setlocale(LC_ALL, "C");
        unsetenv("LOCPATH");
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;
};
