// Help with a file that is not JSON.
#pragma once

#include <string>
#include <string_view>

// `offset` is where the parser stopped.
std::string syntaxHelp(std::string_view text, size_t offset);
