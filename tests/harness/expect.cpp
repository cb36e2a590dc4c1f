#include "harness/expect.h"

#include <algorithm>
#include <cstdlib>

void expectLine(const LogCall& got, const ExpectedLine& want) {
    EXPECT_EQ(got.text, want.text);
    EXPECT_EQ(got.error, want.error) << want.text;
    EXPECT_EQ(got.channel, 0x1818180AU) << want.text;
    EXPECT_EQ(got.level, want.level) << want.text;
    EXPECT_EQ(got.tag, "KAAEboConfig") << want.text;
    EXPECT_EQ(got.function, want.function) << want.text;
    EXPECT_GT(got.line, 1) << want.text;
    EXPECT_EQ(got.format, want.format);
}

void expectLog(const Host& host, const std::vector<ExpectedLine>& want) {
    const std::vector<LogCall> got = host.log();
    for (size_t i = 0; i < std::min(got.size(), want.size()); ++i) expectLine(got[i], want[i]);
    for (size_t i = want.size(); i < got.size(); ++i)
        ADD_FAILURE() << "one line too many: " << toString(got[i]);
    for (size_t i = got.size(); i < want.size(); ++i) ADD_FAILURE() << "missing line: " << want[i].text;
}

// What is said after an assertion, but for what an emulator adds of its own.
bool isEnd(const std::string& text) {
    return text.empty() || text.rfind("qemu: uncaught target signal 6 (Aborted)", 0) == 0;
}

// The line number of the call is also the one in the text, and nothing is said after it.
MATCHER_P2(IsAssertion, function, expression, "is the assertion " + expression + " of " + function) {
    const std::string begin = "[err 0x1818180a 2 KAAEboConfig " + function + ":";
    const size_t start = arg.find(begin);
    if (start == std::string::npos) return false;
    const int line = std::atoi(arg.c_str() + start + begin.size());
    const std::string number = std::to_string(line);
    const std::string said = begin + number + "] " +
                             red("Assertion " + expression + " failed at " + function + ":" + number + "\n") +
                             "{" + red("Assertion %s failed at %s:%d\n") + "}\n";
    return line > 0 && arg.compare(start, said.size(), said) == 0 && isEnd(arg.substr(start + said.size()));
}

testing::Matcher<const std::string&> isAssertion(const std::string& function, const std::string& expression) {
    return IsAssertion(function, expression);
}
