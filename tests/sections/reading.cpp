#include "sections/reading.h"

#include <strings.h>

#include <algorithm>

using ka_recording::Event;
using ka_recording::Op;

json completeKeys(const std::string& section) {
    json keys = json::object();
    for (const Key& key : keysOf(section)) keys[key.name] = key.sample;
    return keys;
}

std::string documentOf(const std::string& root, const std::string& section, const json& keys) {
    json document = {{root, json::object()}};
    if (!keys.is_null()) document[root][section] = keys;
    return document.dump();
}

Reading::Reading(const std::string& section_name)
    : section(sectionOf(section_name)), keys(completeKeys(section_name)) {}

void Reading::run() {
    document_.emplace(host, documentOf(root, section.name, keys));
    ASSERT_TRUE(document_->accepted());
    host.clearLog();
    size_t before = 0;
    if constexpr (Host::kRecords) {
        before = host.recorder().events.size();
    }
    const Outcome outcome = section.reader.read(document_->parser(), root.c_str(), model_en);
    if constexpr (Host::kRecords) {
        const auto& events = host.recorder().events;
        calls.assign(events.begin() + static_cast<std::ptrdiff_t>(before), events.end());
    }
    failed = outcome.failed;
    record = outcome.record;
}

std::vector<std::string> Reading::trace(std::initializer_list<Op> ops) const {
    std::vector<std::string> lines;
    for (const Event& event : calls)
        if (std::find(ops.begin(), ops.end(), event.op) != ops.end()) lines.push_back(toString(event));
    return lines;
}

std::vector<ExpectedLine> Reading::expectedLines(const char* missing) const {
    std::vector<ExpectedLine> lines;
    for (const Key& key : keysOf(section.name)) {
        const std::string name = key.name;
        if (missing && name == missing) {
            lines.push_back(error(section.function, key.missing));
            return lines;
        }
        if (name == "status" && section.disabled &&
            strcasecmp(keys["status"].get<std::string>().c_str(), "enable"))
            lines.push_back(info(section.function, section.disabled));
        if (name == "mic_chn_map" && keys.contains(name))
            lines.push_back(
                info(section.function, "mic_chn_map:%s", "mic_chn_map:" + keys[name].get<std::string>()));
        if (std::string(section.name) == "wakeup" && name == "mode")
            lines.push_back({false, 4, section.function, green("Current wakeup mode is: %d\n"),
                             green("Current wakeup mode is: " + keys["mode"].dump() + "\n")});
    }
    return lines;
}
