#include "harness/expect.h"

#include <algorithm>
#include <regex>

void expectLine(const LogCall& got, const ExpectedLine& want) {
    EXPECT_EQ(got.text, want.text);
    EXPECT_EQ(got.error, want.error) << want.text;
    EXPECT_EQ(got.channel, 0x1818180AU) << want.text;
    EXPECT_EQ(got.level, want.level) << want.text;
    EXPECT_EQ(got.tag, "KAAEboConfig") << want.text;
    EXPECT_EQ(got.function, want.function) << want.text;
    EXPECT_GT(got.line, 0) << want.text;
    EXPECT_EQ(got.format, want.format);
}

void expectLog(const Host& host, const std::vector<ExpectedLine>& want) {
    const std::vector<LogCall> got = host.log();
    for (size_t i = 0; i < std::min(got.size(), want.size()); ++i) expectLine(got[i], want[i]);
    for (size_t i = want.size(); i < got.size(); ++i)
        ADD_FAILURE() << "one line too many: " << toString(got[i]);
    for (size_t i = got.size(); i < want.size(); ++i) ADD_FAILURE() << "missing line: " << want[i].text;
}

MATCHER_P2(IsAssertion, function, expression, "") {
    // The line number of the call is the one in the text. The newline stands before the colour reset.
    const std::regex line(R"(\[err 0x1818180a 2 KAAEboConfig )" + function + R"(:([1-9][0-9]*)\] )" +
                          R"(\x1b\[31m\x1b\[1mAssertion )" + expression + " failed at " + function +
                          R"(:\1\n\x1b\[0m\{\x1b\[31m\x1b\[1mAssertion %s failed at %s:%d\n\x1b\[0m\}\n)");
    std::smatch found;
    if (!std::regex_search(arg, found, line)) return false;
    *result_listener << "followed by " << found.suffix().str();
    return found.suffix().length() == 0;  // nothing is said after it
}

testing::Matcher<const std::string&> isAssertion(const std::string& function, const std::string& expression) {
    return IsAssertion(function, expression);
}
