// The host framework as the library sees it; this one records. What it records: ka/recording.h.
#pragma once

#include <cstddef>
#include <memory>

#define KA_NULL nullptr

class KaMetaData {  // the keys of one section
public:
    KaMetaData();
    ~KaMetaData();
    KaMetaData(const KaMetaData&) = delete;
    KaMetaData& operator=(const KaMetaData&) = delete;

    // False, and `*out` spoilt, when the key is missing or its value is of another type.
    bool findInt32(const char* key, int* out) const;
    bool findFloat(const char* key, float* out) const;
    bool findCString(const char* key, const char** out) const;  // spoilt when this object is destroyed

private:
    friend class KAJsonParser;
    struct Keys;
    std::unique_ptr<Keys> keys_;
};

class KAJsonParser {  // one document
public:
    KAJsonParser();
    ~KAJsonParser();
    KAJsonParser(const KAJsonParser&) = delete;
    KAJsonParser& operator=(const KAJsonParser&) = delete;

    int parseFile(const char* path);  // non-zero on success; looks among the recorder's documents first
    int getOptions(const char* root, const char* section, KaMetaData* out);

private:
    struct Document;
    std::unique_ptr<Document> document_;
};

void ka_err(unsigned int channel, int level, const char* tag, const char* format, const char* function,
            int line, ...) __attribute__((format(printf, 4, 7)));
void ka_log(unsigned int channel, int level, const char* tag, const char* format, const char* function,
            int line, ...) __attribute__((format(printf, 4, 7)));

void* ka_mem_malloc(size_t size, const char* caller);
void ka_mem_safe_free(void** pointer, const char* caller);
void* ka_memset(void* memory, int value, size_t size);
int util_strcasecmp(const char* a, const char* b);
