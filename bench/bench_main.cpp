// Times every way of loading every file. First checks that each fills the same records to the last bit.
//
// Names: load/<file>/<loader>, a whole load and the destruction of its records; "floor" is reading the file
// alone, "ours" this library, and "<peer> + our rows" a peer whose row texts are scanned by this library.
// The log is formatted and dropped; peers do not log.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include <benchmark/benchmark.h>
#include <ebo_config.h>
#include <ka/log_sink.h>
#include <parse/loads.h>

#include "loaders.h"
#include "record_bytes.h"
#include "tuning_files.h"

namespace {

using Clock = std::chrono::steady_clock;

[[noreturn]] void fail(const std::string& what) {
    std::fprintf(stderr, "ebo_bench: %s\n", what.c_str());
    std::exit(1);
}

// Loads and destroys; what a host does once.
template <typename Load, typename Destroy>
void timeWhole(const std::string& name, Load load, Destroy destroy) {
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
        for (auto _ : state) {
            auto* records = load();
            benchmark::DoNotOptimize(records);
            destroy(&records);
        }
    });
}

// The load alone.
template <typename Load, typename Destroy>
void timeLoad(const std::string& name, Load load, Destroy destroy) {
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
        for (auto _ : state) {
            const auto start = Clock::now();
            auto* records = load();
            const auto end = Clock::now();
            state.SetIterationTime(std::chrono::duration<double>(end - start).count());
            destroy(&records);
        }
    })->UseManualTime();
}

void registerLoads(const TuningFile& file, bool both_rows) {
    const std::string prefix = "load/" + file.name + "/";
    const std::string path = file.path;
    benchmark::RegisterBenchmark((prefix + "floor").c_str(), [path](benchmark::State& state) {
        for (auto _ : state) {
            if (!readFileAlone(path.c_str())) state.SkipWithError("cannot be read");
        }
    });
    timeWhole(
        prefix + "ours", [path] { return parseEboConfigs(path.c_str()); }, destroyEboConfig);
    for (size_t i = 0; i < kPeerCount; ++i) {
        const Loader peer = kPeers[i];
        timeWhole(
            prefix + peer.name, [=] { return peer.load(path.c_str(), Rows::Sscanf); }, destroyEboConfig);
        if (!both_rows) continue;
        timeWhole(
            prefix + peer.name + " + our rows", [=] { return peer.load(path.c_str(), Rows::Scanner); },
            destroyEboConfig);
    }
}

template <typename Load, typename Destroy>
void registerEntry(const std::string& name, Load load, Destroy destroy) {
    timeWhole("entry/" + name + "/with destroy", load, destroy);
    timeLoad("entry/" + name + "/without", load, destroy);
}

// Opening a large text of one shape.
void registerShape(const TuningFile& file) {
    benchmark::AddCustomContext("size of " + file.name, std::to_string(file.size));
    const std::string path = file.path;
    benchmark::RegisterBenchmark(("shape/" + file.name).c_str(), [path](benchmark::State& state) {
        for (auto _ : state) {
            KAJsonParser parser;
            if (parser.parseFile(path.c_str()) == 0) state.SkipWithError("cannot be opened");
        }
    });
}

// The records from a document that is open already.
KAEboParam* extract(KAJsonParser* parser) {
    auto* ebo = static_cast<KAEboParam*>(ka_mem_malloc(sizeof(KAEboParam), __func__));
    eboReadSections(kEboLoads[kEboFullLoad], parser, ebo);
    return ebo;
}

void registerSteps(const TuningFile& file) {
    const char* path = file.path.c_str();
    registerEntry(
        "parseEboConfigs", [=] { return parseEboConfigs(path); }, destroyEboConfig);
    registerEntry(
        "parseEboAecConfigs", [=] { return parseEboAecConfigs(path); }, destroyEboAecConfig);
    registerEntry(
        "parseEboBeamFormConfigs", [=] { return parseEboBeamFormConfigs(path); }, destroyEboBeamFormConfig);
    registerEntry(
        "parseEboAoConfigs", [=] { return parseEboAoConfigs(path); }, destroyEboAoConfig);
    registerEntry(
        "parseEboAgcConfigsFile", [=] { return parseEboAgcConfigsFile(path); }, destroyEboAgcConfig);

    static KAJsonParser parser;
    if (parser.parseFile(path) == 0) fail(file.path + " cannot be opened");
    timeLoad(
        "step/records from an open document", [] { return extract(&parser); }, destroyEboConfig);
    benchmark::RegisterBenchmark("step/dump", [path](benchmark::State& state) {
        KAEboParam* ebo = parseEboConfigs(path);
        for (auto _ : state) {
            dumpEboAecConfig(ebo->aec);
            dumpEboBeamFormConfig(ebo->bf);
        }
        destroyEboConfig(&ebo);
    });
}

std::string bytesOf(KAEboParam* ebo, const TuningFile& file, const char* loader) {
    if (ebo == nullptr) fail(std::string(loader) + " does not load " + file.path);
    const std::string bytes = recordBytes(*ebo, file.channels);
    destroyEboConfig(&ebo);
    return bytes;
}

// Every loader must fill the same records.
void check(const TuningFile& file) {
    const std::string ours = bytesOf(parseEboConfigs(file.path.c_str()), file, "ours");
    for (size_t i = 0; i < kPeerCount; ++i) {
        for (const Rows rows : {Rows::Sscanf, Rows::Scanner}) {
            if (bytesOf(kPeers[i].load(file.path.c_str(), rows), file, kPeers[i].name) == ours) continue;
            fail(std::string(kPeers[i].name) + " fills other records from " + file.path);
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    ka_install_log_sink([](const KaLogMessage&, void*) {}, nullptr);
    const std::string folder = std::filesystem::temp_directory_path() / "ebo_bench.XXXXXX";
    std::string made = folder;
    if (mkdtemp(made.data()) == nullptr) fail("cannot make a folder like " + folder);

    std::vector<TuningFile> files = exampleFiles();
    for (const TuningFile& file : writtenOtherwise(made)) files.push_back(file);
    const size_t small = files.size();
    for (const size_t times : {10U, 100U, 1000U}) files.push_back(grownFile(made, times));
    for (const TuningFile& file : files) {
        check(file);
        benchmark::AddCustomContext("size of " + file.name, std::to_string(file.size));
    }
    for (size_t i = 0; i < files.size(); ++i) registerLoads(files[i], i < small);
    for (const size_t size : {1000000U, 10000000U}) {
        for (const TuningFile& file : shapes(made, size)) registerShape(file);
    }
    registerSteps(files[0]);

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    benchmark::RunSpecifiedBenchmarks();
    std::filesystem::remove_all(made);
    return 0;
}
