#include "spool.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

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
    std::ofstream(copy_, std::ios::binary) << std::ifstream(path_, std::ios::binary).rdbuf();
    path_ = copy_;
}

SpooledFile::~SpooledFile() {
    if (!copy_.empty()) unlink(copy_.c_str());
}

std::string SpooledFile::named(std::string text) const {
    const size_t at = path_ != file_ ? text.find(path_) : std::string::npos;
    return at == std::string::npos ? text : text.replace(at, path_.size(), file_);
}
