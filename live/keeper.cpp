#include "keeper.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cinttypes>
#include <cstdio>
#include <cstring>

namespace ebo_live {
namespace {

std::string failure(const char* what, const std::string& path) {
    return std::string(what) + " " + path + ": " + std::strerror(errno);
}

// All of it on the storage, under a name that nothing reads.
std::string writeNew(const std::string& path, const std::string& bytes) {
    const Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0600));
    if (!file.open()) return failure("cannot create", path);
    if (writeAll(file.get(), bytes) && fsync(file.get()) == 0) return "";
    std::string why = failure("cannot write", path);
    unlink(path.c_str());
    return why;
}

}  // namespace

Keeper::Keeper(const EboLiveOptions& options) : on_(options.keep), most_bytes_(options.most_bytes) {
    const size_t slash = options.path.rfind('/');
    const size_t name = slash == std::string::npos ? 0 : slash + 1;
    folder_ = options.kept_folder.empty() ? options.path.substr(0, name) : options.kept_folder + "/";
    if (folder_.empty()) folder_ = "./";
    start_ = folder_ + options.path.substr(name);
}

std::string Keeper::nameOf(const char* kind, EboLivePart part) const {
    return start_ + "." + kind + "-" + eboLiveName(part);
}

Bytes Keeper::read(const char* kind, EboLivePart part) const {
    return on_ ? readFile(nameOf(kind, part), most_bytes_).bytes : nullptr;
}

std::vector<Fingerprint> Keeper::rejected(EboLivePart part) const {
    std::vector<Fingerprint> all;
    const Bytes text = read("rejected", part);
    if (text == nullptr) return all;
    const char* const end = text->data() + text->size();
    for (const char* at = text->data(); at < end; ++at) {
        Fingerprint one;
        const auto length = std::from_chars(at, end, one.length);
        if (length.ptr == end || *length.ptr != ' ') break;
        const auto hash = std::from_chars(length.ptr + 1, end, one.hash, 16);
        if (hash.ec != std::errc()) break;
        all.push_back(one);
        at = hash.ptr;  // the newline
        if (at == end) break;
    }
    return all;
}

std::string Keeper::keep(EboLivePart part, const std::string& bytes) const {
    if (!on_) return "";
    const std::string fresh = nameOf("new", part);
    const std::string good = nameOf("good", part);
    const std::string before = nameOf("before", part);
    if (std::string why = writeNew(fresh, bytes); !why.empty()) return why;
    if (rename(good.c_str(), before.c_str()) != 0 && errno != ENOENT) return failure("cannot rename", good);
    if (rename(fresh.c_str(), good.c_str()) != 0) return failure("cannot rename", fresh);
    return syncFolder();
}

std::string Keeper::keepBefore(EboLivePart part) const {
    if (!on_) return "";
    const std::string good = nameOf("good", part);
    const std::string before = nameOf("before", part);
    if (rename(before.c_str(), good.c_str()) == 0) return syncFolder();
    if (errno != ENOENT) return failure("cannot rename", before);
    if (unlink(good.c_str()) != 0 && errno != ENOENT) return failure("cannot remove", good);
    return syncFolder();
}

std::string Keeper::keepRejected(EboLivePart part, const std::vector<Fingerprint>& rejected) const {
    if (!on_) return "";
    std::string text;
    for (const Fingerprint& one : rejected) {
        char line[48];
        std::snprintf(line, sizeof line, "%" PRIu64 " %016" PRIx64 "\n", one.length, one.hash);
        text += line;
    }
    const std::string fresh = nameOf("new", part);
    if (std::string why = writeNew(fresh, text); !why.empty()) return why;
    if (rename(fresh.c_str(), nameOf("rejected", part).c_str()) != 0) return failure("cannot rename", fresh);
    return syncFolder();
}

// Until then the names may be as before after a loss of power.
std::string Keeper::syncFolder() const {
    const Descriptor folder(open(folder_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return folder.open() && fsync(folder.get()) == 0 ? "" : failure("cannot sync", folder_);
}

}  // namespace ebo_live
