// The bytes decide how an example is changed: keys removed, retyped, repeated, renamed, moved, extreme. The
// result is compared with the model. EBO_FUZZ_SHOW in the environment writes it to standard output.
#include <fuzzer/FuzzedDataProvider.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "check.h"
#include "model/edits.h"

namespace {

class Decisions : public model::Chooser {
public:
    Decisions(const uint8_t* data, size_t size) : data_(data, size) {}
    size_t below(size_t limit) override { return data_.ConsumeIntegralInRange<size_t>(0, limit - 1); }

private:
    FuzzedDataProvider data_;
};

std::vector<model::Member> readExamples() {
    std::vector<model::Member> documents;
    for (const char* name : {"two-mic-speaker", "six-mic-conference", "minimal"}) {
        std::ifstream file(std::string(EBO_TUNINGS_DIR "/") + name + ".json");
        documents.push_back(model::documentOf({std::istreambuf_iterator<char>(file), {}}));
    }
    return documents;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const std::vector<model::Member> examples = readExamples();
    Decisions decisions(data, size);
    const model::Member& example = examples[decisions.below(examples.size())];
    checkAgainstModel(model::edited(example, decisions));
    return 0;
}
