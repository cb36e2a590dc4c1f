// The host framework as the configuration library sees it, and all that it uses of it. A host that brings its
// own framework declares these names and keeps what is said here; private parts are each framework's own
// business. Whether it does, the kit tells: docs/embedding.md.
//
// Everything may be called from several threads at once. A parser and the records filled from it are used by
// one thread at a time; different parsers never disturb each other. Nothing here throws.
#pragma once

#include <ka/embedded_document.h>

#include <cstddef>
#include <cstdint>

#pragma GCC visibility push(default)

#define KA_NULL nullptr

// The keys and values of one section. Made empty on its user's stack, filled by KAJsonParser::getOptions.
// This framework's is a view into the parser, without memory of its own: it ends with the parser.
class KaMetaData {
public:
    KaMetaData() = default;
    ~KaMetaData() = default;
    KaMetaData(const KaMetaData&) = delete;
    KaMetaData& operator=(const KaMetaData&) = delete;

    // True, and the value in *out, when the record holds `key`, spelt exactly so, with a value of the right
    // type: findInt32 takes a JSON integer that fits 32 bits (not 1.0, 1e3, true or "1"); findFloat any JSON
    // number, as the nearest float (1e400 is infinity, 1e-400 is 0; an integer beyond 64 bits, which no key
    // has, may be the nearest of 64 bits); findCString a JSON string, as UTF-8 ending in NUL (one with \u0000
    // inside ends there). Otherwise, and for a null key, false, and *out is left alone. Of several equal keys
    // the last one in the file counts, whatever its type. A name with \u0000 inside is equal to no key. The
    // text belongs to the record and lives as long as it; the library ends a record before its parser, and
    // opens nothing else with the parser while there is one.
    bool findInt32(const char* key, int* out) const;
    bool findFloat(const char* key, float* out) const;
    bool findCString(const char* key, const char** out) const;

private:
    friend class KAJsonParser;
    mutable KaJsonSection section_;
};

// One tuning file: a JSON object of named roots, each an object of named sections, each an object of keys.
// This framework's takes strict JSON (RFC 8259), UTF-8 without a byte order mark, in regular files of up to
// 64 MiB.
class KAJsonParser {
public:
    KAJsonParser();
    ~KAJsonParser();  // runs after success and failure alike
    KAJsonParser(const KAJsonParser&) = delete;
    KAJsonParser& operator=(const KAJsonParser&) = delete;

    // Reads the file as it is now and closes it again. Non-zero on success. 0 when it cannot be read or is
    // not JSON, or `path` is null: the framework itself reports the reason, its callers do not, and the
    // document is empty.
    //
    // JSON that is no object ([], 5, null) is a success, and every section of it is missing, so that the
    // callers name the section: a host's log says the same over every framework. Text that is not UTF-8, in
    // a name or a value, is not JSON: the engine, and whoever reads the log, take it for UTF-8. Half a
    // surrogate pair in an escape is JSON, but no text: it is refused, as here, or given as some UTF-8, such
    // as U+FFFD. A framework whose names cannot hold \u0000 refuses a file with such a name, or it would
    // stand for a shorter one. One whose JSON library takes more (single quotes, NaN, line breaks in strings)
    // may leave it at that, since `eboconf check` refuses such a file before it reaches a device; but never
    // take a file that is cut off or goes on after its end, zero bytes included: power fails.
    int parseFile(const char* path);

    // Fills *out with the keys of the section in place of what it held; *out becomes empty when root or
    // section is missing, not an object, or null. Of several equal roots or sections the last one counts,
    // with its own keys alone. Non-zero when the section was found, otherwise 0, but callers go by the record
    // alone: where `out` is null there is none to go by, so that nothing happens, and the result is 0.
    int getOptions(const char* root, const char* section, KaMetaData* out);

private:
    friend class KAJsonTable;
    KaJsonDocument document_;
};

#if defined(__GNUC__)
#define KA_LOG_FORMAT __attribute__((format(printf, 4, 7)))
#else
#define KA_LOG_FORMAT
#endif

// One message to the log: a printf format and, after the line, its arguments. It may hold terminal colour
// sequences and end in a newline, inside the colour or after it; null under "%s" is allowed. `level` is 2
// for an error, 4 for a notice, 5 for information. `channel` names the sender, for hosts that tell senders
// apart; tag, function and line say where the message comes from. All texts are the caller's, and lent for
// the call. The call returns, whatever the level. Messages of a thread are shown in their order; long ones
// may be cut off.
void ka_err(unsigned int channel, int level, const char* tag, const char* format, const char* function,
            int line, ...) KA_LOG_FORMAT;
void ka_log(unsigned int channel, int level, const char* tag, const char* format, const char* function,
            int line, ...) KA_LOG_FORMAT;

// Memory of `size` bytes, all of them zero, aligned for integers, floats and pointers; null when there is
// not as much: what then happens is the library's to say. Owned by the caller, who may release it with
// ka_mem_safe_free or with free(). `caller` is the calling function's name.
void* ka_mem_malloc(size_t size, const char* caller);

// Releases *pointer, which may be null, a block of ka_mem_malloc, malloc or strdup, or the address of static
// storage, which is left alone. *pointer is null afterwards. A null `pointer` is nothing to do.
void ka_mem_safe_free(void** pointer, const char* caller);

// As memset. Returns `memory`, which may be null.
void* ka_memset(void* memory, int value, size_t size);

// 0 when equal, otherwise below or above 0 as `a` sorts before or after `b`. A-Z count as a-z, in every
// locale; all other bytes as they are. Null sorts before every text and equals null.
int util_strcasecmp(const char* a, const char* b);

#pragma GCC visibility pop
