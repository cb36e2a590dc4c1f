#include "model/section.h"

#include <strings.h>

#include <cstdlib>

namespace model {

namespace {

const Value* member(const Value* object, const std::string& name) {
    if (!object) return nullptr;
    const auto found = object->members.find(name);
    return found == object->members.end() ? nullptr : &found->second;
}

}  // namespace

Section::Section(const Value& document, const std::string& root, const std::string& name,
                 const std::string& function, Log& log)
    : reported_as(name), section_(member(member(&document, root), name)), function_(function), log_(log) {}

const Value* Section::find(const std::string& key, Value::Kind kind) const {
    const Value* const value = member(section_, key);
    return value && value->kind == kind ? value : nullptr;
}

bool Section::findInteger(const std::string& key, int32_t& out) const {
    const Value* const value = find(key, Value::Kind::Integer);
    if (!value || value->integer < INT32_MIN || value->integer > INT32_MAX) return false;
    out = static_cast<int32_t>(value->integer);
    return true;
}

bool Section::findReal(const std::string& key, float& out) const {
    const Value* value = find(key, Value::Kind::Real);
    if (!value) value = find(key, Value::Kind::Integer);
    if (!value) return false;
    out = std::strtof(value->text.c_str(), nullptr);
    return true;
}

// A text ends at its first NUL.
bool Section::findText(const std::string& key, std::string& out) const {
    const Value* const value = find(key, Value::Kind::Text);
    if (!value) return false;
    out = value->text.c_str();
    return true;
}

bool Section::status(int32_t& mask, int32_t bit) {
    std::string word;
    if (!findText("status", word)) return fail("status");
    enabled = strcasecmp(word.c_str(), "enable") == 0;
    if (enabled) mask |= bit;
    return true;
}

bool Section::integer(const std::string& key, int32_t& field) {
    return findInteger(key, field) || fail(key);
}

bool Section::integer(const std::string& key, int16_t& field) {
    int32_t whole = 0;
    if (!findInteger(key, whole)) return fail(key);
    field = static_cast<int16_t>(static_cast<uint32_t>(whole) & 0xFFFFU);
    return true;
}

bool Section::flag(const std::string& key, int32_t& field) {
    int32_t value = 0;
    if (!findInteger(key, value)) return fail(key);
    field = value == 0 ? 0 : 1;
    return true;
}

bool Section::real(const std::string& key, float& field) {
    return findReal(key, field) || fail(key);
}

bool Section::text(const std::string& key, std::string& out) {
    return findText(key, out) || fail(key);
}

bool Section::fail(const std::string& key) {
    report("find " + reported_as + " " + key + " failed");
    return false;
}

void Section::report(const std::string& text) {
    log_.push_back({true, 2, function_, "\x1b[31m\x1b[1m" + text + "\x1b[0m"});
}

void Section::say(int level, const std::string& text) {
    log_.push_back({false, level, function_, text});
}

}  // namespace model
