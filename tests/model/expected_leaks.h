// Keeps the leak sanitizer, where there is one, from what is left over on purpose.
#pragma once

#if defined(__SANITIZE_ADDRESS__)
#define EBO_LEAKS_ARE_SEEN
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define EBO_LEAKS_ARE_SEEN
#endif
#endif
#ifdef EBO_LEAKS_ARE_SEEN
#include <sanitizer/lsan_interface.h>
#endif

namespace model {

// While it lives, blocks of this thread are not looked at, if any are expected to be left over.
class ExpectedLeaks {
public:
    explicit ExpectedLeaks(int blocks) : some_(blocks > 0) {
#ifdef EBO_LEAKS_ARE_SEEN
        if (some_) __lsan_disable();
#endif
    }
    ~ExpectedLeaks() {
#ifdef EBO_LEAKS_ARE_SEEN
        if (some_) __lsan_enable();
#endif
    }
    ExpectedLeaks(const ExpectedLeaks&) = delete;
    ExpectedLeaks& operator=(const ExpectedLeaks&) = delete;

private:
    [[maybe_unused]] const bool some_;
};

}  // namespace model
