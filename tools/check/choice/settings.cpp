#include "check/choice/settings.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <functional>
#include <iterator>
#include <optional>

#include "text/words.h"

#define TOML_EXCEPTIONS 0
#define TOML_ENABLE_FORMATTERS 0
#include <toml++/toml.h>

namespace {

const char* typeOfNode(const toml::node& node) {
    switch (node.type()) {
        case toml::node_type::table:
            return "a table";
        case toml::node_type::array:
            return "an array";
        case toml::node_type::string:
            return "a string";
        case toml::node_type::integer:
            return "an integer";
        case toml::node_type::floating_point:
            return "a number with a fraction or exponent";
        case toml::node_type::boolean:
            return "a boolean";
        default:
            return "a date or time";
    }
}

class SettingsReader {
public:
    explicit SettingsReader(Settings& settings) : settings_(settings) {}

    void read(const std::string& text) {
        const toml::parse_result document = toml::parse(text);
        if (document) {
            readTable(document.table(), kTables, "");
        } else {
            const toml::parse_error& error = document.error();
            add(error.source(), std::string(error.description()));
        }
        auto& faults = settings_.faults;
        std::stable_sort(faults.begin(), faults.end(), [](const SettingsFault& a, const SettingsFault& b) {
            return a.line != b.line ? a.line < b.line : a.column < b.column;
        });
    }

private:
    using Node = const toml::node&;
    using Name = const std::string&;

    // A key, and what reads its value.
    struct Row {
        const char* key;
        void (SettingsReader::*read)(Name name, Node node);
    };
    // A further table of the file is a row of kTables, with rows of its own.
    static const Row kTables[1];
    static const Row kCheckKeys[7];

    void readCheck(Name name, Node node) {
        const toml::table* table = node.as_table();
        if (table == nullptr) return wrongType(name, node, "a table");
        readTable(*table, kCheckKeys, " of [" + name + ']');
    }

    template <std::vector<std::string> CheckChoice::*list>
    void readCodes(Name name, Node node) {
        readTexts(name, node, [&](const std::string& code, Node item) {
            const std::string why = whyNoCode(code);
            if (!why.empty()) return add(item.source(), why);
            (settings_.check.*list).push_back(code);
        });
    }

    void readExclude(Name name, Node node) {
        readTexts(name, node, [this](const std::string& pattern, Node) {
            settings_.exclude.push_back(partsOfPath(pattern));
        });
    }

    void readFailOn(Name name, Node node) {
        const std::optional<std::string> level = node.value_exact<std::string>();
        if (!level) return wrongType(name, node, "a string");
        settings_.check.failOn = failOnNamed(*level);
        if (!settings_.check.failOn) unknown(node.source(), "level", *level, failOnNames());
    }

    void readMax(Name name, Node node) {
        const std::optional<int64_t> max = node.value_exact<int64_t>();
        if (!max) return wrongType(name, node, "an integer");
        if (*max < 0) return add(node.source(), inQuotes(name) + " is negative");
        settings_.check.max = static_cast<size_t>(*max);
    }

    template <size_t count>
    void readTable(const toml::table& table, const Row (&rows)[count], const std::string& where) {
        std::vector<std::string> known;
        for (const Row& row : rows) known.emplace_back(row.key);
        for (auto&& [key, node] : table) {
            const std::string name(key.str());
            const auto row = std::find(known.begin(), known.end(), name);
            if (row == known.end()) {
                const bool isTable = node.is_table() || node.is_array_of_tables();
                const char* const outside = isTable ? "" : " outside of a table";
                unknown(key.source(), isTable ? "table" : "key", name, known,
                        where.empty() ? outside : where);
            } else {
                (this->*rows[row - known.begin()].read)(name, node);
            }
        }
    }

    void readTexts(Name name, Node node, const std::function<void(const std::string&, Node)>& each) {
        const toml::array* array = node.as_array();
        if (array == nullptr) return wrongType(name, node, "an array of strings");
        for (Node item : *array) {
            if (const std::optional<std::string> text = item.value_exact<std::string>()) {
                each(*text, item);
            } else {
                add(item.source(),
                    "value of " + inQuotes(name) + " is " + typeOfNode(item) + "; expected a string");
            }
        }
    }

    void wrongType(Name name, Node node, const char* expected) {
        add(node.source(), inQuotes(name) + " is " + typeOfNode(node) + "; expected " + expected);
    }

    void unknown(const toml::source_region& source, const char* what, Name name,
                 const std::vector<std::string>& known, const std::string& where = "") {
        const std::string nearest = nearestName(name, known);
        std::string text = "unknown " + std::string(what) + ' ' + inQuotes(name) + where;
        if (!nearest.empty()) {
            text += "; did you mean " + inQuotes(nearest) + '?';
        } else {
            text += known.size() == 1 ? "; expected" : "; expected one of";
            for (const std::string& one : known) text += (one == known.front() ? " " : ", ") + inQuotes(one);
        }
        add(source, text);
    }

    void add(const toml::source_region& source, const std::string& text) {
        settings_.faults.push_back({source.begin.line, source.begin.column, text});
    }

    Settings& settings_;
};

const SettingsReader::Row SettingsReader::kTables[] = {{"check", &SettingsReader::readCheck}};

const SettingsReader::Row SettingsReader::kCheckKeys[] = {
    {"select", &SettingsReader::readCodes<&CheckChoice::select>},
    {"ignore", &SettingsReader::readCodes<&CheckChoice::ignore>},
    {"error", &SettingsReader::readCodes<&CheckChoice::error>},
    {"warn", &SettingsReader::readCodes<&CheckChoice::warn>},
    {"fail-on", &SettingsReader::readFailOn},
    {"max", &SettingsReader::readMax},
    {"exclude", &SettingsReader::readExclude},
};

// None, and `errno` says why.
std::optional<std::string> textOfFile(const std::string& path) {
    std::FILE* const file = std::fopen(path.c_str(), "rbe");
    if (file == nullptr) return std::nullopt;
    std::string text;
    char block[4096];
    while (const size_t n = std::fread(block, 1, sizeof(block), file)) text.append(block, n);
    const int error = std::ferror(file) != 0 ? errno : 0;
    std::fclose(file);
    errno = error;
    return error == 0 ? std::optional(text) : std::nullopt;
}

}  // namespace

Settings readSettings(const std::string& file) {
    Settings settings;
    settings.file = file;
    if (const std::optional<std::string> text = textOfFile(file)) {
        SettingsReader(settings).read(*text);
    } else {
        settings.faults.push_back({0, 0, std::string("cannot be read: ") + std::strerror(errno)});
    }
    return settings;
}
