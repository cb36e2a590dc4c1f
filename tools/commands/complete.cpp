// eboconf complete: what a shell offers for the last word of a command line. The completions of the shells
// run it; it reads the options of the other commands, so that a new one needs no second list.
#include <cstdio>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "check/report.h"
#include "commands/commands.h"
#include "commands/options.h"
#include "report/keys.h"

namespace {

using Words = std::vector<std::string>;

bool takesValue(const CLI::Option& option) {
    return option.get_items_expected_max() > 0;
}

// A description's first part: a shell shows it on one line.
std::string inShort(const std::string& description) {
    return description.substr(0, description.find_first_of("\n;"));
}

class Completion {
public:
    // `words`: those of the command line after the program's name, the last one unfinished.
    Completion(const CLI::App& app, const Words& words) : app_(app), command_(&app), words_(words) {
        if (words_.empty()) words_.emplace_back();
        word_ = words_.back();
        words_.pop_back();
    }

    ExitStatus run() {
        const CLI::Option* open = readWords();
        const size_t equals = word_.find('=');
        if (open != nullptr) {
            offerValues(*open, "");
        } else if (onlyFiles_) {
            mayBeFile_ = hasRoom() && !namesKeys() && valuesOf(*positionals().front()).empty();
        } else if (word_.empty() || word_[0] != '-') {
            offerPositionals();
        } else if (equals == std::string::npos) {
            offerOptions();
        } else if (const CLI::Option* option = optionNamed(word_.substr(0, equals))) {
            offerValues(*option, word_.substr(0, equals + 1));
        }
        for (const std::string& line : lines_) std::printf("%s\n", line.c_str());
        return mayBeFile_ ? kFailure : kSuccess;
    }

private:
    // The option whose value the last word is; null when it is none.
    const CLI::Option* readWords() {
        const CLI::Option* open = nullptr;
        for (const std::string& word : words_) {
            if (open != nullptr) {
                open = nullptr;
            } else if (onlyFiles_ || word.empty() || word[0] != '-' || word == "-") {
                readPositional(word);
            } else if (word == "--") {
                onlyFiles_ = true;
            } else {
                given_.insert(word.substr(0, word.find('=')));
                const CLI::Option* option = optionNamed(word);
                if (option != nullptr && takesValue(*option)) open = option;
            }
        }
        return open;
    }

    void readPositional(const std::string& word) {
        const auto named =
            app_.get_subcommands([&word](const CLI::App* command) { return command->get_name() == word; });
        if (command_ == &app_ && !named.empty()) {
            command_ = named.front();
        } else {
            ++positionals_;
        }
    }

    const CLI::Option* optionNamed(const std::string& name) const {
        return command_->get_option_no_throw(name);
    }

    std::vector<const CLI::Option*> positionals() const {
        return command_->get_options([](const CLI::Option* option) { return option->get_positional(); });
    }

    // For one more word that is no option.
    bool hasRoom() const {
        size_t most = 0;
        for (const CLI::Option* option : positionals()) {
            most += static_cast<size_t>(option->get_items_expected_max());
        }
        return positionals_ < most;
    }

    // In the place of files.
    bool namesKeys() const { return command_->get_name() == "keys"; }

    void offer(const std::string& word, const std::string& description) {
        if (word.compare(0, word_.size(), word_) != 0) return;
        lines_.push_back(description.empty() ? word : word + "\t" + inShort(description));
    }

    void offerValues(const CLI::Option& option, const std::string& before) {
        if (option.get_type_name().compare(0, 4, "CODE") == 0) return offerCodes(before);
        const Words values = valuesOf(option);
        for (const std::string& value : values) offer(before + value, "");
        mayBeFile_ = values.empty();
    }

    // The last one of a list.
    void offerCodes(const std::string& before) {
        const size_t comma = word_.rfind(',');
        const std::string begin = comma == std::string::npos ? before : word_.substr(0, comma + 1);
        for (const CheckCode* code : checkCodes()) offer(begin + code->id, code->title);
    }

    void offerOptions() {
        for (const CLI::Option* option : command_->get_options()) {
            if (option->get_lnames().empty() || option->get_group().empty()) continue;
            const std::string name = "--" + option->get_lnames().front();
            if (given_.count(name) == 0) offer(name, option->get_description());
        }
    }

    void offerPositionals() {
        if (command_ == &app_) {
            for (const CLI::App* command : app_.get_subcommands([](const CLI::App*) { return true; })) {
                if (!command->get_group().empty()) offer(command->get_name(), command->get_description());
            }
        } else if (!hasRoom()) {
            return;
        } else if (namesKeys()) {
            offerKeys();
        } else {
            offerValues(*positionals().front(), "");
        }
    }

    // By their full names, and once by what they are called in all sections.
    void offerKeys() {
        std::set<std::string> seen;
        for (const KeyHit& hit : findKeys("").list) {
            offer(hit.name(), hit.meaning());
            const bool shortName = hit.key && !word_.empty() && seen.insert(hit.key->key).second;
            if (shortName) offer(hit.key->key, hit.key->meaning);
        }
    }

    const CLI::App& app_;
    const CLI::App* command_;
    Words words_;
    std::string word_;
    std::set<std::string> given_;
    size_t positionals_ = 0;
    bool onlyFiles_ = false;
    bool mayBeFile_ = false;
    Words lines_;
};

}  // namespace

void addCompleteCommand(CLI::App& app, ExitStatus& status) {
    CLI::App* command =
        app.add_subcommand("complete", "Offers words for the end of a command line, for shells");
    command->group("");
    auto words = std::make_shared<Words>();
    command->add_option("WORDS", *words, "The words after \"eboconf\", the last one unfinished");
    command->footer(
        "Exit status: 0 the printed words are all that fits, 1 a file fits as well, 2 wrong usage.");
    command->callback([&app, words, &status] { status = Completion(app, *words).run(); });
}
