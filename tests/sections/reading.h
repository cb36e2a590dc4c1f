// One call of a section reader on a document of its own:
//
//     Reading dtd("dtd");               // complete and enabled
//     dtd.keys.erase("ksiThd_low");
//     dtd.run();
//     EXPECT_TRUE(dtd.failed);
#pragma once

#include <ebo_config.h>

#include <optional>
#include <stdexcept>

#include "harness/expect.h"
#include "sections/sections.h"

class Reading {
public:
    explicit Reading(const std::string& section_name);

    const Section& section;
    Host host;
    json keys;     // of the section; null: the document lacks the section
    int mask = 0;  // before and after
    int* model_en = &mask;
    std::string root = "ebo_configs";

    void run();
    void closeDocument() { document_.reset(); }

    bool failed = false;
    void* bytes() const {
        if (record == nullptr) throw std::runtime_error("no record");
        return record.get();
    }
    template <class T>
    T& as() const {
        return *static_cast<T*>(bytes());
    }

    // What the reader did, and nothing before or after; empty unless Host::kRecords.
    std::vector<ka_recording::Event> calls;
    std::vector<std::string> trace(std::initializer_list<ka_recording::Op> ops) const;

    // What is to be logged: up to and with the message of `missing`, or by a reader that succeeds. A bit of
    // the wake-up section is taken as set by the section itself.
    std::vector<ExpectedLine> expectedLines(const char* missing = nullptr) const;

private:
    std::optional<Document> document_;

public:
    std::shared_ptr<void> record;  // the last member: goes first
};

// A document with one section.
std::string documentOf(const std::string& root, const std::string& section, const json& keys);

// The section with all its samples.
json completeKeys(const std::string& section);
