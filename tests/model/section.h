// One section while the model reads it.
#pragma once

#include <string>

#include "model/expectation.h"

namespace model {

class Section {
public:
    Section(const Value& document, const std::string& root, const std::string& name,
            const std::string& function, Log& log);

    // The steps of a reader; each returns false when the reader fails there, after its message.
    bool status(int32_t& mask, int32_t bit);
    bool integer(const std::string& key, int32_t& field);
    bool integer(const std::string& key, int16_t& field);  // low 16 bits
    bool flag(const std::string& key, int32_t& field);     // 0 or 1
    bool real(const std::string& key, float& field);
    bool text(const std::string& key, std::string& out);

    // Lookups without a message; false, and `out` untouched, when there is no value of this type.
    bool findInteger(const std::string& key, int32_t& out) const;
    bool findReal(const std::string& key, float& out) const;
    bool findText(const std::string& key, std::string& out) const;

    bool fail(const std::string& key);
    void report(const std::string& text);          // an error line
    void say(int level, const std::string& text);  // an information line
    std::string reported_as;                       // the section's name in its messages
    bool enabled = false;

private:
    const Value* find(const std::string& key, Value::Kind kind) const;

    const Value* section_ = nullptr;
    std::string function_;
    Log& log_;
};

}  // namespace model
