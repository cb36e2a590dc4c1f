#include <cstdlib>
#include <cstring>

#include "json_load.h"
#include "json_text.h"

using plain_text::skipBlanks;

namespace {

constexpr uint32_t kKeyDepth = 3;  // open brackets around a key: document, root, section
constexpr uint16_t kColonBlank = __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__ ? ':' | ' ' << 8 : ':' << 8 | ' ';

// The first byte after the string, number or word at `at`; null when there is none.
const char* skipScalar(const char* at) {
    bool escapes;
    if (*at == '"') return (at = skipString(at + 1, &escapes)) ? at + 1 : nullptr;
    if (memcmp(at, "null", 4) == 0 || memcmp(at, "true", 4) == 0) return at + 4;
    return memcmp(at, "false", 5) == 0 ? at + 5 : skipNumber(at);
}

// The first byte after the name, the colon and the blanks at `at`; null when there are none.
const char* skipNameAndColon(const char* at) {
    if (*at != '"' || !(at = skipScalar(at))) return nullptr;
    at = skipBlanks(at);
    return *at == ':' ? skipBlanks(at + 1) : nullptr;
}

// The first byte after the value at `at`; null when it is not right, or the brackets that close it do not fit
// before `end`.
[[gnu::noinline]] const char* skipValue(const char* at, KaJsonEntry* unused, const KaJsonEntry* end) {
    char* const room = reinterpret_cast<char*>(unused);
    const char* const room_end = reinterpret_cast<const char*>(end);
    char* open = room;  // after the innermost one
    for (;;) {
        const bool opens = *at == '{' || *at == '[';
        if (opens) {
            if (open == room_end) return nullptr;
            *open++ = static_cast<char>(*at + 2);  // in ASCII
            at = skipBlanks(at + 1);
        } else if (!(at = skipScalar(at))) {
            return nullptr;
        }
        if (!opens || *at == open[-1]) {
            for (; open != room && *(at = skipBlanks(at)) == open[-1]; --open) ++at;
            if (open == room) return at;
            if (*at != ',') return nullptr;
            at = skipBlanks(at + 1);
        }
        if (open[-1] == '}' && !(at = skipNameAndColon(at))) return nullptr;
    }
}

KaJsonKind kindOf(char first) {
    return first == '{'                   ? KaJsonKind::kObject
           : first == '['                 ? KaJsonKind::kArray
           : first == 'n'                 ? KaJsonKind::kNull
           : first == 't' || first == 'f' ? KaJsonKind::kBool
                                          : KaJsonKind::kNumber;
}

bool reserve(size_t capacity, KaJsonDocument* document) {
    void* const entries = realloc(document->entries, capacity * sizeof(KaJsonEntry));
    if (!entries) {
        document->error.reason = kOutOfMemory;
        return false;
    }
    document->entries = static_cast<KaJsonEntry*>(entries);
    document->capacity = static_cast<uint32_t>(capacity);
    return true;
}

// Room for as many entries as the file will have if it goes on as up to `at`, and for the brackets that may
// still open, a byte each. Returns where `next` is now; null when there is no memory.
[[gnu::noinline]] KaJsonEntry* grow(const FileBuffer& file, const char* at, const KaJsonEntry* next,
                                    KaJsonDocument* document) {
    const size_t count = static_cast<size_t>(next - document->entries);
    const size_t done = static_cast<size_t>(at - file.text);
    const size_t rest = file.size - done;
    const size_t more = static_cast<size_t>(uint64_t{count} * rest / done);
    return reserve(count + more + rest / 32 + 16, document) ? document->entries + count : nullptr;
}

void decodeStrings(char* text, const KaJsonDocument& document) {
    const KaJsonEntry* const end = document.entries + document.count;
    for (KaJsonEntry* entry = document.entries; entry != end; ++entry) {
        entry->name_length = decode(text + entry->name, entry->name_length);
        if (memchr(text + entry->name, 0, entry->name_length)) entry->name_length |= KaJsonEntry::kHasNul;
        if (entry->kind() == KaJsonKind::kString)
            entry->set(KaJsonKind::kString, decode(text + entry->value, entry->extent()));
    }
}

// Reads the object whose opening bracket is before `at`, and with it all that is for the table. Returns the
// first byte after it; null when it is not taken.
const char* scanObject(const FileBuffer& file, const char* at, KaJsonDocument* document, bool* escapes) {
    const char* const text = file.text;
    KaJsonEntry* next = document->entries;  // first entry that is not written yet
    KaJsonEntry* end = next + document->capacity;
    uint32_t parents[kKeyDepth];  // by depth: the entry whose object is open there
    uint32_t depth = 1;           // open brackets
    plain_text::Joint joint;

    at = skipBlanks(at);
    if (*at == '}') return at + 1;
    if (*at++ != '"') return nullptr;
    for (;;) {
        // `at` is after the opening quote of a name.
        if (next == end) {
            if (!(next = grow(file, at, next, document))) return nullptr;
            end = document->entries + document->capacity;
        }
        const char* quote = plain_text::skipName(at);
        if (*quote != '"' && !(quote = skipString(quote, escapes))) return nullptr;
        next->name = static_cast<uint32_t>(at - text);
        next->name_length = static_cast<uint32_t>(quote - at);
        ++next;

        uint16_t colon;
        memcpy(&colon, quote + 1, sizeof colon);
        at = quote + 3;
        if (colon != kColonBlank || static_cast<unsigned char>(*at) <= ' ') {
            at = skipBlanks(quote + 1);
            if (*at != ':') return nullptr;
            at = skipBlanks(at + 1);
        }

        const char* const value = at;
        next[-1].value = static_cast<uint32_t>(value - text);
        if (*value == '"') {
            at = plain_text::skipPlain(value + 1);
            if (*at != '"' && !(at = skipString(at, escapes))) return nullptr;
            ++next[-1].value;
            next[-1].set(KaJsonKind::kString, static_cast<uint32_t>(at - value - 1));
            ++at;
        } else if (*value == '{' && depth < kKeyDepth) {
            parents[depth++] = static_cast<uint32_t>(next - document->entries);
            at = skipBlanks(value + 1);
            if (*at == '"') {
                ++at;
                continue;
            }
            if (*at != '}') return nullptr;
        } else if ((at = plain_text::skipShortNumber(value))) {
            next[-1].set(KaJsonKind::kNumber, static_cast<uint32_t>(at - value));
        } else {
            // Of what is left of a right text no more than half are brackets that open.
            if ((end - next) * static_cast<ptrdiff_t>(2 * sizeof *end) < text + file.size - value) {
                if (!(next = grow(file, value, next, document))) return nullptr;
                end = document->entries + document->capacity;
            }
            if (!(at = skipValue(value, next, end))) return nullptr;
            const KaJsonKind kind = kindOf(*value);
            next[-1].set(kind, kind == KaJsonKind::kObject ? 1 : static_cast<uint32_t>(at - value));
        }

        if (joint.isAt(at)) {
            at += joint.size();
            continue;
        }
        if (plain_text::isDigit(*at) || (*at | 0x20) == 'e') {  // perhaps the number goes on
            if (!(at = skipNumber(value))) return nullptr;
            next[-1].set(KaJsonKind::kNumber, static_cast<uint32_t>(at - value));
        }
        for (at = skipBlanks(at); *at == '}'; at = skipBlanks(at)) {
            ++at;
            if (--depth == 0) {
                document->count = static_cast<uint32_t>(next - document->entries);
                return at;
            }
            KaJsonEntry* const parent = document->entries + parents[depth] - 1;
            parent->set(KaJsonKind::kObject, static_cast<uint32_t>(next - parent));
        }
        if (*at != ',') return nullptr;
        const char* const comma = at;
        at = skipBlanks(at + 1);
        if (*at++ != '"') return nullptr;
        if (depth == kKeyDepth) joint.learn(comma, at);
    }
}

}  // namespace

bool loadJson(const FileBuffer& file, KaJsonDocument* document) {
    // A tuning file has some 30 bytes per key, so this one allocation will do for it.
    if (!reserve(file.size / 24 + 16, document)) return false;
    const char* at = skipBlanks(file.text);
    bool escapes = false;
    at = *at == '{' ? scanObject(file, at + 1, document, &escapes)
                    : skipValue(at, document->entries, document->entries + document->capacity);
    if (at && skipBlanks(at) == file.text + file.size) {
        if (escapes) decodeStrings(file.text, *document);
        return true;
    }
    if (!document->error.reason) findFault(file, &document->error);
    return false;
}
