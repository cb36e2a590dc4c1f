#include "text/terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <sstream>

#include "text/width.h"

namespace {

Colours g_colours = Colours::OnTerminal;

bool hasColours() {
    static const bool has = [] {
        const char* no = std::getenv("NO_COLOR");
        const char* terminal = std::getenv("TERM");
        return isatty(STDOUT_FILENO) != 0 && (no == nullptr || no[0] == '\0') && terminal != nullptr &&
               std::strcmp(terminal, "dumb") != 0;
    }();
    return has;
}

}  // namespace

void chooseColours(Colours choice) {
    g_colours = choice;
}

bool colours() {
    return g_colours == Colours::OnTerminal ? hasColours() : g_colours == Colours::Always;
}

size_t columns() {
    constexpr size_t kNarrowest = 40;
    winsize size = {};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return 80;
    return std::max<size_t>(size.ws_col, kNarrowest);
}

std::string styled(Style style, const std::string& text) {
    if (!colours()) return text;
    const char* const codes[] = {"1", "2", "31", "32"};
    return std::string("\x1b[") + codes[static_cast<int>(style)] + "m" + text + "\x1b[0m";
}

std::string wrapped(const std::string& text, size_t indent, size_t width) {
    std::istringstream words(text);
    words.exceptions(std::ios::badbit);  // which is all that a stream says of failing memory
    std::string result;
    size_t column = 0;
    for (std::string word; words >> word;) {
        const size_t taken = widthOf(word);
        if (column != 0 && column + 1 + taken > width) {
            result += '\n';
            column = 0;
        }
        result += column == 0 ? std::string(indent, ' ') + word : ' ' + word;
        column += (column == 0 ? indent : 1) + taken;
    }
    return result + '\n';
}

std::string padded(const std::string& text, size_t width) {
    const size_t columnsTaken = widthOf(text);
    return columnsTaken < width ? text + std::string(width - columnsTaken, ' ') : text;
}
