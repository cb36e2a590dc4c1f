// What a host may tell the kit, in a source that it hands to ebo_add_framework_tests(... SOURCES).
#pragma once

#include <cstddef>
#include <string>

// With EBO_KIT_FILES=OFF, and then required: from now on parseFile(name) reads this text, until it gets
// another one. The text is lent for the call.
void kitPutDocument(const char* name, const char* text, size_t size);

// What has gone to the log since the last call, message after message, each as formatted. Without it the kit
// watches what is written to standard error while it logs.
std::string kitTakeLog();
