// Lets the framework, which loads regular files by their names only, load what comes from standard input or
// from a pipe ("eboconf diff <(...) b.json"): as a copy in memory, which has no name that could stay on a
// disk.
#pragma once

#include <string>

class SpooledFile {
public:
    enum class Copy { WhenNeeded, Always };

    // "-" is standard input. With Copy::Always a regular file is copied too, so that what is loaded and
    // text() are the same bytes.
    explicit SpooledFile(const std::string& file, Copy copy = Copy::WhenNeeded);
    ~SpooledFile();
    SpooledFile(const SpooledFile&) = delete;
    SpooledFile& operator=(const SpooledFile&) = delete;

    // What to open in place of the file. Valid as long as this object.
    const std::string& path() const { return path_; }
    // Why there is no copy though one was needed, naming the file; empty when all is well.
    const std::string& error() const { return error_; }
    // `text` with the file's own name in place of that path, and none that steers the terminal.
    std::string named(std::string text) const;
    // The bytes of the copy; empty without one.
    std::string text() const;

private:
    bool copyFrom(int input);

    std::string file_;
    std::string path_;
    std::string error_;
    int copy_ = -1;  // descriptor of a file without a name
};
