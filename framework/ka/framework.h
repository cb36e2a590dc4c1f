// The host framework as the configuration library sees it. This page is the whole contract: a host that brings
// its own framework declares the same names and keeps to what is said here. Private parts are the framework's own.
//
// Threads: every function may be called from many threads at once. A KAJsonParser and the KaMetaData filled from
// it belong to one thread at a time; different parsers never disturb each other.
#pragma once

#include <cstddef>
#include <cstdint>

#define KA_NULL nullptr

struct KaJsonEntry;
class KAJsonTable;

// Says what is wrong with a file; `reason` is null while there is no error.
struct KaJsonError {
    const char* reason = nullptr;  // plain words, static storage
    int system_error = 0;          // errno of a failed call on the file, otherwise 0
    uint32_t line = 0;             // counted from 1; 0 when the file as a whole is meant
    uint32_t column = 0;           // in bytes, counted from 1
};

// The keys of one section. Made empty on the reader's stack, filled by KAJsonParser::getOptions.
// Default framework: a view into its parser, without memory of its own; it must not outlive the parser and ends
// with the parser's next parseFile.
class KaMetaData {
public:
    KaMetaData() = default;
    ~KaMetaData() = default;
    KaMetaData(const KaMetaData&) = delete;
    KaMetaData& operator=(const KaMetaData&) = delete;

    // Each returns true and stores into *out when the section has `key` (compared byte by byte, case counts) with
    // a value of the right type; otherwise returns false and leaves *out alone. A null key is never found. Of
    // several equal keys the last one in the file counts.
    //
    // A JSON integer that fits 32 bits; not 1.0, 1e3, true or "1".
    bool findInt32(const char* key, int* out) const;
    // Any JSON number, as the nearest float; too large is infinity, too small is zero.
    bool findFloat(const char* key, float* out) const;
    // A JSON string, UTF-8, ending in NUL (a \u0000 within ends it early). The text lives as long as this object.
    bool findCString(const char* key, const char** out) const;

private:
    friend class KAJsonParser;
    const KaJsonEntry* find(const char* key) const;

    const char* text_ = nullptr;
    const KaJsonEntry* begin_ = nullptr;
    const KaJsonEntry* end_ = nullptr;
    mutable const KaJsonEntry* next_ = nullptr;  // where the next lookup starts: keys mostly come in file order
};

// One opened document: an object of named roots, each an object of named sections, each an object of keys.
class KAJsonParser {
public:
    KAJsonParser() = default;
    ~KAJsonParser();  // runs after success and failure alike
    KAJsonParser(const KAJsonParser&) = delete;
    KAJsonParser& operator=(const KAJsonParser&) = delete;

    // Reads the whole file; it is closed again on return. Non-zero on success. 0 when it cannot be read or is not
    // JSON, or path is null; the framework reports the reason itself and the document stays empty.
    int parseFile(const char* path);

    // Fills *out with the keys of root.section in place of what it held. Leaves it empty when root or section is
    // missing, null or not an object. Non-zero when the section was found; callers may ignore it.
    int getOptions(const char* root, const char* section, KaMetaData* out);

private:
    friend class KAJsonTable;
    void close();
    void report(const char* path) const;

    char* text_ = nullptr;
    KaJsonEntry* entries_ = nullptr;
    uint32_t count_ = 0;
    KaJsonError error_;
};

#if defined(__GNUC__)
#define KA_LOG_FORMAT __attribute__((format(printf, 4, 7)))
#else
#define KA_LOG_FORMAT
#endif

// One message of the log: printf format and its arguments after the line. Formats and texts may carry terminal
// colour sequences and a newline; a null under "%s" must be survived. Levels: 2 error, 4 notice, 5 information.
// `channel` names the sender to a host that sorts its log by sender. Neither call may end the process.
void ka_err(unsigned int channel, int level, const char* tag, const char* format, const char* function, int line,
            ...) KA_LOG_FORMAT;
void ka_log(unsigned int channel, int level, const char* tag, const char* format, const char* function, int line,
            ...) KA_LOG_FORMAT;

// Memory of `size` bytes, all zero, that free() accepts as well; null when there is none. `caller` is the name of
// the calling function.
void* ka_mem_malloc(size_t size, const char* caller);

// Releases *pointer and leaves null there. *pointer may be null, a block of ka_mem_malloc or of the standard
// allocator (strdup included), or the address of static storage, which is not touched. A null `pointer` is fine.
void ka_mem_safe_free(void** pointer, const char* caller);

// As memset; a null `memory` is left alone. Returns `memory`.
void* ka_memset(void* memory, int value, size_t size);

// Below, equal to or above 0 as `a` sorts before, with or after `b`, the letters A-Z taken as a-z and all other
// bytes as they are, whatever the locale. A null sorts before every text and equals only another null.
int util_strcasecmp(const char* a, const char* b);
