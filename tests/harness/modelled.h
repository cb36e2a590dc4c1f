// Section readers and loads, run over a host and compared with the model in all that they do: record, mask,
// log, blocks left over and, over the recording framework, every call.
//
//     Reading dtd("dtd");  // complete and enabled
//     dtd.keys.erase("ksiThd_low");
//     dtd.run();
//     EXPECT_TRUE(dtd.failed);
#pragma once

#include <ebo_config.h>

#include <optional>

#include "harness/expect.h"
#include "model/observation.h"

using model::json;

class Reading {
public:
    explicit Reading(const std::string& name) : section(model::sectionOf(name)), keys(sampleOf(section)) {}

    const model::Section& section;
    Host host;
    json keys;     // null: the document lacks the section
    int mask = 0;  // before and after
    bool without_mask = false;
    std::string root = "ebo_configs";

    void run();

    bool failed = false;
    model::Parts parts;
    // What the record holds of a key: null for a null pointer.
    json value(const std::string& key) const;

private:
    std::shared_ptr<void> record_;  // the last member: goes first
};

// Loads, dumps and destroys.
model::Observation expectLoad(Host& host, model::Loader loader, const std::string& document);

// The complete document with the place filled with a value, or taken out: "/ebo_configs/aec/delay_len".
json with(json document, const std::string& place, const json& value);
json without(json document, const std::string& place);

// Places of all sections and of all their keys, and the key that is missing when the place is.
struct Place {
    std::string root, section, key;  // key empty: the whole section
    std::string path() const { return "/" + root + "/" + section + (key.empty() ? "" : "/" + key); }
};
std::vector<Place> allPlaces();
