#include "check/file.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <mutex>
#include <thread>
#include <utility>

#include "check/names.h"
#include "check/section.h"
#include "check/syntax.h"
#include "check/types.h"
#include "model/load_log.h"
#include "model/places.h"
#include "text/words.h"

namespace {

void checkSyntax(CheckReport& report, const CheckSource& source) {
    const KaJsonError& error = source.error();
    std::string reason = error.reason;
    const std::string device = report.words() + " fails: nothing of the file is read";
    if (error.line == 0) {
        if (error.system_error != 0) reason += std::string(": ") + std::strerror(error.system_error);
        report.add({&kUnreadable, {}, reason, device, {}});
        return;
    }
    const size_t offset = source.lines().offsetOf(error.line, error.column);
    report.add({&kInvalidJson, source.lines().place(offset, 1), "invalid JSON: " + reason, device,
                syntaxHelp(source.text(), offset)});
}

// The root object is missing or none: all of its sections are missing.
void checkMissingRoot(CheckReport& report, CheckPass& pass, const CheckAbsence& absence) {
    const bool required = pass.steps.front().required;
    std::string messages;
    for (const CheckStep& step : pass.steps) {
        const std::string message = plainText(missingMessage(step.section->rows[0]));
        pass.load.logs(message);
        messages += (messages.empty() ? "" : ", ") + message;
        if (step.required) break;
    }
    const bool fatal = pass.chosen && required;
    report.add({fatal ? absence.error : absence.warning, absence.place, absence.text,
                pass.load.words + (required ? " fails: " : " goes on without any record: ") + messages,
                absence.help});
    if (fatal) pass.load.ends(CheckOutcome::Fails);
}

void checkStep(CheckReport& report, CheckSource& source, CheckPass& pass, const CheckStep& step,
               const KaJsonItem& root, CheckNames& names) {
    const std::string name = step.section->name;
    const KaJsonItem* item = names.last(name);
    if (item != nullptr && item->kind == KaJsonKind::kObject) {
        checkSection(report, source, pass, step, *item);
    } else if (item != nullptr) {
        checkMissingSection(report, pass, step,
                            {&kWrongType, &kWrongTypeLeftOut, source.valueOf(*item),
                             "section " + quoted(name) + " is " + typeOf(*item) + "; expected an object",
                             "write " + quoted(name) + ": { \"status\": ... }"});
    } else if (const KaJsonItem* slip = names.takeSlip(name)) {
        const std::string written = quoted(CheckSource::name(*slip));
        checkMissingSection(report, pass, step,
                            {&kMissingSection, &kSectionLeftOut, source.nameOf(*slip),
                             "section " + quoted(name) + " is missing from " + quoted(pass.root()) +
                                 ", which has " + written + " instead",
                             "did you mean " + quoted(name) + "? Rename " + written});
    } else {
        checkMissingSection(
            report, pass, step,
            {&kMissingSection, &kSectionLeftOut, source.nameOf(root),
             "section " + quoted(name) + " is missing from " + quoted(pass.root()),
             step.section->whenDisabled != EboDisabled::IsRead
                 ? "add " + quoted(name) + ": { \"status\": \"disable\" }, or enable it"
                 : "add " + quoted(name) + " with all its keys; a disabled section needs them too"});
    }
}

void checkPass(CheckReport& report, CheckSource& source, CheckPass& pass, CheckNames& roots) {
    const KaJsonItem* root = roots.last(pass.root());
    const std::string name = quoted(pass.root());
    if (root == nullptr) {
        if (!pass.chosen) return;  // another loader's, and not in this file
        const KaJsonItem* slip = roots.takeSlip(pass.root());
        const std::string written = slip != nullptr ? quoted(CheckSource::name(*slip)) : std::string();
        checkMissingRoot(
            report, pass,
            {&kMissingRoot, &kRootLeftOut, slip != nullptr ? source.nameOf(*slip) : source.start(),
             "root object " + name + " is missing" + (slip != nullptr ? "; there is " + written : ""),
             slip != nullptr ? "did you mean " + name + "? Rename " + written
                             : "add " + name + ": { ... } at the top level"});
        return;
    }
    if (root->kind != KaJsonKind::kObject) {
        checkMissingRoot(report, pass,
                         {&kWrongType, &kWrongTypeLeftOut, source.valueOf(*root),
                          "root object " + name + " is " + typeOf(*root) + "; expected an object",
                          "write " + name + ": { ... }"});
        return;
    }
    CheckNames names(source, source.children(*root), sectionNames(pass.root()), "section");
    for (const CheckStep& step : pass.steps) checkStep(report, source, pass, step, *root, names);
    names.report(report, kUnknownSection, " in " + name);
}

}  // namespace

CheckReport checkFile(const std::string& path, Part part) {
    CheckReport report;
    report.file = path;
    CheckSource source(path);
    std::vector<CheckPass> plan = checkPlan(part, source.document());
    const bool isDocument = source.error().reason == nullptr;
    if (isDocument) {
        CheckNames roots(source, source.roots(), rootNames(), "root object");
        for (CheckPass& pass : plan) checkPass(report, source, pass, roots);
        roots.report(report, kUnknownRoot, "");
    }
    for (CheckPass& pass : plan) {
        if (!pass.chosen) continue;
        if (!isDocument) pass.load.ends(CheckOutcome::Fails);
        report.loads.push_back(std::move(pass.load));
    }
    if (!isDocument) checkSyntax(report, source);
    std::stable_sort(
        report.findings.begin(), report.findings.end(),
        [](const CheckFinding& a, const CheckFinding& b) { return a.place.offset < b.place.offset; });
    return report;
}

std::vector<CheckReport> checkFiles(const std::vector<std::string>& paths, Part part, unsigned threads,
                                    void (*progress)(size_t done, size_t all)) {
    std::vector<CheckReport> reports(paths.size());
    std::atomic<size_t> next{0};
    std::mutex telling;
    size_t done = 0;
    const auto work = [&] {
        for (size_t i = next++; i < paths.size(); i = next++) {
            reports[i] = checkFile(paths[i], part);
            const std::lock_guard<std::mutex> lock(telling);
            progress(++done, paths.size());
        }
    };
    std::vector<std::thread> workers(std::min<size_t>(threads, paths.size()));
    for (std::thread& worker : workers) worker = std::thread(work);
    for (std::thread& worker : workers) worker.join();
    return reports;
}
