// Runs the cases. Whatever way a case goes wrong, its words are printed.
#include <fcntl.h>
#include <signal.h>
#include <stdlib.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <exception>
#include <set>

#include "kit.h"

extern "C" {
#ifdef KIT_SANITIZED
void __sanitizer_set_death_callback(void (*callback)());
void __sanitizer_set_report_fd(void* fd);
// One case asks for more memory than there is.
const char* __asan_default_options() {
    return "allocator_may_return_null=1";
}
const char* __tsan_default_options() {
    return "allocator_may_return_null=1";
}
#endif
}

namespace {

constexpr unsigned kSeconds = 60;  // after which a case counts as one that does not end

const char* g_case = nullptr;  // the running one: its name and words
const char* g_relied_on = nullptr;
const char* g_otherwise = nullptr;
bool g_has_words = false;
int g_output = STDOUT_FILENO;  // copies of the kit's own
int g_errors = STDERR_FILENO;
std::set<std::string>* g_skipped = nullptr;

void print(std::initializer_list<const char*> texts) {
    for (const char* text : texts) {
        if (text && write(g_output, text, strlen(text)) < 0) return;
    }
}

void printWords() {
    print({"    the library relies on: ", g_relied_on, "\n    without it: ", g_otherwise, "\n"});
}

void printEnd(const char* how) {
    print({"[  FAILED  ] ", g_case ? g_case : "between two cases", ": ", how, "\n"});
    if (g_case) printWords();
}

void onSignal(int number) {
    printEnd(number == SIGALRM ? "the framework does not return" : "the framework crashed or aborted");
    _exit(1);
}

void onExit() {
    if (!g_case) return;
    printEnd("the framework ended the process");
    _exit(1);
}

void onTerminate() {
    printEnd("the framework threw an exception, which nobody catches");
    _exit(1);
}

// What the framework writes to standard error in a case; shown when it fails.
class Errors {
public:
    void keep() {
        if (!file_) file_ = std::tmpfile();
        if (!file_ || ftruncate(fileno(file_), 0) != 0) return;
        lseek(fileno(file_), 0, SEEK_SET);
        dup2(fileno(file_), STDERR_FILENO);
    }
    std::string end() {
        dup2(g_errors, STDERR_FILENO);
        char text[2000];
        const ssize_t length = file_ ? pread(fileno(file_), text, sizeof text, 0) : 0;
        return {text, static_cast<size_t>(length > 0 ? length : 0)};
    }

private:
    FILE* file_ = nullptr;
};

class CurrentCase : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo& info) override {
        name_ = std::string(info.test_suite_name()) + "." + info.name();
        g_case = name_.c_str();
        g_has_words = false;
        alarm(kSeconds);
        errors_.keep();
    }
    void OnTestEnd(const testing::TestInfo& info) override {
        alarm(0);
        g_case = nullptr;
        const std::string errors = errors_.end();
        if (!g_has_words) {
            ADD_FAILURE() << name_ << " does not say what it is for";
        } else if (info.result()->Failed()) {
            if (!errors.empty()) print({"    on standard error: ", errors.c_str()});
            printWords();
        }
    }
    std::string name_;
    Errors errors_;
};

void printWhatIsLeftOut() {
    if (!EBO_KIT_FILES) {
        print(
            {"EBO_KIT_FILES=OFF: not tried whether a path that is missing, a folder or not to be read is\n"
             "refused, nor whether files are closed again. A product that reads files may report the wrong\n"
             "fault, or run out of open files.\n"});
    }
    if (!EBO_KIT_THREADS) {
        print(
            {"EBO_KIT_THREADS=OFF: not tried whether loads, lookups, memory and log may be used by several\n"
             "threads at once. A product that loads or dumps on more than one thread may mix up values.\n"});
    }
    for (const std::string& reason : *g_skipped) print({"left out: ", reason.c_str(), "\n"});
}

}  // namespace

namespace kit {

void explain(const char* relied_on, const char* otherwise) {
    g_relied_on = relied_on;
    g_otherwise = otherwise;
    g_has_words = true;
}

void skipped(const char* reason) {
    g_skipped->insert(reason);
}

}  // namespace kit

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    std::set<std::string> skipped;
    g_skipped = &skipped;
    g_output = fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 100);
    g_errors = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 100);
    testing::UnitTest::GetInstance()->listeners().Append(new CurrentCase);
#ifdef KIT_SANITIZED
    __sanitizer_set_report_fd(reinterpret_cast<void*>(static_cast<intptr_t>(g_errors)));
    __sanitizer_set_death_callback([] { printEnd("the sanitizer has ended it"); });
    signal(SIGALRM, onSignal);
#else
    for (const int number : {SIGALRM, SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT}) signal(number, onSignal);
#endif
    std::set_terminate(onTerminate);
    atexit(onExit);
    const int result = RUN_ALL_TESTS();
    printWhatIsLeftOut();
    return result;
}
