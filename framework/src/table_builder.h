// Receives the reader's events and writes the table of roots, sections and keys.
#pragma once

#include <cstdlib>
#include <cstring>

#include "bracket_stack.h"
#include "json_load.h"
#include "text_stream.h"

class TableBuilder {
public:
    using Ch = char;

    // Refuses documents with more than `max_depth` brackets open at once. `bracket_taken`: whether the reader
    // goes past an opening bracket before it reports it.
    TableBuilder(const TextStream& stream, const BracketStack& brackets, uint32_t max_depth,
                 bool bracket_taken, JsonLoad* load)
        : stream_(stream),
          brackets_(brackets),
          max_depth_(max_depth),
          bracket_size_(bracket_taken),
          load_(load),
          text_(stream.src_),
          next_(load->entries),
          end_(load->entries + load->capacity) {
        for (KaJsonEntry*& parent : parents_) parent = next_;
    }

    bool outOfMemory() const { return out_of_memory_ || brackets_.failed(); }
    bool tooDeep() const { return too_deep_; }

    bool Key(const char* name, uint32_t length, bool) {
        if (depth_ > key_depth_) return true;
        if (next_ == end_ && !grow()) return false;
        parents_[depth_] = next_;
        next_->name = offset(name);
        next_->name_length = length;
        ++next_;
        return true;
    }
    bool String(const char* text, uint32_t length, bool) {
        return value(KaJsonKind::kString, offset(text), length);
    }
    bool RawNumber(const char* text, uint32_t length, bool) {
        return value(KaJsonKind::kNumber, offset(text), length);
    }
    bool Null() { return value(KaJsonKind::kNull, here() - 4, 4); }
    bool Bool(bool is_true) {
        const uint32_t length = is_true ? 4 : 5;
        return value(KaJsonKind::kBool, here() - length, length);
    }
    bool StartObject() {
        value(KaJsonKind::kObject, here() - bracket_size_, 1);
        return enter();
    }
    bool EndObject(uint32_t) {
        --depth_;
        if (isValueOfKey()) {
            KaJsonEntry* const parent = parents_[depth_];
            parent->set(KaJsonKind::kObject, static_cast<uint32_t>(next_ - parent));
        }
        return true;
    }
    bool StartArray() {
        value(KaJsonKind::kArray, here() - bracket_size_, 0);
        if (depth_ < key_depth_) key_depth_ = depth_;
        return enter();
    }
    bool EndArray(uint32_t) {
        --depth_;
        if (depth_ == key_depth_) key_depth_ = kKeyDepth;
        return true;
    }

    // The table is complete when the reader has come to the end.
    void finish() {
        load_->count = static_cast<uint32_t>(next_ - load_->entries);
        if (!stream_.document_->decoded) return;  // only then can a name hold a NUL
        for (KaJsonEntry* entry = load_->entries; entry != next_; ++entry) {
            if (memchr(text_ + entry->name, 0, entry->name_length)) entry->packed |= KaJsonEntry::kHasNul;
        }
    }

    // Never called: numbers come as text.
    bool Int(int) { return false; }
    bool Uint(unsigned) { return false; }
    bool Int64(int64_t) { return false; }
    bool Uint64(uint64_t) { return false; }
    bool Double(double) { return false; }

private:
    static constexpr uint32_t kKeyDepth = 3;  // open brackets around a key: document, root, section

    uint32_t offset(const char* text) const { return static_cast<uint32_t>(text - text_); }
    uint32_t here() const { return offset(stream_.src_); }

    // Whether what stands here belongs to the last key of the table; not so at the top.
    bool isValueOfKey() const { return depth_ - 1 < key_depth_; }

    bool value(KaJsonKind kind, uint32_t offset, uint32_t extent) {
        if (isValueOfKey()) {
            next_[-1].value = offset;
            next_[-1].set(kind, extent);
        }
        return true;
    }

    bool enter() {
        too_deep_ = ++depth_ > max_depth_;
        return !too_deep_ && !brackets_.failed();
    }

    [[gnu::noinline]] bool grow() {
        ptrdiff_t parents[kKeyDepth + 1];
        for (uint32_t i = 0; i <= kKeyDepth; ++i) parents[i] = parents_[i] - load_->entries;
        const uint32_t capacity = load_->capacity * 2;
        void* const entries = realloc(load_->entries, capacity * sizeof(KaJsonEntry));
        out_of_memory_ = !entries;
        if (!entries) return false;
        load_->entries = static_cast<KaJsonEntry*>(entries);
        next_ = load_->entries + load_->capacity;
        end_ = load_->entries + capacity;
        for (uint32_t i = 0; i <= kKeyDepth; ++i) parents_[i] = load_->entries + parents[i];
        load_->capacity = capacity;
        return true;
    }

    const TextStream& stream_;
    const BracketStack& brackets_;
    const uint32_t max_depth_;
    const uint32_t bracket_size_;  // bytes between an opening bracket and the stream when it is reported
    JsonLoad* const load_;
    const char* const text_;
    KaJsonEntry* next_;  // first entry that is not written yet
    KaJsonEntry* end_;
    uint32_t depth_ = 0;                   // open brackets
    uint32_t key_depth_ = kKeyDepth;       // up to here keys are for the table; lower while an array is open
    KaJsonEntry* parents_[kKeyDepth + 1];  // by depth: the last key's entry
    bool out_of_memory_ = false;
    bool too_deep_ = false;
};
