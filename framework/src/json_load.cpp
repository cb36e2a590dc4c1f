#include "json_load.h"

#include <cstdlib>
#include <cstring>

#include "table_builder.h"
#include "text_stream.h"

namespace rj = ka_rapidjson;

namespace {

using Reader = rj::GenericReader<ValidUtf8, ValidUtf8, BracketStack>;

constexpr unsigned kRecursive = rj::kParseInsituFlag | rj::kParseNumbersAsStringsFlag;
constexpr unsigned kIterative = kRecursive | rj::kParseIterativeFlag;
// Another name for the reader's own way with strings and numbers.
constexpr unsigned kReadersOwn = kIterative | rj::kParseFullPrecisionFlag;

// Brackets open at once up to which the reader may recurse; tuning files have 3. That takes fewer instructions
// than its other way, which keeps the open brackets on the heap.
constexpr uint32_t kRecursionDepth = 8;

}  // namespace

// Goes past the plain characters of a string, and moves them up to what was decoded before them.
template <>
template <>
inline void Reader::ScanCopyUnescapedString(TextStream& stream, TextStream&) {
    char* const end = plain_text::skipPlain(stream.src_);
    const size_t length = static_cast<size_t>(end - stream.src_);
    if (stream.src_ != stream.dst_) {
        stream.document_->decoded = true;
        memmove(stream.dst_, stream.src_, length);
    }
    stream.src_ = end;
    stream.dst_ += length;
}

namespace {

// The first escape in the string at `at` that is the second half of a surrogate pair without the first, which the
// reader would go past; null when there is none.
char* loneSecondHalf(char* at) {
    for (; *at != '"' && *at != '\0'; ++at) {
        if (*at != '\\' || *++at != 'u' || (at[1] | 0x20) != 'd') continue;
        if (strchr("89abAB", at[2])) {
            at += 6;  // first half; whether the second follows is the reader's to say
        } else if (at[2] > '7') {
            return at - 1;
        }
    }
    return nullptr;
}

}  // namespace

// The reader's own way with strings, out of the way of the quick one.
template <>
template <>
[[gnu::noinline]] void Reader::ParseString<kIterative>(TextStream& stream, TableBuilder& builder,
                                                       bool is_key) {
    char* const half = loneSecondHalf(stream.src_ + 1);
    if (half) {
        const auto offset = reinterpret_cast<size_t>(half);
        RAPIDJSON_PARSE_ERROR(rj::kParseErrorStringUnicodeSurrogateInvalid, offset);
    }
    ParseString<kReadersOwn>(stream, builder, is_key);
}

// Most strings are plain up to their closing quote, and stay as they are.
template <>
template <>
inline void Reader::ParseString<kRecursive>(TextStream& stream, TableBuilder& builder, bool is_key) {
    char* const text = stream.src_ + 1;
    char* const end = plain_text::skipPlain(text);
    if (*end != '"') return ParseString<kIterative>(stream, builder, is_key);
    *end = '\0';
    stream.src_ = end + 1;
    const auto length = static_cast<uint32_t>(end - text);
    const bool taken = is_key ? builder.Key(text, length, false) : builder.String(text, length, false);
    if (!taken) RAPIDJSON_PARSE_ERROR(rj::kParseErrorTermination, stream.Tell());
}

// The reader's own way with numbers, out of the way of the quick one.
template <>
template <>
[[gnu::noinline]] void Reader::ParseNumber<kIterative>(TextStream& stream, TableBuilder& builder) {
    ParseNumber<kReadersOwn>(stream, builder);
}

// Most numbers are some digits, perhaps with a point among them.
template <>
template <>
inline void Reader::ParseNumber<kRecursive>(TextStream& stream, TableBuilder& builder) {
    char* const text = stream.src_;
    char* const end = plain_text::skipNumber(text);
    if (!end) return ParseNumber<kIterative>(stream, builder);
    stream.src_ = end;
    builder.RawNumber(text, static_cast<uint32_t>(end - text), false);
}

// Scalars are read alike in both ways; the program need not hold that code twice.
template <>
template <>
inline void Reader::ParseValue<kIterative>(TextStream& stream, TableBuilder& builder) {
    ParseValue<kRecursive>(stream, builder);
}

namespace {

constexpr char kOutOfMemory[] = "out of memory";
constexpr char kChanged[] = "changed while it was read";

// Why the reader stopped at `text`, which it takes for the end of the document when that is a NUL.
const char* reasonOf(rj::ParseErrorCode code, const char* text, bool at_end) {
    if (at_end) return "the text ends too early";
    if (*text == '\0') return "a NUL byte";
    if (code == rj::kParseErrorStringEscapeInvalid && *text != '\\') {
        return "a line break or control character in a string";
    }
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
        case rj::kParseErrorStringEscapeInvalid:           return "an unknown escape in a string";
        case rj::kParseErrorStringInvalidEncoding:         return "a string that is not UTF-8";
        case rj::kParseErrorNumberMissFraction:            return "missing a digit after a decimal point";
        case rj::kParseErrorNumberMissExponent:            return "missing a digit in an exponent";
        default:                                           return "not a JSON value";
    }
    // clang-format on
}

// Reads the text in one of the reader's two ways. Sets *too_deep when it has to be the other.
template <unsigned flags>
bool readText(FileBuffer* file, uint32_t max_depth, JsonLoad* load, bool* too_deep) {
    TextDocument document{file->text};
    TextStream stream(&document);
    BracketStack brackets;
    constexpr bool kBracketTaken = flags == kRecursive;
    TableBuilder builder(stream, brackets, max_depth, kBracketTaken, load);
    Reader reader(&brackets, BracketStack::kInitialSize);
    const rj::ParseResult result = reader.Parse<flags>(stream, builder);
    builder.finish();
    *too_deep = builder.tooDeep();
    if (*too_deep) return false;
    if (builder.outOfMemory()) {
        load->reason = kOutOfMemory;
        return false;
    }
    const size_t stop = result.IsError() ? result.Offset() : stream.Tell();
    const size_t end = stop - reinterpret_cast<size_t>(file->text);
    if (!result.IsError() && end == file->size) return true;
    // The text was decoded in place; what to say about it depends on the text on disk.
    if (!rereadFile(file)) {
        load->reason = kChanged;
        return false;
    }
    load->located = true;
    load->offset = static_cast<uint32_t>(end);
    load->reason = reasonOf(result.Code(), file->text + end, end == file->size);
    return false;
}

}  // namespace

bool loadJson(FileBuffer* file, JsonLoad* load) {
    if (file->size >= 3 && memcmp(file->text, "\xEF\xBB\xBF", 3) == 0) {
        load->reason = "a byte order mark: save the file as UTF-8 without one";
        load->located = true;
        return false;
    }
    // A tuning file has some 30 bytes per key, so this one allocation will do for it.
    load->capacity = file->size / 24 + 16;
    load->entries = static_cast<KaJsonEntry*>(malloc(load->capacity * sizeof(KaJsonEntry)));
    if (!load->entries) {
        load->reason = kOutOfMemory;
        return false;
    }
    bool too_deep = false;
    if (readText<kRecursive>(file, kRecursionDepth, load, &too_deep)) return true;
    if (!too_deep) return false;
    load->count = 0;
    if (!rereadFile(file)) {
        load->reason = kChanged;
        return false;
    }
    return readText<kIterative>(file, UINT32_MAX, load, &too_deep);
}
