#include "json_verdict.h"

#include <cstdlib>
#include <cstring>

// A namespace of our own: a host may use the same library with other settings.
#define RAPIDJSON_NAMESPACE ka_rapidjson
#include <rapidjson/reader.h>

#include "json_text.h"
#include "plain_text.h"

namespace rj = ka_rapidjson;

namespace {

// Memory for what the reader keeps of a text: its open brackets, and one string or number. One block that is
// large enough for all of it, since the reader does not expect to be refused more.
class ReaderMemory {
public:
    explicit ReaderMemory(const FileBuffer& file = {}) : size_(file.size + kSlack) {
        for (uint32_t i = 0; i < file.size; ++i) {
            if (file.text[i] == '[' || file.text[i] == '{') size_ += kBracket;
        }
        block_ = malloc(size_);
    }
    ~ReaderMemory() { free(block_); }
    ReaderMemory(const ReaderMemory&) = delete;
    ReaderMemory& operator=(const ReaderMemory&) = delete;

    size_t size() const { return block_ ? size_ : 0; }

    void* Realloc(void*, size_t, size_t) { return block_; }
    static void Free(void*) {}
    // The reader makes one itself where it is given none. Never here, so no test can reach these.
    static void* operator new(size_t) noexcept { return nullptr; }  // GCOVR_EXCL_LINE
    static void operator delete(void*) {}                           // GCOVR_EXCL_LINE

private:
    static constexpr size_t kBracket = 8;
    static constexpr size_t kSlack = 64;

    size_t size_ = 0;
    void* block_ = nullptr;
};

rj::ParseResult read(const char* text, ReaderMemory* memory, size_t* end) {
    constexpr unsigned kFlags =
        rj::kParseIterativeFlag | rj::kParseValidateEncodingFlag | rj::kParseNumbersAsStringsFlag;
    rj::StringStream stream(text);
    rj::GenericReader<rj::UTF8<>, rj::UTF8<>, ReaderMemory> reader(memory, memory->size());
    rj::BaseReaderHandler<> nothing;
    const rj::ParseResult result = reader.Parse<kFlags>(stream, nothing);
    *end = result.IsError() ? result.Offset() : stream.Tell();
    return result;
}

// To the library a number that no double can hold is an error; JSON sets no limit. Leaves of each number its
// first digit, in the same place, so that all else keeps its place too.
void shortenNumbers(char* text) {
    bool escapes;
    for (const char* at = text; *at != '\0'; ++at) {
        if (*at == '"') {
            at = skipString(at + 1, &escapes);
        } else if (plain_text::isDigit(*at)) {
            const char* const end = skipNumber(at);
            if (end) memset(text + (at + 1 - text), ' ', static_cast<size_t>(end - at - 1));
            at = end ? end - 1 : nullptr;
        }
        if (!at) return;  // the library comes no further
    }
}

// The first escape before `end` that is the second half of a surrogate pair without the first, which older
// states of the library go past; null when there is none.
const char* loneSecondHalf(const char* text, const char* end) {
    while ((text = static_cast<const char*>(memchr(text, '\\', static_cast<size_t>(end - text))))) {
        const char* const next = skipEscape(text);
        if (!next) return text;
        text = next;
    }
    return nullptr;
}

// Why the library stopped at `text`, which it takes for the end of the document when that is a NUL.
const char* reasonOf(rj::ParseErrorCode code, const char* text, bool at_end) {
    if (at_end) return "the text ends too early";
    if (*text == '\0') return "a NUL byte";
    const bool control = static_cast<unsigned char>(*text) < ' ';
    // One error, one line.
    // clang-format off
    switch (code) {
        case rj::kParseErrorDocumentRootNotSingular:       return "text after the end of the document";
        case rj::kParseErrorObjectMissName:                return "missing a key in double quotes";
        case rj::kParseErrorObjectMissColon:               return "missing a ':' after a key";
        case rj::kParseErrorObjectMissCommaOrCurlyBracket: return "missing a comma or '}' after a value";
        case rj::kParseErrorArrayMissCommaOrSquareBracket: return "missing a comma or ']' after a value";
        case rj::kParseErrorStringUnicodeEscapeInvalidHex: return "\\u without four hexadecimal digits";
        case rj::kParseErrorStringUnicodeSurrogateInvalid: return "\\u with half a surrogate pair";
        case rj::kParseErrorNumberMissFraction:            return "missing a digit after a decimal point";
        case rj::kParseErrorNumberMissExponent:            return "missing a digit in an exponent";
        case rj::kParseErrorStringEscapeInvalid:
        case rj::kParseErrorStringInvalidEncoding:  // by the state of the library
            if (control)                                   return "a line break or control character in a string";
            return *text == '\\'                          ?      "an unknown escape in a string"
                                                           :      "a string that is not UTF-8";
        default:                                           return "not a JSON value";
    }
    // clang-format on
}

}  // namespace

bool isJson(const FileBuffer& file, JsonLoad* load) {
    ReaderMemory memory(file);
    load->reason = kOutOfMemory;
    if (memory.size() == 0) return false;
    size_t end;
    rj::ParseResult result = read(file.text, &memory, &end);
    if (result.Code() == rj::kParseErrorNumberTooBig) {
        auto* const copy = static_cast<char*>(malloc(file.size + kFilePadding));
        if (!copy) return false;
        memcpy(copy, file.text, file.size + kFilePadding);
        shortenNumbers(copy);
        result = read(copy, &memory, &end);
        free(copy);
    }
    rj::ParseErrorCode code = result.Code();
    const char* stop = file.text + end;
    if (const char* const half = loneSecondHalf(file.text, stop)) {
        code = rj::kParseErrorStringUnicodeSurrogateInvalid;
        stop = half;
    }
    const bool at_end = stop == file.text + file.size;
    load->reason = nullptr;
    if (code == rj::kParseErrorNone && at_end) return true;
    load->located = true;
    load->offset = static_cast<uint32_t>(stop - file.text);
    load->reason = reasonOf(code, stop, at_end);
    return false;
}
