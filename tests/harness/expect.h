// What a log line must look like, down to the byte.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <string>
#include <vector>

#include "harness/host.h"
#include "model/expectation.h"

using ExpectedLine = model::Line;

inline std::string red(const std::string& text) {
    return "\x1b[31m\x1b[1m" + text + "\x1b[0m";
}
inline std::string green(const std::string& text) {
    return "\x1b[32m\x1b[1m" + text + "\x1b[0m";
}

// An error line without arguments, given as the bare text.
inline ExpectedLine error(const std::string& function, const std::string& text) {
    return {true, 2, function, red(text), red(text)};
}
// An information line; `text` only where the format has arguments.
inline ExpectedLine info(const std::string& function, const std::string& format) {
    return {false, 5, function, format, format};
}
inline ExpectedLine info(const std::string& function, const std::string& format, const std::string& text) {
    return {false, 5, function, format, text};
}

// Test instances bear the name of their line of data.
template <class Case>
std::string nameOfCase(const testing::TestParamInfo<Case>& instance) {
    return instance.param.name;
}

void expectLine(const LogCall& got, const ExpectedLine& want);
void expectLog(const Host& host, const std::vector<ExpectedLine>& want);

// Standard error of a process that ended with the assertion `expression` of `function`.
testing::Matcher<const std::string&> isAssertion(const std::string& function, const std::string& expression);

// The statement must call Host::echo() first.
#define EXPECT_ASSERTION(statement, function, expression) \
    EXPECT_EXIT(statement, testing::KilledBySignal(SIGABRT), isAssertion(function, expression))
