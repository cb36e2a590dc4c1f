#include "scan_check.h"

#include <rapidjson/reader.h>

#include <cstdlib>
#include <cstring>
#include <vector>

#include "json_load.h"

namespace {

struct Entry {
    size_t name;
    std::string key;
    KaJsonKind kind;
    size_t value;
    std::string text;  // of a string, number or word
};

std::string toString(const Entry& entry) {
    return entry.key + "@" + std::to_string(entry.name) + " " + std::to_string(static_cast<int>(entry.kind)) +
           "@" + std::to_string(entry.value) + " " + entry.text;
}

// The table as the library's events give it.
class Events : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, Events> {
public:
    Events(const char* text, rapidjson::InsituStringStream& stream) : text_(text), stream_(stream) {}

    std::vector<Entry> entries;
    bool half_pair = false;  // an escape that the library goes past

    bool Key(const char* name, unsigned length, bool) {
        look(name, length);
        if (open_.size() > 3 || open_.find('[') != std::string::npos) return true;
        entries.push_back({at(name), {name, length}, {}, 0, ""});
        wanted_ = true;
        return true;
    }
    bool String(const char* text, unsigned length, bool) {
        look(text, length);
        return value(KaJsonKind::kString, at(text), {text, length});
    }
    bool RawNumber(const char* text, unsigned length, bool) {
        return value(KaJsonKind::kNumber, at(text), {text, length});
    }
    bool Null() { return value(KaJsonKind::kNull, stream_.Tell() - 4, "null"); }
    bool Bool(bool is) {
        const std::string word = is ? "true" : "false";
        return value(KaJsonKind::kBool, stream_.Tell() - word.size(), word);
    }
    bool StartObject() { return enter(KaJsonKind::kObject, '{'); }
    bool EndObject(unsigned) { return leave(); }
    bool StartArray() { return enter(KaJsonKind::kArray, '['); }
    bool EndArray(unsigned) { return leave(); }

private:
    size_t at(const char* place) const { return static_cast<size_t>(place - text_); }
    void look(const char* text, unsigned length) {
        for (unsigned i = 1; i < length; ++i)
            half_pair |= text[i - 1] == '\xED' && static_cast<unsigned char>(text[i]) >= 0xA0;
    }
    bool value(KaJsonKind kind, size_t place, const std::string& text) {
        if (wanted_) entries.back() = {entries.back().name, entries.back().key, kind, place, text};
        wanted_ = false;
        return true;
    }
    bool enter(KaJsonKind kind, char bracket) {
        value(kind, stream_.Tell(), "");
        open_ += bracket;
        return true;
    }
    bool leave() {
        open_.pop_back();
        return true;
    }

    const char* const text_;
    rapidjson::InsituStringStream& stream_;
    std::string open_;
    bool wanted_ = false;
};

// A text as the loader has it, given back with the object.
struct Loaded {
    explicit Loaded(std::string_view text) {
        file.text = static_cast<char*>(std::calloc(1, text.size() + kFilePadding));
        std::memcpy(file.text, text.data(), text.size());
        file.size = static_cast<uint32_t>(text.size());
    }
    ~Loaded() {
        std::free(file.text);
        std::free(document.entries);
    }
    Loaded(const Loaded&) = delete;
    Loaded& operator=(const Loaded&) = delete;

    std::vector<Entry> entries() const {
        std::vector<Entry> all;
        for (uint32_t i = 0; i < document.count; ++i) {
            const KaJsonEntry& entry = document.entries[i];
            const bool nested = entry.kind() == KaJsonKind::kObject || entry.kind() == KaJsonKind::kArray;
            all.push_back({entry.name,
                           {file.text + entry.name, entry.nameLength()},
                           entry.kind(),
                           entry.value,
                           nested ? "" : std::string(file.text + entry.value, entry.extent())});
        }
        return all;
    }

    FileBuffer file;
    KaJsonDocument document;
};

}  // namespace

bool loads(std::string_view text) {
    Loaded loaded(text);
    return loadJson(loaded.file, &loaded.document);
}

std::string scanDifference(std::string_view text) {
    if (text.substr(0, 3) == "\xEF\xBB\xBF") return "";
    std::string decoded(text);
    decoded.append(kFilePadding, '\0');
    rapidjson::InsituStringStream stream(decoded.data());
    Events events(decoded.data(), stream);
    rapidjson::Reader reader;
    constexpr unsigned kFlags = rapidjson::kParseInsituFlag | rapidjson::kParseIterativeFlag |
                                rapidjson::kParseNumbersAsStringsFlag | rapidjson::kParseValidateEncodingFlag;
    const rapidjson::ParseResult result = reader.Parse<kFlags>(stream, events);
    const bool too_big = result.Code() == rapidjson::kParseErrorNumberTooBig;  // to the library alone
    const bool right = !result.IsError() && stream.Tell() == text.size() && !events.half_pair;

    Loaded loaded(text);
    const bool loads = loadJson(loaded.file, &loaded.document);
    if (loads && !right && !too_big) return "loads, but is no JSON";
    if (!loads && std::memcmp(loaded.file.text, text.data(), text.size()) != 0) return "the text was changed";
    if (!loads && (!loaded.document.error.reason || loaded.document.error.line == 0))
        return "no reason or place";
    if (!loads && right) return std::string("is JSON, but does not load: ") + loaded.document.error.reason;
    if (!loads || too_big) return "";
    const std::vector<Entry> found = loaded.entries();
    if (found.size() != events.entries.size()) return "entries: " + std::to_string(found.size());
    for (size_t i = 0; i < found.size(); ++i) {
        if (toString(found[i]) != toString(events.entries[i]))
            return toString(found[i]) + ", expected " + toString(events.entries[i]);
    }
    return "";
}
