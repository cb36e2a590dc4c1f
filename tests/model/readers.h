// The section readers of the model, and the framework's memory and log as they use it.
#pragma once

#include <map>

#include "model/expectation.h"

namespace model {

class Readers {
public:
    Readers(const Value& document, std::string root, Expectation& expectation)
        : document_(document), root_(std::move(root)), expectation_(expectation) {}

    // Whether it succeeds; then its record is among the parts. `mask` may be null.
    bool read(const Section& section, int32_t* mask);

    // The block is known by the name until it is released.
    void allocate(const std::string& name, const std::string& function, const std::string& assertion,
                  bool cleared = true);
    void release(const std::string& name, const std::string& safely_by = "");
    int blocks() const { return static_cast<int>(live_.size()); }

private:
    bool readKeys(const Section& section, int32_t* mask, std::string& record, bool* disabled);
    const Value* find(const Section& section, const Key& key);
    void take(const Section& section, const Key& key, const Value& value, std::string& record);
    void takeMap(const Section& section, const Key& key, const std::string& text, std::string& record);
    void review(const Section& section, const Key& key, const std::string& record);
    void report(const Section& section, const std::string& format, const std::string& text);
    void report(const Section& section, const std::string& text) { report(section, text, text); }
    void say(const Section& section, int level, const std::string& format, const std::string& text);

    const Value& document_;
    const std::string root_;
    Expectation& expectation_;
    std::map<std::string, int> live_;
    int made_ = 0;
};

}  // namespace model
