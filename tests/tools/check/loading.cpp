#include "loading.h"

#include <ka/log_sink.h>
#include <model/records.h>
#include <parse/loads.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "model/load_log.h"
#include "text/words.h"
namespace {

// Whether a slot of the container is null that one of its sections fills.
bool lacksRecord(const EboBeamFormParam* bf) {
    const EboLoad& load = kEboLoads[kEboBeamFormLoad];
    return std::any_of(load.sections, load.sections + load.sectionCount, [bf](const EboSection* section) {
        const void* record = nullptr;
        std::memcpy(&record, reinterpret_cast<const char*>(bf) + section->slot, sizeof record);
        return section->container == EboContainer::Beamformer && section->recordSize > 0 && record == nullptr;
    });
}

bool isDelayMissing(const std::vector<std::string>& log) {
    return std::any_of(log.begin(), log.end(),
                       [](const std::string& message) { return message.compare(0, 11, "find delay ") == 0; });
}

struct Loaded {
    bool loaded = false;
    bool lacksRecords = false;  // but for that of "delay", which a disabled section leaves out
};

Loaded load(const std::string& part, const char* path) {
    if (part == "aec") return {AecRecord(parseEboAecConfigs(path)) != nullptr};
    if (part == "agc") return {AgcRecord(parseEboAgcConfigsFile(path)) != nullptr};
    if (part == "beamform") {
        const BeamFormRecord bf(parseEboBeamFormConfigs(path));
        if (bf == nullptr) return {};
        return {true, lacksRecord(bf.get())};
    }
    if (part == "ao") {
        const PlaybackRoot ao(parseEboAoConfigs(path));
        return {ao != nullptr, ao != nullptr && (ao->rx->anr == nullptr || ao->rx->howl == nullptr)};
    }
    return {CaptureRoot(parseEboConfigs(path)) != nullptr};
}

Loading loadHere(const std::string& part, const std::string& path) {
    const LogCatcher log;
    const Loaded loaded = load(part, path.c_str());
    const bool lacksDelay =
        loaded.loaded && (part == "full" || part == "aec") && isDelayMissing(log.errors());
    return {loaded.loaded ? CheckOutcome::Loads : CheckOutcome::Fails, log.errors(),
            loaded.lacksRecords || lacksDelay};
}

Loading loadInChild(const std::string& part, const std::string& path) {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) return {CheckOutcome::Fails, {"no pipe"}};
    const pid_t child = fork();
    if (child == 0) {
        dup2(ends[1], STDERR_FILENO);  // where the log goes
        load(part, path.c_str());
        _exit(0);
    }
    close(ends[1]);
    std::string said;
    std::array<char, 512> block{};
    for (ssize_t n = 0; (n = read(ends[0], block.data(), block.size())) > 0;) {
        said.append(block.data(), static_cast<size_t>(n));
    }
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    const bool aborted = WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT;
    const size_t assertion = said.find("Assertion ");
    const size_t where = said.find(" at ", assertion);
    if (assertion == std::string::npos || where == std::string::npos) return {CheckOutcome::Fails, {said}};
    return {aborted ? CheckOutcome::Aborts : CheckOutcome::Loads,
            {said.substr(assertion, where - assertion)}};
}

}  // namespace

LogCatcher::LogCatcher() {
    const auto keep = [](const KaLogMessage& message, void* user) {
        // The list of the wake-up modes belongs to the message before it.
        const std::string text = plainText(message.text);
        if (message.level != 2 || std::strcmp(message.tag, "KAAEboConfig") != 0 ||
            text.compare(0, 4, "    ") == 0)
            return;
        static_cast<std::vector<std::string>*>(user)->push_back(text);
    };
    ka_install_log_sink(keep, &errors_);
}

LogCatcher::~LogCatcher() {
    ka_remove_log_sink();
}

Loading loadPart(const std::string& part, const std::string& path, bool expectAbort) {
    return expectAbort ? loadInChild(part, path) : loadHere(part, path);
}

std::vector<std::string> filesIn(const std::string& folder, const std::string& extension) {
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        const bool wanted = extension.empty() || entry.path().extension() == extension;
        if (entry.is_regular_file() && wanted) files.push_back(entry.path().string());
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::string readText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}
