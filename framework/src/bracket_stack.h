// Memory for the reader's stack of open brackets, 8 bytes per level: the first levels are part of this
// object, the rest comes from the heap.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <cstring>

class BracketStack {
public:
    static constexpr size_t kInitialSize = 256;

    BracketStack() = default;
    ~BracketStack() { free(heap_); }
    BracketStack(const BracketStack&) = delete;
    BracketStack& operator=(const BracketStack&) = delete;

    // The reader does not test for null. After a failed growth it goes on with the old block, whose slack
    // holds the one level that it writes before it calls the handler, and that call must end the reading.
    void* Realloc(void* old_block, size_t old_size, size_t new_size) {
        if (!old_block) return first_;
        void* const block = realloc(heap_, new_size + kSlack);
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
