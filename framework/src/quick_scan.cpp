#include "quick_scan.h"

#include <cstdlib>
#include <cstring>

#include "json_text.h"
#include "plain_text.h"

using plain_text::skipBlanks;

namespace {

constexpr uint32_t kKeyDepth = 3;  // open brackets around a key: document, root, section
constexpr uint16_t kColonBlank = __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__ ? ':' | ' ' << 8 : ':' << 8 | ' ';

// The first byte after the number or word at `at`; null when there is none.
[[gnu::noinline]] const char* skipScalar(const char* at, KaJsonKind* kind) {
    *kind = *at == 'n' ? KaJsonKind::kNull : KaJsonKind::kBool;
    if (memcmp(at, "null", 4) == 0 || memcmp(at, "true", 4) == 0) return at + 4;
    if (memcmp(at, "false", 5) == 0) return at + 5;
    *kind = KaJsonKind::kNumber;
    return skipNumber(at);
}

// The first byte after the name, the colon and the blanks at `at`; null when there are none.
const char* skipNameAndColon(const char* at) {
    bool escapes;
    if (*at != '"' || !(at = skipString(at + 1, &escapes))) return nullptr;
    at = skipBlanks(at + 1);
    return *at == ':' ? skipBlanks(at + 1) : nullptr;
}

// The first byte after the array or object at `at`; null when it is not right, or so deep that `room` does
// not hold the brackets that close it.
const char* skipNested(const char* at, char* room, const char* room_end) {
    char* open = room;  // after the innermost one
    for (;;) {
        bool escapes;
        KaJsonKind kind;
        if (*at == '{' || *at == '[') {
            if (open == room_end) return nullptr;
            *open++ = static_cast<char>(*at + 2);  // in ASCII
            at = skipBlanks(at + 1);
            if (*at != open[-1]) {
                if (open[-1] == '}' && !(at = skipNameAndColon(at))) return nullptr;
                continue;
            }
        } else if (*at == '"') {
            if (!(at = skipString(at + 1, &escapes))) return nullptr;
            ++at;
        } else if (!(at = skipScalar(at, &kind))) {
            return nullptr;
        }
        for (at = skipBlanks(at); *at == open[-1]; at = skipBlanks(at)) {
            ++at;
            if (--open == room) return at;
        }
        if (*at != ',') return nullptr;
        at = skipBlanks(at + 1);
        if (open[-1] == '}' && !(at = skipNameAndColon(at))) return nullptr;
    }
}

// The same where the brackets are known to match.
const char* skipMatching(const char* at) {
    bool escapes;
    size_t depth = 0;
    do {
        if (*at == '"') at = skipString(at + 1, &escapes);
        if (*at == '{' || *at == '[') ++depth;
        if (*at == '}' || *at == ']') --depth;
        ++at;
    } while (depth > 0);
    return at;
}

// The first byte after the array, object, number or word at `at`, which goes to *entry; null when it is not
// taken. The table from `unused` on holds no entry yet.
[[gnu::noinline]] const char* skipValue(const char* at, bool known, KaJsonEntry* entry, KaJsonEntry* unused,
                                        KaJsonEntry* table_end) {
    KaJsonKind kind = *at == '{' ? KaJsonKind::kObject : KaJsonKind::kArray;
    if (*at == '{' || *at == '[') {
        entry->set(kind, *at == '{');
        return known ? skipMatching(at)
                     : skipNested(at, reinterpret_cast<char*>(unused), reinterpret_cast<char*>(table_end));
    }
    const char* const end = skipScalar(at, &kind);
    if (end) entry->set(kind, static_cast<uint32_t>(end - at));
    return end;
}

[[gnu::noinline]] bool grow(JsonLoad* load) {
    void* const entries = realloc(load->entries, size_t{load->capacity} * 2 * sizeof(KaJsonEntry));
    if (!entries) {
        load->reason = kOutOfMemory;
        return false;
    }
    load->entries = static_cast<KaJsonEntry*>(entries);
    load->capacity *= 2;
    return true;
}

void decodeStrings(char* text, const JsonLoad& load) {
    const KaJsonEntry* const end = load.entries + load.count;
    for (KaJsonEntry* entry = load.entries; entry != end; ++entry) {
        entry->name_length = decode(text + entry->name, entry->name_length);
        if (memchr(text + entry->name, 0, entry->name_length)) entry->name_length |= KaJsonEntry::kHasNul;
        if (entry->kind() == KaJsonKind::kString)
            entry->set(KaJsonKind::kString, decode(text + entry->value, entry->extent()));
    }
}

// Reads the object whose opening bracket is before `at`, and with it all that is for the table. Returns the
// first byte after it; null when it is not taken.
const char* scanObject(const char* text, const char* at, bool known, JsonLoad* load, bool* escapes) {
    KaJsonEntry* next = load->entries;  // first entry that is not written yet
    KaJsonEntry* end = next + load->capacity;
    uint32_t parents[kKeyDepth];  // by depth: the entry whose object is open there
    uint32_t depth = 1;           // open brackets
    plain_text::Joint joint;

    at = skipBlanks(at);
    if (*at == '}') return at + 1;
    if (*at++ != '"') return nullptr;
    for (;;) {
        // `at` is after the opening quote of a name.
        if (next == end) {
            const ptrdiff_t count = next - load->entries;
            if (!grow(load)) return nullptr;
            next = load->entries + count;
            end = load->entries + load->capacity;
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
            parents[depth++] = static_cast<uint32_t>(next - load->entries);
            at = skipBlanks(value + 1);
            if (*at == '"') {
                ++at;
                continue;
            }
            if (*at != '}') return nullptr;
        } else if ((at = plain_text::skipShortNumber(value))) {
            next[-1].set(KaJsonKind::kNumber, static_cast<uint32_t>(at - value));
        } else if (!(at = skipValue(value, known, next - 1, next, end))) {
            return nullptr;
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
                load->count = static_cast<uint32_t>(next - load->entries);
                return at;
            }
            KaJsonEntry* const parent = load->entries + parents[depth] - 1;
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

bool quickScan(FileBuffer* file, bool known, JsonLoad* load) {
    const char* at = skipBlanks(file->text);
    bool escapes = false;
    if (*at == '{') {
        at = scanObject(file->text, at + 1, known, load, &escapes);
    } else if (*at == '"') {
        at = skipString(at + 1, &escapes);
        if (at) ++at;
    } else {
        KaJsonEntry none;  // it belongs to no key
        at = skipValue(at, known, &none, load->entries, load->entries + load->capacity);
    }
    if (!at || skipBlanks(at) != file->text + file->size) return false;
    if (escapes) decodeStrings(file->text, *load);
    return true;
}
