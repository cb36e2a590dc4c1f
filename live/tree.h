// The records of one part.
#pragma once

#include <memory>
#include <string>

#include "ebo_live.h"
#include "parse/loads.h"

namespace ebo_live {

struct Tree {
    Tree() = default;
    ~Tree();
    Tree(const Tree&) = delete;
    Tree& operator=(const Tree&) = delete;

    KAEboParam* capture = nullptr;  // one of the three
    KAEboParam* playback = nullptr;
    EboAgcParam* gain = nullptr;
};

const EboLoad& loadOf(EboLivePart part);

// As the part's loader makes it; null when that fails.
std::shared_ptr<Tree> loadTree(EboLivePart part, const char* path);

// Built-in, and safe to dump; null when out of memory.
std::shared_ptr<Tree> defaultTree(EboLivePart part);

}  // namespace ebo_live
