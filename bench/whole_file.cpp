#include "whole_file.h"

#include <cstdio>

std::string wholeFile(const char* path) {
    std::string text;
    std::FILE* file = std::fopen(path, "rb");
    if (file == nullptr) return text;
    std::fseek(file, 0, SEEK_END);
    text.resize(static_cast<size_t>(std::ftell(file)));
    std::rewind(file);
    text.resize(std::fread(text.data(), 1, text.size(), file));
    std::fclose(file);
    return text;
}
