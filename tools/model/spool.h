// Lets the framework, which loads regular files only, load what comes from a pipe: "eboconf diff <(...) b.json".
#pragma once

#include <string>

class SpooledFile {
public:
    // "-" is standard input.
    explicit SpooledFile(const std::string& file);
    ~SpooledFile();
    SpooledFile(const SpooledFile&) = delete;
    SpooledFile& operator=(const SpooledFile&) = delete;

    // What to open in place of the file: the file itself unless it is a pipe. Valid as long as this object.
    const std::string& path() const { return path_; }
    // `text` with the file's own name in place of that path.
    std::string named(std::string text) const;

private:
    std::string file_;
    std::string path_;
    std::string copy_;  // a temporary file; empty without one
};
