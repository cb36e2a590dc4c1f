// The report for code hosts and editors.
#include <algorithm>
#include <cctype>
#include <nlohmann/json.hpp>

#include "ebo_version.h"
#include "report/check_report.h"
#include "report/finding_words.h"

namespace {

using Json = nlohmann::ordered_json;

std::string uriOf(const std::string& path) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string uri = !path.empty() && path[0] == '/' ? "file://" : "";
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80 && (std::isalnum(byte) != 0 || std::string("-._~/").find(c) != std::string::npos)) {
            uri += c;
        } else {
            uri += {'%', kDigits[byte >> 4], kDigits[byte & 15]};
        }
    }
    return uri;
}

const char* sarifLevel(CheckLevel level) {
    return level == CheckLevel::Info ? "note" : nameOf(level);
}

Json textOf(const std::string& text) {
    return {{"text", text}};
}

Json rules() {
    Json list = Json::array();
    for (const CheckCode* code : checkCodes()) {
        list.push_back({{"id", code->id},
                        {"shortDescription", textOf(code->title)},
                        {"helpUri", EBO_DOCS_URL "/check.md#codes"},
                        {"defaultConfiguration", {{"level", sarifLevel(code->level)}}}});
    }
    return list;
}

size_t ruleIndex(const CheckCode* code) {
    const auto& codes = checkCodes();
    return static_cast<size_t>(std::find(codes.begin(), codes.end(), code) - codes.begin());
}

struct Artifact {
    size_t index;  // among the files of the run
    std::string uri;

    Json location() const { return {{"uri", uri}, {"index", index}}; }
    Json physical(const TextPlace& place) const {
        Json json = {{"artifactLocation", location()}};
        if (place.line == 0) return json;
        json["region"] = {{"startLine", place.line},
                          {"startColumn", place.characters},
                          {"byteOffset", place.offset},
                          {"byteLength", place.length}};
        const size_t marked = markedCharacters(place);
        if (marked > 0) json["region"]["endColumn"] = place.characters + marked;
        return json;
    }
};

Json fixOf(const Artifact& artifact, const CheckFinding& finding) {
    Json replacements = Json::array();
    for (const TextEdit& edit : finding.edits) {
        Json replacement = {{"deletedRegion", {{"byteOffset", edit.offset}, {"byteLength", edit.length}}}};
        if (!edit.text.empty()) replacement["insertedContent"] = textOf(edit.text);
        replacements.push_back(replacement);
    }
    return {{"description", textOf((finding.isGuess ? "a guess: " : "") + finding.help)},
            {"artifactChanges",
             Json::array({{{"artifactLocation", artifact.location()}, {"replacements", replacements}}})}};
}

Json resultOf(const Artifact& artifact, const CheckReport& report, const CheckFinding& finding,
              const std::string& fingerprint) {
    Json json = {
        {"ruleId", finding.code->id},
        {"ruleIndex", ruleIndex(finding.code)},
        {"level", sarifLevel(report.levelOf(*finding.code))},
        {"message", textOf(messageOf(finding, "\n"))},
        {"locations", Json::array({{{"physicalLocation", artifact.physical(finding.place)}}})},
        {"partialFingerprints", {{"fileCodeAndText/v1", fingerprint}}},
    };
    for (const RelatedPlace& other : finding.related) {
        json["relatedLocations"].push_back({{"id", json["relatedLocations"].size()},
                                            {"physicalLocation", artifact.physical(other.place)},
                                            {"message", textOf(other.text)}});
    }
    if (!finding.edits.empty()) json["fixes"] = Json::array({fixOf(artifact, finding)});
    return json;
}

// Findings of which there are too many to list.
Json restOf(const Artifact& artifact, const CheckReport& report, const CheckCode& code, size_t count) {
    return {{"ruleId", code.id},
            {"ruleIndex", ruleIndex(&code)},
            {"level", sarifLevel(report.levelOf(code))},
            {"message", textOf("and " + std::to_string(count) + " more: " + code.title)},
            {"locations", Json::array({{{"physicalLocation", artifact.physical({})}}})}};
}

}  // namespace

void writeCheckSarif(const std::vector<CheckReport>& reports, std::ostream& out) {
    Json artifacts = Json::array();
    Json results = Json::array();
    Fingerprints fingerprints;
    for (const CheckReport& report : reports) {
        const std::string path = pathInFolder(report.file);
        const Artifact artifact = {artifacts.size(), uriOf(path)};
        artifacts.push_back({{"location", artifact.location()},
                             {"roles", Json::array({"analysisTarget"})},
                             {"mimeType", "application/json"}});
        for (const CheckFinding& finding : report.findings) {
            results.push_back(resultOf(artifact, report, finding, fingerprints.of(path, finding)));
        }
        for (const auto& [code, count] : report.left)
            results.push_back(restOf(artifact, report, *code, count));
    }
    const bool failed = failsRun(reports);
    const Json invocation = {{"executionSuccessful", true},
                             {"exitCode", failed ? 1 : 0},
                             {"exitCodeDescription", failed ? "problems found" : "no problems found"}};
    const Json driver = {{"name", "eboconf"},
                         {"version", EBO_VERSION},
                         {"informationUri", EBO_DOCS_URL "/check.md"},
                         {"rules", rules()}};
    const Json run = {{"tool", {{"driver", driver}}},
                      {"invocations", Json::array({invocation})},
                      {"artifacts", artifacts},
                      {"columnKind", "unicodeCodePoints"},
                      {"results", results}};
    const Json log = {{"$schema", "https://json.schemastore.org/sarif-2.1.0.json"},
                      {"version", "2.1.0"},
                      {"runs", Json::array({run})}};
    out << log.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}
