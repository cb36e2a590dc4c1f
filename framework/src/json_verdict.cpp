#include <cstdlib>
#include <cstring>

// A namespace of our own: a host may use the same library with other settings.
#define RAPIDJSON_NAMESPACE ka_rapidjson
#include <rapidjson/reader.h>

#include "json_load.h"
#include "json_text.h"

namespace rj = ka_rapidjson;

namespace {

// What the reader works in: one block, large enough, since it does not expect to be refused more.
struct ReaderMemory {
    void* block;

    void* Realloc(void*, size_t, size_t) const { return block; }
    static void Free(void*) {}
    // The reader makes one itself where it is given none. Never here, so no test can reach these.
    static void* operator new(size_t) noexcept { return nullptr; }  // GCOVR_EXCL_LINE
    static void operator delete(void*) {}                           // GCOVR_EXCL_LINE
};

// To the library a number that no double can hold is an error; JSON sets no limit. Leaves of each number its
// first digit, in the same place, so that all else keeps its place too. Returns the first escape that is not
// right, or the end: older states of the library go past half a surrogate pair.
const char* shortenNumbers(char* text) {
    while (*text != '\0') {
        const char* end = *text == '\\' ? skipEscape(text) : text + 1;
        if (!end) break;
        if (plain_text::isDigit(*text) && skipNumber(text)) {
            end = skipNumber(text);
            memset(text + 1, ' ', static_cast<size_t>(end - text - 1));
        }
        text += end - text;
    }
    return text;
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

void findFault(const FileBuffer& file, KaJsonError* error) {
    // What the reader keeps of a text: its open brackets, and one string or number.
    size_t size = file.size + 64;
    for (uint32_t i = 0; i < file.size; ++i) {
        if (file.text[i] == '[' || file.text[i] == '{') size += 8;
    }
    ReaderMemory memory = {malloc(size + file.size + kFilePadding)};
    error->reason = kOutOfMemory;
    if (!memory.block) return;
    char* const copy = static_cast<char*>(memory.block) + size;
    memcpy(copy, file.text, file.size + kFilePadding);
    const auto wrong_escape = static_cast<size_t>(shortenNumbers(copy) - copy);

    constexpr unsigned kFlags =
        rj::kParseIterativeFlag | rj::kParseValidateEncodingFlag | rj::kParseNumbersAsStringsFlag;
    rj::StringStream stream(copy);
    rj::GenericReader<rj::UTF8<>, rj::UTF8<>, ReaderMemory> reader(&memory, size);
    rj::BaseReaderHandler<> nothing;
    rj::ParseErrorCode code = reader.Parse<kFlags>(stream, nothing).Code();
    size_t stop = reader.HasParseError() ? reader.GetErrorOffset() : stream.Tell();
    free(memory.block);
    if (wrong_escape < stop) {
        code = rj::kParseErrorStringUnicodeSurrogateInvalid;
        stop = wrong_escape;
    }
    const KaTextPosition position = ka_text_position(file.text, stop);
    error->line = position.line;
    error->column = position.column;
    error->reason = memcmp(file.text, "\xEF\xBB\xBF", 3) == 0
                        ? "a byte order mark: save the file as UTF-8 without one"
                        : reasonOf(code, file.text + stop, stop == file.size);
}
