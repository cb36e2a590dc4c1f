// Files and messages for the tests.
#pragma once

#include <ka/framework.h>
#include <ka/log_sink.h>

#include <mutex>
#include <string>
#include <string_view>
#include <vector>

// A file in memory, gone with the object.
class ScratchFile {
public:
    explicit ScratchFile(std::string_view text);
    ~ScratchFile();
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;

    const char* path() const { return path_.c_str(); }

private:
    const int fd_;
    const std::string path_;
};

// What is logged while it lives.
class Messages {
public:
    Messages();
    ~Messages();
    Messages(const Messages&) = delete;
    Messages& operator=(const Messages&) = delete;

    std::vector<std::string> texts() const;
    // All texts, each with a newline, without `path` where they name it.
    std::string without(std::string_view path) const;

private:
    static void take(const KaLogMessage& message, void* self);

    mutable std::mutex mutex_;
    std::vector<std::string> texts_;
};

// A document loaded from a text.
class Document {
public:
    explicit Document(std::string_view text);

    int loaded = 0;       // what parseFile returned
    std::string message;  // what it logged, without the path
    KAJsonParser parser;
};

// {"r": {"s": {`keys`}}}, and its section.
class Section : public Document {
public:
    explicit Section(std::string_view keys);

    KaMetaData keys;
};

std::string repeat(std::string_view text, size_t times);

// In this process numbers have a decimal comma while it lives.
class CommaLocale {
public:
    CommaLocale();
    ~CommaLocale();
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;
};
