// The host framework as the configuration library sees it. What each call promises is said in the header of
// the same name of the embedded default; here stands what is this framework's own.
#pragma once

#include <cstddef>

#pragma GCC visibility push(default)

#define KA_NULL nullptr

struct json_object;

// The keys of one section, kept alive by a count of references: it may outlive its parser.
class KaMetaData {
public:
    KaMetaData() = default;
    ~KaMetaData();
    KaMetaData(const KaMetaData&) = delete;
    KaMetaData& operator=(const KaMetaData&) = delete;

    // To findFloat an integer beyond 64 bits is the nearest of 64 bits.
    bool findInt32(const char* key, int* out) const;
    bool findFloat(const char* key, float* out) const;
    bool findCString(const char* key, const char** out) const;

private:
    friend class KAJsonParser;
    json_object* section_ = nullptr;
};

// One tuning file, as a tree of json-c, which takes a little more than JSON even when it is strict: up to 32
// levels deep, no \u0000 in names, U+FFFD for half a surrogate pair.
class KAJsonParser {
public:
    KAJsonParser() = default;
    ~KAJsonParser();
    KAJsonParser(const KAJsonParser&) = delete;
    KAJsonParser& operator=(const KAJsonParser&) = delete;

    int parseFile(const char* path);
    int getOptions(const char* root, const char* section, KaMetaData* out);

private:
    json_object* document_ = nullptr;
};

// The log: ka/log_ring.h.
void ka_err(unsigned int channel, int level, const char* tag, const char* format, const char* function,
            int line, ...) __attribute__((format(printf, 4, 7)));
void ka_log(unsigned int channel, int level, const char* tag, const char* format, const char* function,
            int line, ...) __attribute__((format(printf, 4, 7)));

void* ka_mem_malloc(size_t size, const char* caller);
void ka_mem_safe_free(void** pointer, const char* caller);
void* ka_memset(void* memory, int value, size_t size);
int util_strcasecmp(const char* a, const char* b);

#pragma GCC visibility pop
