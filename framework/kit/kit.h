// What the cases share: the words of a case, documents, and what has been seen of memory and log.
#pragma once

#include <gtest/gtest.h>
#include <ka/framework.h>

#include <string>

// In a build with a sanitizer that watches memory itself.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define KIT_SANITIZED
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define KIT_SANITIZED
#endif
#endif

// Before what the kit cannot try without an allocator of its own.
#ifdef KIT_SANITIZED
#define KIT_UNWATCHED "a sanitizer watches the memory of this build; one without it tries "
#else
#define KIT_UNWATCHED "this program's allocator is not the kit's; not tried: "
#endif

namespace kit {

// The words of a case: what the library relies on, and what a product does without it. Printed when the case
// fails, crashes, ends the process or does not come to an end. Each case calls it, first of all.
void explain(const char* relied_on, const char* otherwise);

// Ends a case that cannot be tried here, and says why; main() repeats it after the last case.
#define KIT_SKIP(reason)                  \
    do {                                  \
        kit::skipped(reason);             \
        GTEST_SKIP() << "\n" << (reason); \
    } while (false)
void skipped(const char* reason);

// A text that parseFile(name()) reads: a file, or what the host keeps instead (kit_host.h).
class Document {
public:
    explicit Document(const std::string& text);
    ~Document();
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;
    void rewrite(const std::string& text);
    const char* name() const { return name_.c_str(); }

private:
    std::string name_;
};

// Where the case may make files of its own; ends in a slash.
const std::string& folder();

// An opened document.
struct Opened {
    explicit Opened(const std::string& text) : document(text), result(parser.parseFile(document.name())) {}
    Document document;
    KAJsonParser parser;
    int result;
};

// The keys of section "s" of root "r", written as JSON members.
struct Section {
    explicit Section(const std::string& members) : opened("{\"r\": {\"s\": {" + members + "}}}") {
        found = opened.parser.getOptions("r", "s", &keys);
    }
    Opened opened;
    KaMetaData keys;
    int found;
};

// The value, or what tells that there is none.
constexpr int kNoInteger = -777;
constexpr float kNoReal = -777.25F;
int integer(const KaMetaData& keys, const char* key);
float real(const KaMetaData& keys, const char* key);
std::string text(const KaMetaData& keys, const char* key);  // "<none>"

// Whether parseFile takes a document of this text.
bool takes(const std::string& text);

// What `work` has logged, as the host's hook or standard error shows it; empty where the log goes elsewhere.
class LogWatch {
public:
    LogWatch();
    ~LogWatch();
    LogWatch(const LogWatch&) = delete;
    LogWatch& operator=(const LogWatch&) = delete;
    std::string end();

private:
    int former_ = -1;
    int file_ = -1;
};
bool logIsSeen();

// Stands between framework and C library where it can: fills memory that is handed out, spoils what is
// released, counts, and refuses. The address sanitizer does its work in a build with that.
namespace allocator {
bool isWatched();
long liveBlocks();
void refuse(bool on);  // to this thread
}  // namespace allocator

// Sets the process's locale to one of this kind, where there is one, and back.
class Locale {
public:
    enum Kind { kDecimalComma, kTurkish, kLatin1 };
    explicit Locale(Kind kind);
    ~Locale();
    Locale(const Locale&) = delete;
    Locale& operator=(const Locale&) = delete;
    explicit operator bool() const { return set_; }

private:
    bool set_;
};

}  // namespace kit
