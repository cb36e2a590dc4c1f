#include "model/spool.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

SpooledFile::SpooledFile(const std::string& file) : file_(file), path_(file == "-" ? "/dev/stdin" : file) {
    struct stat status = {};
    if (stat(path_.c_str(), &status) != 0 || !S_ISFIFO(status.st_mode)) return;
    std::error_code error;
    copy_ = (std::filesystem::temp_directory_path(error) / "eboconf.XXXXXX").string();
    const int copy = mkstemp(copy_.data());
    if (copy < 0) {
        copy_.clear();  // the framework says what is wrong with the file as it is
        return;
    }
    close(copy);
    std::ifstream from(path_, std::ios::binary);
    std::ofstream to(copy_, std::ios::binary);
    const std::string text(std::istreambuf_iterator<char>(from), {});
    to.write(text.data(), static_cast<std::streamsize>(text.size()));
    to.close();
    // Half a copy is not the file: better that it is refused as the pipe that it is.
    if (to) {
        path_ = copy_;
    } else {
        std::fprintf(stderr, "eboconf: %s: cannot be copied to %s: %s\n", file_.c_str(), copy_.c_str(),
                     std::strerror(errno));
    }
}

SpooledFile::~SpooledFile() {
    if (!copy_.empty()) unlink(copy_.c_str());
}

std::string SpooledFile::named(std::string text) const {
    const size_t at = path_ != file_ ? text.find(path_) : std::string::npos;
    return at == std::string::npos ? text : text.replace(at, path_.size(), file_);
}
