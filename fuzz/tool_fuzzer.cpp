// Any bytes as a file, through one command of eboconf: EBO_FUZZ_COMMAND names it.
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

// The tool's own, compiled under this name.
int eboconfMain(int argc, char** argv);

namespace {

constexpr const char* kExample = EBO_TUNINGS_DIR "/two-mic-speaker.json";

// A file in memory, which is written anew for each input.
class MemoryFile {
public:
    MemoryFile() : descriptor_(memfd_create("tuning", MFD_CLOEXEC)) {}

    std::string holding(const std::string& text) const {
        if (descriptor_ < 0 || ftruncate(descriptor_, 0) != 0 ||
            pwrite(descriptor_, text.data(), text.size(), 0) != static_cast<ssize_t>(text.size())) {
            std::perror("memory file");
            std::abort();
        }
        return "/proc/self/fd/" + std::to_string(descriptor_);
    }

private:
    int descriptor_;
};

struct Outcome {
    int status;
    std::string output;
};

Outcome eboconf(std::vector<std::string> words) {
    words.insert(words.begin(), "eboconf");
    std::vector<char*> arguments;
    for (std::string& word : words) arguments.push_back(word.data());
    char* output = nullptr;
    size_t size = 0;
    FILE* const terminal = stdout;
    stdout = open_memstream(&output, &size);
    std::ostringstream streamed;
    std::streambuf* const terminals = std::cout.rdbuf(streamed.rdbuf());
    const int status = eboconfMain(static_cast<int>(arguments.size()), arguments.data());
    std::cout.rdbuf(terminals);
    std::fclose(stdout);
    stdout = terminal;
    Outcome outcome = {status, std::string(output, size) + streamed.str()};
    std::free(output);
    return outcome;
}

void expect(bool holds, const char* what, const std::string& input) {
    if (holds) return;
    std::fprintf(stderr, "%s\nfor the input\n%s\n", what, input.c_str());
    std::abort();
}

Outcome eboconfJson(std::vector<std::string> words, const std::string& input) {
    Outcome outcome = eboconf(std::move(words));
    expect(outcome.output.empty() || nlohmann::json::accept(outcome.output),
           "the output is no JSON, or not UTF-8", input);
    return outcome;
}

// What is exported is a fixed point, and loads as what it was made of.
void exportAndBack(const std::string& file, const std::string& input) {
    static const MemoryFile kExported;
    const Outcome exported = eboconfJson({"export", file}, input);
    if (exported.status != 0) return;
    const std::string copy = kExported.holding(exported.output);
    expect(eboconf({"export", copy}).output == exported.output, "an export exports otherwise", input);
    expect(eboconf({"dump", copy}).output == eboconf({"dump", file}).output, "an export dumps otherwise",
           input);
    expect(eboconf({"diff", file, copy}).status == 0, "an export differs", input);
}

void check(const std::string& file, const std::string& input) {
    const int status = eboconfJson({"check", "--format", "json", file}, input).status;
    for (const char* form : {"sarif", "gitlab"})
        expect(eboconfJson({"check", "--format", form, file}, input).status == status, "reports disagree",
               input);
    for (const char* form : {"text", "github", "junit"})
        expect(eboconf({"check", "--format", form, file}).status == status, "reports disagree", input);
    expect(status != 0 || eboconf({"dump", file}).status == 0, "what is without errors does not load", input);
}

void runCommand(const std::string& command, const std::string& input) {
    static const MemoryFile kFile;
    const std::string file = kFile.holding(input);
    if (command == "export") return exportAndBack(file, input);
    if (command == "check") return check(file, input);
    std::vector<std::string> words = {command, file};
    if (command == "diff") words.emplace_back(kExample);
    const int status = eboconf(words).status;
    if (command == "diff")
        expect(eboconf({"diff", "--format", "markdown", file, kExample}).status == status,
               "text and a table end differently", input);
    words.insert(words.end(), {"--format", "json"});
    expect(eboconfJson(words, input).status == status, "text and JSON end differently", input);
    if (command == "diff" && status < 2)
        expect(eboconf({"diff", file, file}).status == 0, "differs from itself", input);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const char* const command = std::getenv("EBO_FUZZ_COMMAND");
    runCommand(command != nullptr ? command : "check", {reinterpret_cast<const char*>(data), size});
    return 0;
}
