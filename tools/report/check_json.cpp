// The report for programs. docs/check-report.schema.json describes it.
#include <nlohmann/json.hpp>

#include "report/check_report.h"

namespace {

using Json = nlohmann::ordered_json;

Json findingOf(const CheckReport& report, const CheckFinding& finding) {
    const TextPlace& place = finding.place;
    Json json = {{"code", finding.code->id}, {"level", nameOf(report.levelOf(*finding.code))},
                 {"line", place.line},       {"column", place.column},
                 {"offset", place.offset},   {"length", place.length},
                 {"message", finding.text},  {"device", finding.device}};
    if (!finding.help.empty()) json["help"] = finding.help;
    for (const TextEdit& edit : finding.edits) {
        json["edits"].push_back({{"offset", edit.offset}, {"length", edit.length}, {"text", edit.text}});
    }
    if (!finding.edits.empty()) json["guess"] = finding.isGuess;
    for (const RelatedPlace& other : finding.related) {
        json["related"].push_back({{"line", other.place.line},
                                   {"column", other.place.column},
                                   {"offset", other.place.offset},
                                   {"length", other.place.length},
                                   {"message", other.text}});
    }
    return json;
}

Json reportOf(const CheckReport& report) {
    Json findings = Json::array();
    for (const CheckFinding& finding : report.findings) findings.push_back(findingOf(report, finding));
    Json log = Json::array();
    Json left = Json::object();
    Json loads = Json::array();
    for (const CheckLoad& load : report.loads) {
        loads.push_back({{"part", load.load->name},
                         {"outcome", nameOf(load.outcome)},
                         {"lacks", load.lacks},
                         {"log", load.log}});
        for (const std::string& message : load.log) log.push_back(message);
    }
    for (const auto& [code, count] : report.left) left[code->id] = count;
    return {{"file", report.file},
            {"load", report.words()},
            {"outcome", nameOf(report.outcome())},
            {"log", log},
            {"errors", report.count(CheckLevel::Error)},
            {"warnings", report.count(CheckLevel::Warning)},
            {"infos", report.count(CheckLevel::Info)},
            {"loads", loads},
            {"left", left},
            {"findings", findings}};
}

}  // namespace

void writeCheckJson(const std::vector<CheckReport>& reports, std::ostream& out) {
    Json files = Json::array();
    for (const CheckReport& report : reports) files.push_back(reportOf(report));
    // A file name need not be UTF-8.
    out << Json{{"version", 1}, {"files", files}}.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}
