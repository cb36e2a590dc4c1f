#include "model/document.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <vector>

using nlohmann::json;

namespace model {

namespace {

// The JSON library refuses numbers that no double can hold. Such a number is replaced in the text, and comes
// back here by its place among the document's numbers.
using HugeNumbers = std::map<size_t, std::string>;

class Builder : public nlohmann::json_sax<json> {
public:
    explicit Builder(const HugeNumbers& huge) : huge_(huge) {}

    Value document;
    bool overflow = false;    // the reading ended at a number that is too large
    size_t overflow_end = 0;  // offset after it
    std::string overflow_text;
    size_t numbers = 0;  // read so far

    bool null() override { return put({}); }
    bool boolean(bool) override { return put({}); }
    // Comes with numbers that have a minus only; so a zero is a minus zero.
    bool number_integer(int64_t value) override {
        return number({Value::Kind::Integer, value == 0 ? "-0" : std::to_string(value), value, {}});
    }
    bool number_unsigned(uint64_t value) override {
        const bool fits = value <= INT64_MAX;
        return number({fits ? Value::Kind::Integer : Value::Kind::Real,
                       std::to_string(value),
                       fits ? static_cast<int64_t>(value) : 0,
                       {}});
    }
    bool number_float(double, const std::string& text) override {
        std::string written = text;  // with the point of the process's locale
        std::replace(written.begin(), written.end(), ',', '.');
        return number({Value::Kind::Real, written, 0, {}});
    }
    bool string(std::string& text) override { return put({Value::Kind::Text, text, 0, {}}); }
    bool binary(binary_t&) override { return false; }

    bool start_object(size_t) override {
        if (skipped_ > 0 || open_.size() == kKeyDepth) return skip();
        *slot_ = {Value::Kind::Object, "", 0, {}};
        open_.push_back(slot_);
        return true;
    }
    bool key(std::string& name) override {
        if (skipped_ == 0) slot_ = &open_.back()->members[name];
        return true;
    }
    bool end_object() override {
        if (skipped_ > 0) {
            --skipped_;
        } else {
            open_.pop_back();
        }
        return true;
    }
    bool start_array(size_t) override { return skip(); }
    bool end_array() override {
        --skipped_;
        return true;
    }
    bool parse_error(size_t position, const std::string& token, const json::exception& error) override {
        overflow = error.id == 406;
        overflow_end = position;
        overflow_text = token;
        return false;
    }

private:
    static constexpr size_t kKeyDepth = 3;  // open objects around a key: document, root, section

    bool put(Value value) {
        if (skipped_ == 0) *slot_ = std::move(value);
        return true;
    }
    bool number(Value value) {
        const auto huge = huge_.find(numbers++);
        if (huge != huge_.end()) value = {Value::Kind::Real, huge->second, 0, {}};
        return put(std::move(value));
    }
    bool skip() {
        put({});
        ++skipped_;
        return true;
    }

    const HugeNumbers& huge_;
    Value* slot_ = &document;
    std::vector<Value*> open_;
    size_t skipped_ = 0;  // open brackets that nobody looks into
};

}  // namespace

std::optional<Value> readDocument(const std::string& bytes) {
    // The JSON library passes over the one and takes the other for the end of the text.
    if (bytes.compare(0, 3, "\xEF\xBB\xBF") == 0 || bytes.find('\0') != std::string::npos)
        return std::nullopt;
    std::string text = bytes;
    HugeNumbers huge;
    for (;;) {
        Builder builder(huge);
        if (json::sax_parse(text, &builder)) return std::move(builder.document);
        if (!builder.overflow) return std::nullopt;
        const size_t size = builder.overflow_text.size();
        huge[builder.numbers] = builder.overflow_text;
        text.replace(builder.overflow_end - size, size, "0" + std::string(size - 1, ' '));
    }
}

}  // namespace model
