// Which findings somebody wants to see, how bad they are, and which of them are a failure.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "check/report.h"

// In the order of FailOn.
const std::vector<std::string>& failOnNames();
// None when nothing is named so.
std::optional<FailOn> failOnNamed(const std::string& name);

// What a command line says, or an eboconf.toml.
struct CheckChoice {
    // Each a code or what several codes begin with, as "EBO2". What is longer counts: of select and ignore,
    // where a tie is ignored, and of error and warn, where it is an error.
    std::vector<std::string> select = {};  // empty: nothing is said, so all
    std::vector<std::string> ignore = {};
    std::vector<std::string> error = {};
    std::vector<std::string> warn = {};
    std::optional<FailOn> failOn = {};
    std::optional<size_t> max = {};  // findings of a file
};

// Why it is neither a code nor what one begins with; empty when it is.
std::string whyNoCode(const std::string& text);

// Drops the findings that are not wanted, gives the others their level, keeps the worst `max` of them, and
// says which are a failure.
// What the command line says of a code counts before what the file says. That a file cannot be read, or is no
// JSON, only an `ignore` can leave out: nothing else is known of it.
void choose(CheckReport& report, const CheckChoice& line, const CheckChoice& file);
