#include "check.h"

#include <cstdio>
#include <cstdlib>

#include "allocation_watch.h"
#include "model/memory_file.h"

using namespace model;

namespace {

const bool g_watching = [] {
    watchAllocations();
    return true;
}();

std::string blocks(Loader loader, size_t expected) {
    const size_t left = releaseBlocksLeft();
    if (left == expected) return "";
    return std::string(nameOf(loader)) + ": " + std::to_string(left) + " blocks left over, expected " +
           std::to_string(expected) + "\n";
}

}  // namespace

void expectEmpty(const std::string& report, const std::string& input) {
    if (report.empty()) return;
    std::fprintf(stderr, "%s\nfor the input\n%s\n", report.c_str(), input.c_str());
    std::abort();
}

void checkSurvives(const std::string& document) {
    const MemoryFile file(document);
    const bool aborts = wouldAbort(file.path());
    for (const Loader loader : kLoaders) {
        if (aborts && readsAec(loader)) continue;
        const Observation observed = observe(loader, file.path(), 0);
        // A failure may leave the map and the texts behind.
        const bool may_leave = observed.parts.empty() && loader != Loader::Agc;
        const size_t expected = loader == Loader::Agc && observed.refusals.empty() ? 1 : 0;
        const std::string report = blocks(loader, expected);
        if (!may_leave) expectEmpty(report, document);
    }
}

void checkAgainstModel(const std::string& document, const std::initializer_list<Loader>& loaders) {
    if (std::getenv("EBO_FUZZ_SHOW") != nullptr) {
        std::fwrite(document.data(), 1, document.size(), stdout);
        std::fflush(stdout);
    }
    const MemoryFile file(document);
    const std::optional<Value> value = readDocument(document);
    const bool aborts = wouldAbort(file.path());
    for (const Loader loader : loaders) {
        Expectation expected;
        expect(loader, value, expected);
        if (expected.aborts != (aborts && readsAec(loader)))
            expectEmpty("an abort is expected, or is not", document);
        if (expected.aborts) continue;
        const Observation observed = observe(loader, file.path(), expected.channels);
        expectEmpty(
            differences(loader, expected, observed) + blocks(loader, static_cast<size_t>(expected.leaks)),
            document);
    }
}
