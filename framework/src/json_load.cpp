#include "json_load.h"

#include <cstdlib>
#include <cstring>

#include "rapidjson_reader.h"

namespace rj = ka_rapidjson;

namespace {

// Memory for the reader's stack of open brackets, 8 bytes per level: the first levels on our own stack, the rest
// from the heap. The reader does not test for null, so after a failed growth it goes on with the old block, whose
// slack holds the one level it writes before it calls the handler, which then stops it.
class BracketStack {
public:
    static constexpr size_t kInitialSize = 256;

    BracketStack() = default;
    ~BracketStack() { free(heap_); }
    BracketStack(const BracketStack&) = delete;
    BracketStack& operator=(const BracketStack&) = delete;

    void* Realloc(void* old_block, size_t old_size, size_t new_size) {
        if (!old_block) return first_;
        void* block = failed_ ? nullptr : realloc(heap_, new_size + kSlack);
        if (!block) {
            failed_ = true;
            return old_block;
        }
        if (!heap_) memcpy(block, old_block, old_size);
        return heap_ = block;
    }
    static void Free(void*) {}  // the destructor's task

    bool failed() const { return failed_; }

private:
    static constexpr size_t kSlack = 16;

    void* heap_ = nullptr;
    bool failed_ = false;
    alignas(8) char first_[kInitialSize + kSlack];
};

// UTF-8 that is validated, and faster over the plain characters that most texts are made of. The reader calls
// Validate at every character of a string that is neither quote, backslash nor control character.
struct Utf8 : rj::UTF8<> {
    using rj::UTF8<>::Validate;
    static bool Validate(rj::InsituStringStream& stream, rj::InsituStringStream& same) {
        if (stream.src_ != stream.dst_ || !plain(*stream.src_)) return rj::UTF8<>::Validate(stream, same);
        // Nothing was decoded so far, so the text already stands where it belongs.
        char* end = stream.src_ + 1;
        while (allPlain(end)) end += sizeof(Word);
        while (plain(*end)) ++end;
        stream.src_ = stream.dst_ = end;
        return true;
    }

private:
    using Word = size_t;
    static_assert(sizeof(Word) <= kFilePadding);

    static bool plain(char c) { return c >= 0x20 && c != '"' && c != '\\' && static_cast<unsigned char>(c) < 0x80; }

    // Whether every byte at `text` is plain, all bytes at once.
    static bool allPlain(const char* text) {
        constexpr Word kOnes = ~Word{0} / 0xFF;
        constexpr Word kHigh = kOnes * 0x80;
        Word word;
        memcpy(&word, text, sizeof word);
        const Word quote = word ^ kOnes * '"';
        const Word backslash = word ^ kOnes * '\\';
        // A byte below the one subtracted borrows into its high bit. A borrow out of a byte can only add a finding.
        return (((word - kOnes * 0x20) | (quote - kOnes) | (backslash - kOnes) | word) & kHigh) == 0;
    }
};

// Receives the reader's events and writes the table.
class TableBuilder {
public:
    using Ch = char;

    TableBuilder(const rj::InsituStringStream& stream, const BracketStack& brackets, JsonLoad* load)
        : stream_(stream), brackets_(brackets), load_(load) {}

    // A tuning file has some 30 bytes per key, so one allocation will do for it.
    bool reserve(size_t text_size) { return grow(static_cast<uint32_t>(text_size / 24 + 16)); }
    bool out_of_memory() const { return out_of_memory_ || brackets_.failed(); }

    bool Key(const char* name, uint32_t length, bool) {
        if (skipped_ > 0) return true;
        if (load_->count == capacity_ && !grow(capacity_ * 2)) return false;
        KaJsonEntry& entry = load_->entries[load_->count];
        entry.name = offset(name);
        entry.name_length = length;
        if (depth_ < kKeyDepth) parents_[depth_] = load_->count;
        ++load_->count;
        return true;
    }
    bool String(const char* text, uint32_t length, bool) { return scalar(KaJsonKind::kString, offset(text), length); }
    bool RawNumber(const char* text, uint32_t length, bool) {
        return scalar(KaJsonKind::kNumber, offset(text), length);
    }
    // The reader stands behind the literal.
    bool Null() { return scalar(KaJsonKind::kNull, here() - 4, 4); }
    bool Bool(bool value) {
        const uint32_t length = value ? 4 : 5;
        return scalar(KaJsonKind::kBool, here() - length, length);
    }
    bool StartObject() {
        if (skipped_ > 0 || depth_ == kKeyDepth) return skip(KaJsonKind::kObject);
        if (depth_ > 0) last().value = here();
        ++depth_;
        return !brackets_.failed();
    }
    bool EndObject(uint32_t) {
        if (skipped_ > 0) {
            --skipped_;
        } else if (--depth_ > 0) {
            load_->entries[parents_[depth_]].set(KaJsonKind::kObject, load_->count);
        }
        return true;
    }
    bool StartArray() { return skip(KaJsonKind::kArray); }
    bool EndArray(uint32_t) {
        --skipped_;
        return true;
    }

    // Numbers come as text.
    bool Int(int) { return false; }
    bool Uint(unsigned) { return false; }
    bool Int64(int64_t) { return false; }
    bool Uint64(uint64_t) { return false; }
    bool Double(double) { return false; }

private:
    static constexpr uint32_t kKeyDepth = 3;  // open objects around a key: document, root, section

    uint32_t offset(const char* text) const { return static_cast<uint32_t>(text - stream_.head_); }
    uint32_t here() const { return static_cast<uint32_t>(stream_.src_ - stream_.head_); }
    KaJsonEntry& last() { return load_->entries[load_->count - 1]; }

    bool scalar(KaJsonKind kind, uint32_t value, uint32_t length) {
        if (skipped_ == 0 && depth_ > 0) {
            last().value = value;
            last().set(kind, length);
        }
        return true;
    }

    // Enters a container whose content is not for the table.
    bool skip(KaJsonKind kind) {
        if (skipped_++ == 0 && depth_ > 0) {
            last().value = here();
            last().set(kind, depth_ < kKeyDepth ? load_->count : 0);
        }
        return !brackets_.failed();
    }

    bool grow(uint32_t capacity) {
        void* entries = realloc(load_->entries, capacity * sizeof(KaJsonEntry));
        if (!entries) {
            out_of_memory_ = true;
            return false;
        }
        load_->entries = static_cast<KaJsonEntry*>(entries);
        capacity_ = capacity;
        return true;
    }

    const rj::InsituStringStream& stream_;
    const BracketStack& brackets_;
    JsonLoad* const load_;
    uint32_t capacity_ = 0;
    uint32_t depth_ = 0;               // open objects on the way document, root, section
    uint32_t skipped_ = 0;             // open brackets below that or beside it
    uint32_t parents_[kKeyDepth] = {}; // by depth, the entry of the open root and section
    bool out_of_memory_ = false;
};

const char* reasonOf(rj::ParseErrorCode code) {
    switch (code) {
        case rj::kParseErrorDocumentEmpty: return "no JSON value where one should begin";
        case rj::kParseErrorDocumentRootNotSingular: return "text after the end of the document";
        case rj::kParseErrorValueInvalid: return "not a JSON value";
        case rj::kParseErrorObjectMissName: return "missing a key in double quotes";
        case rj::kParseErrorObjectMissColon: return "missing a ':' after a key";
        case rj::kParseErrorObjectMissCommaOrCurlyBracket: return "missing a comma or '}' after a value";
        case rj::kParseErrorArrayMissCommaOrSquareBracket: return "missing a comma or ']' after a value";
        case rj::kParseErrorStringUnicodeEscapeInvalidHex: return "\\u without four hexadecimal digits";
        case rj::kParseErrorStringUnicodeSurrogateInvalid: return "\\u with half a surrogate pair";
        case rj::kParseErrorStringEscapeInvalid: return "an unknown escape or a bare control character in a string";
        case rj::kParseErrorStringMissQuotationMark: return "a string without its closing quote";
        case rj::kParseErrorStringInvalidEncoding: return "a string that is not UTF-8";
        case rj::kParseErrorNumberMissFraction: return "missing a digit after the decimal point";
        case rj::kParseErrorNumberMissExponent: return "missing a digit in an exponent";
        default: return "not JSON";
    }
}

bool fail(JsonLoad* load, const char* reason, size_t offset) {
    load->reason = reason;
    load->error_offset = static_cast<uint32_t>(offset);
    load->located = true;
    return false;
}

}  // namespace

bool loadJson(FileBuffer* file, JsonLoad* load) {
    if (file->size >= 3 && memcmp(file->text, "\xEF\xBB\xBF", 3) == 0) {
        return fail(load, "a byte order mark before the text: save as UTF-8 without one", 0);
    }
    rj::InsituStringStream stream(file->text);
    BracketStack brackets;
    TableBuilder builder(stream, brackets, load);
    if (!builder.reserve(file->size)) {
        load->reason = "out of memory";
        return false;
    }
    rj::GenericReader<Utf8, Utf8, BracketStack> reader(&brackets, BracketStack::kInitialSize);
    constexpr unsigned kFlags = rj::kParseInsituFlag | rj::kParseIterativeFlag | rj::kParseValidateEncodingFlag |
                                rj::kParseNumbersAsStringsFlag;
    const rj::ParseResult result = reader.Parse<kFlags>(stream, builder);
    if (builder.out_of_memory()) {
        load->reason = "out of memory";
        return false;
    }
    // The reader takes a NUL for the end of the text.
    const size_t end = result.IsError() ? result.Offset() : stream.Tell();
    if (end < file->size && file->text[end] == '\0') return fail(load, "a NUL byte in the text", end);
    if (result.IsError()) return fail(load, reasonOf(result.Code()), end);
    return true;
}
