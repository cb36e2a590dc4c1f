// Tuning files gone wrong at random.
#pragma once

#include <random>
#include <string>
#include <vector>

// A key, or a section or root object; `value` is the raw text of what is no object.
struct Tree {
    std::string name;
    std::string value;
    std::vector<Tree> children;
};

Tree treeOf(const std::string& json);

// One to four faults: names, values, order, repetitions, and now and then bytes.
std::string mutated(Tree tree, std::mt19937& random);
