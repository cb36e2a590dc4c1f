#include <sstream>

#include "ka/recording.h"

namespace ka_recording {

std::string toString(const LogCall& line) {
    std::ostringstream text;
    text << '[' << (line.error ? "err" : "log") << " 0x" << std::hex << line.channel << std::dec << ' '
         << line.level << ' ' << line.tag << ' ' << line.function << ':' << line.line << "] " << line.text
         << '{' << line.format << '}';
    return text.str();
}

}  // namespace ka_recording
