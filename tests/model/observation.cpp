#include "model/observation.h"

#include <ka/log_sink.h>
#include <parse/row_scan.h>

#include <cstring>

namespace model {

bool g_inside_library = false;

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
        lines.push_back({message.error, message.level, message.function, std::move(text)});
    }
};

class InsideLibrary {
public:
    InsideLibrary() { g_inside_library = true; }
    ~InsideLibrary() { g_inside_library = false; }
    InsideLibrary(const InsideLibrary&) = delete;
    InsideLibrary& operator=(const InsideLibrary&) = delete;
};

void* load(Loader loader, const char* path) {
    const InsideLibrary inside;
    switch (loader) {
        case Loader::Full:
            return parseEboConfigs(path);
        case Loader::Aec:
            return parseEboAecConfigs(path);
        case Loader::BeamForm:
            return parseEboBeamFormConfigs(path);
        case Loader::Ao:
            return parseEboAoConfigs(path);
        case Loader::Agc:
            return parseEboAgcConfigsFile(path);
    }
    return nullptr;
}

void dump(Loader loader, void* result) {
    const InsideLibrary inside;
    switch (loader) {
        case Loader::Full:
            dumpEboAecConfig(static_cast<KAEboParam*>(result)->aec);
            dumpEboBeamFormConfig(static_cast<KAEboParam*>(result)->bf);
            break;
        case Loader::Aec:
            dumpEboAecConfig(static_cast<EboAecParam*>(result));
            break;
        case Loader::BeamForm:
            dumpEboBeamFormConfig(static_cast<EboBeamFormParam*>(result));
            break;
        case Loader::Ao:
            dumpEboAoConfig(static_cast<KAEboParam*>(result)->rx);
            break;
        case Loader::Agc:
            break;  // has no dump of its own
    }
}

// Null when it has left null in its caller's pointer.
template <typename Record>
void* destroyed(void (*destroy)(Record**), void* result) {
    auto* record = static_cast<Record*>(result);
    destroy(&record);
    return record;
}

void* destroy(Loader loader, void* result) {
    const InsideLibrary inside;
    switch (loader) {
        case Loader::Full:
            return destroyed(destroyEboConfig, result);
        case Loader::Aec:
            return destroyed(destroyEboAecConfig, result);
        case Loader::BeamForm:
            return destroyed(destroyEboBeamFormConfig, result);
        case Loader::Ao:
            return destroyed(destroyEboAoConfig, result);
        case Loader::Agc:
            return destroyed(destroyEboAgcConfig, result);
    }
    return nullptr;
}

std::string toString(const Line& line) {
    return (line.error ? "err " : "log ") + std::to_string(line.level) + " " + line.function + ": " +
           line.text;
}
bool same(const Line& a, const Line& b) {
    return a == b;
}

std::string toString(const Part& part) {
    static const char kDigits[] = "0123456789abcdef";
    std::string hex = part.name + ": ";
    for (const char c : part.bytes) {
        const auto byte = static_cast<unsigned char>(c);
        hex += kDigits[byte >> 4];
        hex += kDigits[byte & 0xF];
    }
    return hex;
}
bool same(const Part& a, const Part& b) {
    return a == b;
}

template <typename Items>
void compare(const char* what, const Items& expected, const Items& observed, std::string& out) {
    for (size_t i = 0; i < expected.size() || i < observed.size(); ++i) {
        if (i < expected.size() && i < observed.size() && same(expected[i], observed[i])) continue;
        out += std::string(what) + " " + std::to_string(i) + "\n";
        out += "  expected " + (i < expected.size() ? toString(expected[i]) : std::string("nothing")) + "\n";
        out += "  observed " + (i < observed.size() ? toString(observed[i]) : std::string("nothing")) + "\n";
    }
}

}  // namespace

Observation observe(Loader loader, const char* path, int channels) {
    Observation seen;
    Listener listener;
    void* const result = load(loader, path);
    seen.parts = partsOf(loader, result, channels);
    seen.log.swap(listener.lines);
    if (result) {
        dump(loader, result);
        seen.dump.swap(listener.lines);
        if (destroy(loader, result) != nullptr)
            seen.parts.push_back({"pointer left by the destroy function", ""});
        for (const Line& line : listener.lines) seen.dump.push_back(line);  // destruction says nothing
    }
    seen.refusals.swap(listener.refusals);
    return seen;
}

std::string differences(Loader loader, const Expectation& expected, const Observation& observed) {
    std::string out;
    compare("part", partsOf(loader, expected.result, expected.channels), observed.parts, out);
    compare("log line", expected.log, observed.log, out);
    compare("dump line", expected.dump, observed.dump, out);
    if (observed.refusals.size() != (expected.rejected ? 1 : 0)) {
        out += expected.rejected ? "no report of the file\n" : "the file was rejected\n";
    }
    return out.empty() ? out : std::string(nameOf(loader)) + "\n" + out;
}

bool readsAec(Loader loader) {
    return loader == Loader::Full || loader == Loader::Aec;
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
