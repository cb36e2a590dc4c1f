// Documents, locales, and what the log shows.
#include "kit_host.h"

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <atomic>
#include <clocale>
#include <cstdio>
#include <cstring>
#include <fstream>

#include "kit.h"

// A host's own takes the place of this one.
[[gnu::weak]] std::string kitTakeLog() {
    return {};
}

namespace {

#if EBO_KIT_FILES
void removeFolder() {
    rmdir(kit::folder().c_str());
}

void put(const std::string& name, const std::string& text) {
    std::ofstream(name, std::ios::binary) << text;
}
#else
void put(const std::string& name, const std::string& text) {
    kitPutDocument(name.c_str(), text.data(), text.size());
}
#endif

std::string setLocale(std::initializer_list<const char*> names) {
    for (const char* name : names) {
        if (std::setlocale(LC_ALL, name)) return name;
    }
    return {};
}

}  // namespace

namespace kit {

#if EBO_KIT_FILES
const std::string& folder() {
    static const std::string path = [] {
        const char* const base = getenv("TMPDIR");
        std::string made = std::string(base ? base : "/tmp") + "/framework-kit-XXXXXX";
        if (!mkdtemp(made.data())) {
            perror(made.c_str());
            _exit(1);
        }
        atexit(removeFolder);
        return made + "/";
    }();
    return path;
}
#else
const std::string& folder() {
    static const std::string none;
    return none;
}
#endif

Document::Document(const std::string& text) {
    static std::atomic<int> count{0};
    name_ = folder() + "document-" + std::to_string(++count) + ".json";
    rewrite(text);
}

Document::~Document() {
#if EBO_KIT_FILES
    unlink(name());
#endif
}

void Document::rewrite(const std::string& text) {
    put(name_, text);
}

int integer(const KaMetaData& keys, const char* key) {
    int value = 0;
    return keys.findInt32(key, &value) ? value : kNoInteger;
}

float real(const KaMetaData& keys, const char* key) {
    float value = 0;
    return keys.findFloat(key, &value) ? value : kNoReal;
}

std::string text(const KaMetaData& keys, const char* key) {
    const char* value = nullptr;
    return !keys.findCString(key, &value) ? "<none>" : value ? value : "<null>";
}

bool takes(const std::string& text) {
    return Opened(text).result != 0;
}

LogWatch::LogWatch() {
    kitTakeLog();
    FILE* const file = std::tmpfile();
    if (!file) return;
    file_ = dup(fileno(file));
    std::fclose(file);
    former_ = dup(STDERR_FILENO);
    dup2(file_, STDERR_FILENO);
}

std::string LogWatch::end() {
    std::string shown;
    if (file_ >= 0) {
        fflush(stderr);
        dup2(former_, STDERR_FILENO);
        lseek(file_, 0, SEEK_SET);
        char part[4096];
        for (ssize_t n; (n = read(file_, part, sizeof part)) > 0;) shown.append(part, static_cast<size_t>(n));
        close(file_);
        close(former_);
        file_ = -1;
    }
    const std::string taken = kitTakeLog();
    return taken.empty() ? shown : taken;
}

LogWatch::~LogWatch() {
    end();
}

bool logIsSeen() {
    // Anything at all: what it is the cases look at.
    static const bool seen = [] {
        LogWatch watch;
        ka_err(1, 2, "kit", "does the kit see this?", "logIsSeen", __LINE__);
        ka_log(1, 5, "kit", "or this?", "logIsSeen", __LINE__);
        return !watch.end().empty();
    }();
    return seen;
}

Locale::Locale(Kind kind) {
#ifdef EBO_KIT_LOCALES
    setenv("LOCPATH", EBO_KIT_LOCALES, 1);
#endif
    std::string name;
    switch (kind) {
        case kDecimalComma:
            name = setLocale({"de_DE.ISO-8859-1", "de_DE.UTF-8", "fr_FR.UTF-8", "es_ES.UTF-8"});
            break;
        case kTurkish:
            name = setLocale({"tr_TR.ISO-8859-9", "tr_TR.UTF-8", "az_AZ.UTF-8"});
            break;
        case kLatin1:
            name = setLocale({"de_DE.ISO-8859-1", "en_US.ISO-8859-1", "fr_FR.ISO-8859-1"});
            break;
    }
    set_ = !name.empty();
}

Locale::~Locale() {
    std::setlocale(LC_ALL, "C");
#ifdef EBO_KIT_LOCALES
    unsetenv("LOCPATH");
#endif
}

}  // namespace kit
