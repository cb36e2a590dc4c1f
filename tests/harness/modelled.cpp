#include "harness/modelled.h"

using namespace model;
using ka_recording::Op;

namespace {

Value documentOf(const std::string& text) {
    const std::optional<Value> document = readDocument(text);
    if (!document) throw std::logic_error(text);
    return *document;
}

// The number of calls so far, or those since then.
size_t callsOf([[maybe_unused]] Host& host) {
    if constexpr (Host::kRecords) return host.recorder().events.size();
    return 0;
}
void expectCalls([[maybe_unused]] Host& host, [[maybe_unused]] size_t since,
                 [[maybe_unused]] const std::vector<std::string>& want) {
    if constexpr (Host::kRecords) {
        std::vector<std::string> got;
        const auto& events = host.recorder().events;
        for (size_t i = since; i < events.size(); ++i)
            if (events[i].op != Op::Compare) got.push_back(toString(events[i]));
        EXPECT_EQ(got, want);
    }
}

}  // namespace

void Reading::run() {
    json text = {{root, json::object()}};
    if (!keys.is_null()) text[root][section.name] = keys;
    Document document(host, text.dump());
    ASSERT_TRUE(document.accepted());
    Expectation want;
    int want_mask = mask;
    expect(section, documentOf(text.dump()), root, without_mask ? nullptr : &want_mask, want);
    ASSERT_FALSE(want.aborts);
    if (want.leaks > 0) host.expectLeaks(want.leaks);
    host.clearLog();
    const size_t before = callsOf(host);
    const Outcome outcome =
        section.reader.read(document.parser(), root.c_str(), without_mask ? nullptr : &mask);
    expectCalls(host, before, want.calls);
    failed = outcome.failed;
    record_ = outcome.record;
    parts = partsOf(section, record_.get(), want.channels);
    EXPECT_EQ(failed, want.failed);
    EXPECT_EQ(mask, want_mask);
    EXPECT_EQ(differences(want.parts, parts), "");
    expectLog(host, want.log);
}

json Reading::value(const std::string& name) const {
    const Key& key = section.key(name);
    const auto part =
        parts.find(section.name + (key.kind == Kind::Word || key.kind == Kind::Map ? "." + name : ""));
    if (part == parts.end()) return nullptr;
    const std::string& bytes = part->second;
    if (key.kind == Kind::Word) return bytes;
    const bool is16 = key.kind == Kind::Int16 || key.kind == Kind::IntRow || key.kind == Kind::Bands;
    if (key.isInteger())
        return is16 ? json(get<int16_t>(bytes, key.offset)) : json(get<int32_t>(bytes, key.offset));
    if (key.kind == Kind::Float) return get<float>(bytes, key.offset);
    json numbers = json::array();
    if (key.kind == Kind::Map) {
        for (size_t at = 0; at < bytes.size(); at += 2) numbers.push_back(get<int16_t>(bytes, at));
        return numbers;
    }
    for (size_t i = 0; i < key.count; ++i) {
        const size_t at = key.offset + i * (key.kind == Kind::IntRow ? 2 : 4);
        numbers.push_back(is16 ? json(get<int16_t>(bytes, at)) : json(get<float>(bytes, at)));
    }
    return numbers;
}

Observation expectLoad(Host& host, Loader loader, const std::string& document) {
    Expectation want;
    expect(loader, readDocument(document), want);
    EXPECT_FALSE(want.aborts);
    if (want.leaks > 0) host.expectLeaks(want.leaks);
    const std::string path = host.file(document);
    host.clearLog();
    const size_t before = callsOf(host);
    bool loaded = false;
    Observation seen = observe(loader, path.c_str(), want.channels, [&] {
        if (!loaded) expectCalls(host, before, want.calls);
        loaded = true;
        Log log;
        for (const LogCall& line : host.log())
            log.push_back({line.error, line.level, line.function, line.format, line.text});
        host.clearLog();
        return log;
    });
    EXPECT_EQ(differences(want, seen), "");
    return seen;
}

json with(json document, const std::string& place, const json& value) {
    document[json::json_pointer(place)] = value;
    return document;
}

json without(json document, const std::string& place) {
    const json::json_pointer pointer(place);
    if (document.at(pointer.parent_pointer()).erase(pointer.back()) != 1) throw std::logic_error(place);
    return document;
}

std::vector<Place> allPlaces() {
    std::vector<Place> places;
    const json document = sampleDocument();
    for (const auto& [root, sections] : document.items()) {
        for (const auto& [section, keys] : sections.items()) {
            places.push_back({root, section, ""});
            for (const auto& [key, value] : keys.items()) places.push_back({root, section, key});
        }
    }
    return places;
}
