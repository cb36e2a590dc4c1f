#include "check/choice/files.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <iterator>
#include <memory>
#include <set>
#include <system_error>
#include <utility>

#include "text/glob.h"

namespace {

namespace fs = std::filesystem;

// Files below a folder.
class Walk {
public:
    // `pattern`: of their paths below it.
    Walk(PathParts pattern, const std::function<bool(const std::string&)>& isExcluded)
        : pattern_(std::move(pattern)),
          isExcluded_(isExcluded),
          isDeep_(std::find(pattern_.begin(), pattern_.end(), "**") != pattern_.end()) {}

    // `folder` ends with a slash, or is empty: the one where we are.
    std::vector<std::string> filesIn(const std::string& folder) {
        enter(folder);
        return std::move(files_);
    }

private:
    struct Entry {
        std::string name;
        bool isFolder;
    };

    struct CloseFolder {
        void operator()(DIR* folder) const { closedir(folder); }
    };

    // As the folder says, if it does: an entry need not be within reach.
    static bool isFolderItself(const std::string& folder, const dirent& entry) {
        struct stat status = {};
        return entry.d_type == DT_DIR ||
               (entry.d_type == DT_UNKNOWN && lstat((folder + entry.d_name).c_str(), &status) == 0 &&
                S_ISDIR(status.st_mode));
    }

    // False when it cannot be read. Not by the iterator of <filesystem>, which ends the process when memory
    // fails.
    static bool read(const std::string& folder, std::vector<Entry>& entries) {
        const std::unique_ptr<DIR, CloseFolder> open(opendir(folder.empty() ? "." : folder.c_str()));
        if (!open) return false;
        errno = 0;
        while (const dirent* next = readdir(open.get())) {
            entries.push_back({next->d_name, isFolderItself(folder, *next)});
            errno = 0;
        }
        return errno == 0;
    }

    void enter(const std::string& folder) {
        std::vector<Entry> entries;
        if (!read(folder, entries)) {
            files_.push_back(folder.empty() ? "." : folder.substr(0, folder.size() - 1));
            return;
        }
        std::sort(entries.begin(), entries.end(),
                  [](const Entry& a, const Entry& b) { return a.name < b.name; });
        for (const Entry& entry : entries) take(folder + entry.name, entry);
    }

    void take(const std::string& path, const Entry& entry) {
        if (entry.name[0] == '.') return;
        below_.push_back(entry.name);
        if (entry.isFolder) {
            if ((isDeep_ || below_.size() < pattern_.size()) && !isExcluded_(path)) enter(path + '/');
        } else if (matchesGlob(pattern_, below_) && mayBeText(path) && !isExcluded_(path)) {
            files_.push_back(path);
        }
        below_.pop_back();
    }

    // A pipe would be waited for, and a linked folder is no file. What a broken link stands for is reported
    // as missing.
    static bool mayBeText(const std::string& path) {
        std::error_code unknown;
        const fs::file_status status = fs::status(path, unknown);
        return !fs::exists(status) || fs::is_regular_file(status);
    }

    PathParts pattern_;
    const std::function<bool(const std::string&)>& isExcluded_;
    bool isDeep_;
    PathParts below_;
    std::vector<std::string> files_;
};

bool isFolder(const std::string& path) {
    std::error_code unknown;
    return fs::is_directory(path, unknown);
}

// One that cannot be reached is to be reported.
bool mayBeFolder(const std::string& path) {
    std::error_code unknown;
    const fs::file_status status = fs::status(path, unknown);
    return !fs::status_known(status) || fs::is_directory(status);
}

bool exists(const std::string& path) {
    std::error_code unknown;
    return fs::exists(fs::symlink_status(path, unknown));
}

// What of a pattern stands for itself: "a/b/" of "a/b/*.json".
std::string fixedPart(const std::string& pattern) {
    const size_t slash = pattern.find_last_of('/', pattern.find_first_of("*?["));
    return slash == std::string::npos ? "" : pattern.substr(0, slash + 1);
}

}  // namespace

FoundFiles findFiles(const std::vector<std::string>& named,
                     const std::function<bool(const std::string&)>& isExcluded) {
    FoundFiles found;
    const auto isFile = [](const std::string& name) {
        return !isFolder(name) && (exists(name) || !isGlob(name));
    };
    std::set<std::string> seen;
    std::copy_if(named.begin(), named.end(), std::inserter(seen, seen.end()), isFile);
    for (const std::string& name : named) {
        if (isFile(name)) {
            found.files.push_back(name);
            continue;
        }
        const bool asFolder = isFolder(name);
        std::string folder = asFolder ? name : fixedPart(name);
        const std::string pattern = asFolder ? "**/*.json" : name.substr(folder.size());
        if (asFolder && folder.back() != '/') folder += '/';
        if (folder == "./") folder.clear();
        std::vector<std::string> files;
        if (folder.empty() || mayBeFolder(folder)) {
            files = Walk(partsOfPath(pattern), isExcluded).filesIn(folder);
        }
        if (files.empty()) found.empty.push_back(name);
        for (const std::string& file : files) {
            if (seen.insert(file).second) found.files.push_back(file);
        }
    }
    return found;
}
