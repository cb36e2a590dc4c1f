// The dumps of the model: every line as its format, with the field of the same name for each number.
#include <cctype>
#include <cstdio>

#include "model/expectation.h"

namespace model {

namespace {

// The formats are those above.
#pragma GCC diagnostic ignored "-Wformat-nonliteral"

class Dump {
public:
    Dump(const char* function, const Parts& parts, Log& log)
        : function_(function), parts_(parts), log_(log) {}

    void blocks(const std::vector<Block>& blocks, int32_t mask) {
        for (const Block& block : blocks) {
            if (block.bit != 0 && (mask & block.bit) == 0) continue;
            if (*block.section && parts_.count(block.section) == 0) continue;
            for (const char* const line : block.lines) {
                named(line, block.section);
                rows(line, block.section);
            }
        }
    }
    void say(const std::string& format, const std::string& text) {
        log_.push_back({false, 5, function_, format, text});
    }
    void say(const std::string& text) { say(text, text); }

private:
    std::string print(const std::string& conversion, const std::string& section, const Key& key, size_t at) {
        const std::string& record = parts_.at(section);
        char text[64] = {};
        if (key.kind == Kind::Word) {
            const auto word = parts_.find(section + "." + key.name);
            return word == parts_.end() ? "(null)" : word->second;
        }
        if (key.kind == Kind::Float || key.kind == Kind::FloatRow) {
            const double value = get<float>(record, at);
            std::snprintf(text, sizeof text, conversion.c_str(), value);
        } else if (key.kind == Kind::Int32 || key.kind == Kind::Flag) {
            std::snprintf(text, sizeof text, conversion.c_str(), get<int32_t>(record, at));
        } else {
            std::snprintf(text, sizeof text, conversion.c_str(), static_cast<int>(get<int16_t>(record, at)));
        }
        return text;
    }

    void named(const std::string& line, const std::string& section) {
        const std::string format = line.substr(0, line.find('|'));
        std::string names = format.size() < line.size() ? line.substr(format.size() + 1) + " " : "";
        std::string text;
        std::string word;
        std::string label;  // the last word before a sign
        for (size_t i = 0; i < format.size(); ++i) {
            const bool letter = std::isalnum(static_cast<unsigned char>(format[i])) || format[i] == '_';
            if (letter) word = i > 0 && format[i - 1] != ' ' ? word + format[i] : std::string(1, format[i]);
            if (format[i] == '=' || format[i] == ':') label = word;
            if (format[i] != '%') {
                text += format[i];
                continue;
            }
            if (!names.empty()) {
                label = names.substr(0, names.find(' '));
                names.erase(0, label.size() + 1);
            }
            const Key& key = sectionOf(section).key(label);
            text += print(format.substr(i, 2), section, key, key.offset);
            ++i;
        }
        say(format, text);
    }

    // The rows of the table or of the bands under this heading.
    void rows(const std::string& heading, const std::string& section) {
        if (heading == "   BandPassThd   SuperEstFactor") {
            const Section& nlp = sectionOf(section);
            for (size_t band = 0; band < 8; ++band) {
                std::string text = "        ";
                for (const char* const name : {"band_pass_thd", "super_est_factor"}) {
                    const Key& key = nlp.key(name);
                    text += print("%2d", section, key, key.offset + band * 2 * sizeof(int16_t));
                    if (&key == &nlp.key("band_pass_thd")) text += "             ";
                }
                say("        %2d             %2d", text);
            }
        }
        if (section != "aes" || heading.compare(0, 3, "   ") != 0 || heading.back() != ':') return;
        const std::string table = heading.substr(3, heading.size() - 4);
        for (const Key& key : sectionOf(section).keys) {
            if (key.name.compare(0, table.size(), table) != 0) continue;
            std::string text;
            for (size_t i = 0; i < key.count; ++i) {
                const bool real = key.kind == Kind::FloatRow;
                text += print(real ? "%.4f  " : "%-8d", section, key,
                              key.offset + i * (real ? sizeof(float) : sizeof(int16_t)));
            }
            say("      %s", "      " + text.substr(0, 127));  // built in 128 characters
        }
    }

    const std::string function_;
    const Parts& parts_;
    Log& log_;
};

}  // namespace

void dumpAec(const Parts& parts, Log& log) {
    Dump dump("dumpEboAecConfig", parts, log);
    dump.blocks(aecBlocks(), get<int32_t>(parts.at("aec"), sectionOf("aec").key("model_aec_en").offset));
    dump.say("********************** End ******************************");
}

void dumpBeamForm(const Parts& parts, Log& log) {
    Dump dump("dumpEboBeamFormConfig", parts, log);
    dump.blocks(beamFormBlocks(), get<int32_t>(parts.at("bf"), sectionOf("bf").key("model_en").offset));
    dump.say("********************** End ***************************");
}

void dumpAo(const Parts& parts, Log& log) {
    Dump dump("dumpEboAoConfig", parts, log);
    const auto mask = get<int32_t>(parts.at("rx"), 0);
    char bits[16];
    std::snprintf(bits, sizeof bits, "%x", static_cast<unsigned>(mask));
    dump.blocks({aoBlocks().front()}, mask);
    dump.say("model_en = 0x%x", "model_en = 0x" + std::string(bits));
    dump.blocks({aoBlocks().begin() + 1, aoBlocks().end()}, mask);
    dump.say("********************** End ***************************");
}

}  // namespace model
