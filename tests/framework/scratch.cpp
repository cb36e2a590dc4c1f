#include "scratch.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <clocale>
#include <cstdlib>

ScratchFile::ScratchFile(std::string_view text)
    : fd_(memfd_create("scratch", MFD_CLOEXEC)), path_("/proc/self/fd/" + std::to_string(fd_)) {
    EXPECT_EQ(static_cast<ssize_t>(text.size()), write(fd_, text.data(), text.size()));
}

ScratchFile::~ScratchFile() {
    close(fd_);
}

Messages::Messages() {
    ka_install_log_sink(take, this);
}

Messages::~Messages() {
    ka_remove_log_sink();
}

void Messages::take(const KaLogMessage& message, void* self) {
    Messages& messages = *static_cast<Messages*>(self);
    const std::lock_guard<std::mutex> lock(messages.mutex_);
    messages.texts_.emplace_back(message.text);
}

std::vector<std::string> Messages::texts() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return texts_;
}

std::string Messages::without(std::string_view path) const {
    std::string all;
    for (std::string text : texts()) {
        if (const size_t at = text.find(path); at != std::string::npos) text.erase(at, path.size());
        all += text + "\n";
    }
    return all;
}

Document::Document(std::string_view text) {
    const ScratchFile file(text);
    const Messages messages;
    loaded = parser.parseFile(file.path());
    message = messages.without(file.path());
}

Section::Section(std::string_view text) : Document("{\"r\": {\"s\": {" + std::string(text) + "}}}") {
    EXPECT_NE(0, loaded) << message;
    EXPECT_NE(0, parser.getOptions("r", "s", &keys));
}

std::string repeat(std::string_view text, size_t times) {
    std::string all;
    all.reserve(text.size() * times);
    while (times-- > 0) all += text;
    return all;
}

CommaLocale::CommaLocale() {
    setenv("LOCPATH", EBO_LOCALES, 1);
    EXPECT_NE(nullptr, setlocale(LC_ALL, "de_DE.UTF-8"));
    EXPECT_STREQ(",", localeconv()->decimal_point);
}

CommaLocale::~CommaLocale() {
    setlocale(LC_ALL, "C");
    unsetenv("LOCPATH");
}
