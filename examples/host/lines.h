// Lines on their way to the outside: whoever has something to say leaves it here and goes on, and one thread
// prints, which may block.
#pragma once

#include <cstdio>
#include <deque>
#include <mutex>
#include <string>

class Lines {
public:
    Lines();
    ~Lines();
    Lines(const Lines&) = delete;
    Lines& operator=(const Lines&) = delete;

    // To standard output or standard error. When many are waiting it is dropped.
    void add(FILE* to, std::string line);

    int descriptor() const { return waiting_; }  // readable when there are lines
    void print();

private:
    struct Line {
        FILE* to;
        std::string text;
    };

    const int waiting_;
    std::mutex mutex_;  // never held while something is printed
    std::deque<Line> lines_;
    unsigned dropped_ = 0;
};
