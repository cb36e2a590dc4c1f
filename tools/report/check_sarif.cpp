// The report for code hosts and editors.
#include <algorithm>
#include <cctype>
#include <nlohmann/json.hpp>

#include "ebo_version.h"
#include "report/check_report.h"

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

Json rules() {
    Json list = Json::array();
    for (const CheckCode* code : checkCodes()) {
        list.push_back({{"id", code->id},
                        {"shortDescription", {{"text", code->title}}},
                        {"defaultConfiguration", {{"level", sarifLevel(code->level)}}}});
    }
    return list;
}

size_t ruleIndex(const CheckCode* code) {
    const auto& codes = checkCodes();
    return static_cast<size_t>(std::find(codes.begin(), codes.end(), code) - codes.begin());
}

Json resultOf(const std::string& file, const CheckFinding& finding) {
    std::string text = finding.text + "\nDevice: " + finding.device;
    if (!finding.help.empty()) text += "\nHelp: " + finding.help;
    Json location = {{"artifactLocation", {{"uri", uriOf(file)}}}};
    if (finding.place.line != 0) {
        location["region"] = {{"startLine", finding.place.line},
                              {"startColumn", finding.place.characters},
                              {"byteOffset", finding.place.offset},
                              {"byteLength", finding.place.length}};
    }
    return {{"ruleId", finding.code->id},
            {"ruleIndex", ruleIndex(finding.code)},
            {"level", sarifLevel(finding.code->level)},
            {"message", {{"text", text}}},
            {"locations", Json::array({{{"physicalLocation", location}}})}};
}

}  // namespace

void writeCheckSarif(const std::vector<CheckReport>& reports, std::ostream& out) {
    Json results = Json::array();
    for (const CheckReport& report : reports) {
        for (const CheckFinding& finding : report.findings) results.push_back(resultOf(report.file, finding));
    }
    const Json driver = {{"name", "eboconf"}, {"version", EBO_VERSION}, {"rules", rules()}};
    const Json run = {
        {"tool", {{"driver", driver}}}, {"columnKind", "unicodeCodePoints"}, {"results", results}};
    const Json log = {{"$schema", "https://json.schemastore.org/sarif-2.1.0.json"},
                      {"version", "2.1.0"},
                      {"runs", Json::array({run})}};
    out << log.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}
