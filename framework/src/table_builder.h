// Receives the reader's events and writes the table of roots, sections and keys.
#pragma once

#include <cstdlib>

#include "bracket_stack.h"
#include "json_load.h"
#include "rapidjson_reader.h"

class TableBuilder {
public:
    using Ch = char;
    using Stream = ka_rapidjson::InsituStringStream;

    // Refuses documents with more than `max_depth` brackets open at once. `bracket_taken`: whether the reader
    // goes past an opening bracket before it reports it.
    TableBuilder(const Stream& stream, const BracketStack& brackets, uint32_t max_depth, bool bracket_taken,
                 JsonLoad* load)
        : stream_(stream),
          brackets_(brackets),
          max_depth_(max_depth),
          bracket_size_(bracket_taken),
          load_(load) {}

    bool outOfMemory() const { return out_of_memory_ || brackets_.failed(); }
    bool tooDeep() const { return too_deep_; }

    bool Key(const char* name, uint32_t length, bool) {
        if (skipped_ > 0) return true;
        if (load_->count == load_->capacity && !grow()) return false;
        KaJsonEntry& entry = load_->entries[load_->count];
        entry.name = offset(name);
        entry.name_length = length;
        if (depth_ < kKeyDepth) parents_[depth_] = load_->count;
        ++load_->count;
        return true;
    }
    bool String(const char* text, uint32_t length, bool) {
        return scalar(KaJsonKind::kString, offset(text), length);
    }
    bool RawNumber(const char* text, uint32_t length, bool) {
        return scalar(KaJsonKind::kNumber, offset(text), length);
    }
    // The stream stands behind the word.
    bool Null() { return scalar(KaJsonKind::kNull, here() - 4, 4); }
    bool Bool(bool value) {
        const uint32_t length = value ? 4 : 5;
        return scalar(KaJsonKind::kBool, here() - length, length);
    }
    bool StartObject() {
        if (skipped_ > 0 || depth_ == kKeyDepth) return skip(KaJsonKind::kObject);
        if (depth_ > 0) last().value = here() - bracket_size_;
        ++depth_;
        return roomForLevel();
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

    // Never called: numbers come as text.
    bool Int(int) { return false; }
    bool Uint(unsigned) { return false; }
    bool Int64(int64_t) { return false; }
    bool Uint64(uint64_t) { return false; }
    bool Double(double) { return false; }

private:
    static constexpr uint32_t kKeyDepth = 3;  // open objects around a key: document, root, section

    uint32_t offset(const char* text) const { return static_cast<uint32_t>(text - stream_.head_); }
    // Where the reader stands; of use only between tokens, inside one the reader works on a copy of the
    // stream.
    uint32_t here() const { return offset(stream_.src_); }
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
        if (skipped_ == 0 && depth_ > 0) {
            last().value = here() - bracket_size_;
            last().set(kind, 0);
        }
        ++skipped_;
        return roomForLevel();
    }

    bool roomForLevel() {
        too_deep_ = depth_ + skipped_ > max_depth_;
        return !too_deep_ && !brackets_.failed();
    }

    bool grow() {
        const uint32_t capacity = load_->capacity * 2;
        void* const entries = realloc(load_->entries, capacity * sizeof(KaJsonEntry));
        out_of_memory_ = !entries;
        if (!entries) return false;
        load_->entries = static_cast<KaJsonEntry*>(entries);
        load_->capacity = capacity;
        return true;
    }

    const Stream& stream_;
    const BracketStack& brackets_;
    const uint32_t max_depth_;
    const uint32_t bracket_size_;  // bytes between an opening bracket and the stream when it is reported
    JsonLoad* const load_;
    uint32_t depth_ = 0;                // open objects on the way document, root, section
    uint32_t skipped_ = 0;              // open brackets beside or below that way
    uint32_t parents_[kKeyDepth] = {};  // by depth: the entry of the open root, of the open section
    bool out_of_memory_ = false;
    bool too_deep_ = false;
};
