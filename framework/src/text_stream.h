// The text as the JSON library's reader sees it.
#pragma once

#include "plain_text.h"
#include "rapidjson_reader.h"

struct TextDocument {
    char* text;
    bool decoded = false;  // a string in it is no longer what it was in the file
    size_t indent = 0;     // spaces behind the last line break
};

// A place in a text that is decoded as it is read: strings are written over their source. The reader takes a
// copy for each number, and for each string that is not plain, and assigns it back at their end.
struct TextStream {
    using Ch = char;

    explicit TextStream(TextDocument* document) : src_(document->text), document_(document) {}
    TextStream(const TextStream& other) : src_(other.src_), document_(other.document_) {}
    // Where to write is of no use behind the end of a string; copying it too costs a stall of the processor.
    TextStream& operator=(const TextStream& other) {
        src_ = other.src_;
        return *this;
    }
    ~TextStream() = default;

    char Peek() const { return *src_; }
    char Take() { return *src_++; }
    // The address itself: the reader only takes differences, or hands it on as the place of an error.
    size_t Tell() const { return reinterpret_cast<size_t>(src_); }
    char* PutBegin() { return dst_ = src_; }
    void Put(char c) { *dst_++ = c; }
    size_t PutEnd(const char* begin) const { return static_cast<size_t>(dst_ - begin); }

    char* src_;            // next byte to read
    char* dst_ = nullptr;  // next byte to write
    TextDocument* const document_;
};

template <>
struct ka_rapidjson::StreamTraits<TextStream> {
    enum { copyOptimization = 1 };
};

// The reader finds this one by its argument.
inline void SkipWhitespace(TextStream& stream) {
    const char* const text = stream.src_;
    if (static_cast<unsigned char>(text[0]) > ' ') return;
    if (text[0] == ' ' && static_cast<unsigned char>(text[1]) > ' ') {
        ++stream.src_;
    } else {
        stream.src_ = plain_text::skipBlanks(stream.src_, &stream.document_->indent);
    }
}

// UTF-8 that is validated where the reader would only copy it.
struct ValidUtf8 : ka_rapidjson::UTF8<> {};

template <>
struct ka_rapidjson::Transcoder<ValidUtf8, ValidUtf8>
    : ka_rapidjson::Transcoder<ka_rapidjson::UTF8<>, ka_rapidjson::UTF8<>> {
    template <typename From, typename To>
    static bool Transcode(From& from, To& to) {
        return UTF8<>::Validate(from, to);
    }
};
