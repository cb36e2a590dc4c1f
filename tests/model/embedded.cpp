// Observations over the embedded framework.
#include <ka/log_sink.h>
#include <parse/row_scan.h>

#include <cstring>

#include "model/observation.h"

namespace model {

namespace {

// Lines may come only with the library's constants.
constexpr unsigned kChannel = 0x1818180A;
constexpr char kTag[] = "KAAEboConfig";

class Listener {
public:
    Listener() { ka_install_log_sink(take, this); }
    ~Listener() { ka_remove_log_sink(); }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    Log lines;
    std::vector<std::string> refusals;

private:
    static void take(const KaLogMessage& message, void* self) {
        const bool inside = g_inside_library;
        g_inside_library = false;
        static_cast<Listener*>(self)->add(message);
        g_inside_library = inside;
    }
    void add(const KaLogMessage& message) {
        if (std::strcmp(message.tag, "KAJsonParser") == 0) {
            refusals.emplace_back(message.text);
            return;
        }
        std::string text = message.text;
        if (message.channel != kChannel || std::strcmp(message.tag, kTag) != 0 || message.line <= 0) {
            text += " [not a line of the library]";
        }
        lines.push_back({message.error, message.level, message.function, message.format, std::move(text)});
    }
};

}  // namespace

Observation observe(Loader loader, const char* path, int channels) {
    Listener listener;
    Observation seen = observe(loader, path, channels, [&] { return std::exchange(listener.lines, {}); });
    seen.refusals.swap(listener.refusals);
    return seen;
}

std::string differences(Loader loader, const Expectation& expected, const Observation& observed) {
    std::string out = differences(expected, observed);
    if (observed.refusals.size() != (expected.rejected ? 1 : 0))
        out += expected.rejected ? "no report of the file\n" : "the file was rejected\n";
    return out.empty() ? out : std::string(nameOf(loader)) + "\n" + out;
}

bool wouldAbort(const char* path) {
    const Listener quiet;
    KAJsonParser parser;
    KaMetaData aec;
    const char* text = nullptr;
    int32_t channels = 0;
    if (parser.parseFile(path) == 0) return false;
    parser.getOptions("ebo_configs", "aec", &aec);
    if (!aec.findCString("status", &text) || !aec.findCString("mic_chn_map", &text)) return false;
    return EboScanner(text).integer(&channels) && channels > 16;
}

}  // namespace model
