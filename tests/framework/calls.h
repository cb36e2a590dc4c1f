// What the framework asks of the system, per thread: counted, and made to fail on demand.
#pragma once

#include <sys/types.h>

#include <cstddef>

struct Calls {
    int open = 0;
    int open_flags = 0;  // of the last open
    int fstat = 0;
    int read = 0;
    int close = 0;
    int write = 0;
    int allocations = 0;
    ptrdiff_t held = 0;  // bytes allocated and not freed
    ptrdiff_t peak = 0;  // the most that `held` was

    // Orders.
    int fail_allocation = -1;     // the how-manieth allocation from now on fails, from 0
    bool fail_later_too = false;  // and all after it
    int read_errno = 0;           // what reads fail with
    int interrupts = 0;           // that many reads are interrupted
    int open_interrupts = 0;      // that many calls of open
    int write_interrupts = 0;     // that many writes
    int fstat_errno = 0;          // what fstat fails with
    size_t read_limit = 0;        // bytes that one read delivers at most
    int reads_to_end = -1;        // after that many reads the file is at its end
};

extern thread_local Calls calls;
