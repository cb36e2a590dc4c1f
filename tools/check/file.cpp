#include "check/file.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <exception>
#include <memory>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

#include "check/causes.h"
#include "check/names.h"
#include "check/reading.h"
#include "check/section.h"
#include "check/types.h"
#include "model/load_log.h"
#include "model/places.h"
#include "text/words.h"

namespace {

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
    report.add({pass.isError(pass.steps.front()) ? absence.error : absence.warning, absence.place,
                absence.text,
                pass.load.words + (required ? " fails: " : " goes on without any record: ") + messages,
                absence.help, absence.edits});
    if (required) pass.load.ends(CheckOutcome::Fails);
    for (const CheckStep& step : pass.steps) {
        if (!required) pass.load.lacks.emplace_back(step.section->name);
    }
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
                             "section " + inQuotes(name) + " is " + typeOf(*item) + "; expected an object",
                             "write " + inQuotes(name) + ": { \"status\": ... }"});
    } else if (const KaJsonItem* slip = names.takeSlip(name)) {
        const std::string_view written = CheckSource::name(*slip);
        checkMissingSection(report, pass, step,
                            {&kMissingSection,
                             &kSectionLeftOut,
                             source.nameOf(*slip),
                             "section " + inQuotes(name) + " is missing from " + inQuotes(pass.root()) +
                                 ", which has " + inQuotes(written) + " instead",
                             howToRename(written, name),
                             {source.rename(*slip, name)}});
    } else {
        checkMissingSection(
            report, pass, step,
            {&kMissingSection, &kSectionLeftOut, source.nameOf(root),
             "section " + inQuotes(name) + " is missing from " + inQuotes(pass.root()),
             step.section->whenDisabled != EboDisabled::IsRead
                 ? "add " + inQuotes(name) + ": { \"status\": \"disable\" }, or enable it"
                 : "add " + inQuotes(name) + " with all its keys; a disabled section needs them too"});
    }
}

void checkPass(CheckReport& report, CheckSource& source, CheckPass& pass, CheckNames& roots) {
    const KaJsonItem* root = roots.last(pass.root());
    const std::string name = inQuotes(pass.root());
    if (root == nullptr) {
        if (!pass.chosen) return;  // another loader's, and not in this file
        const KaJsonItem* slip = roots.takeSlip(pass.root());
        if (slip == nullptr) {
            checkMissingRoot(
                report, pass,
                {&kMissingRoot, &kRootLeftOut, source.place(0, 1), "root object " + name + " is missing",
                 "add " + name + ": { ... } at the top level"});
            return;
        }
        const std::string_view written = CheckSource::name(*slip);
        checkMissingRoot(report, pass,
                         {&kMissingRoot,
                          &kRootLeftOut,
                          source.nameOf(*slip),
                          "root object " + name + " is missing; there is " + inQuotes(written),
                          howToRename(written, pass.root()),
                          {source.rename(*slip, pass.root())}});
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

// What the loads make of the text of the source.
CheckReport judge(CheckSource& source, Part part) {
    CheckReport report;
    std::vector<std::string> names;
    for (const KaJsonItem* root : source.roots()) names.emplace_back(CheckSource::name(*root));
    std::vector<CheckPass> plan = checkPlan(part, names);
    CheckNames roots(source, source.roots(), rootNames(), "root object");
    for (CheckPass& pass : plan) checkPass(report, source, pass, roots);
    roots.report(report, kUnknownRoot, "");
    for (CheckPass& pass : plan) {
        if (pass.chosen) report.loads.push_back(std::move(pass.load));
    }
    return report;
}

size_t problems(const CheckReport& report) {
    return report.count(CheckLevel::Error) + report.count(CheckLevel::Warning);
}

std::string effectOf(const CheckReport& report) {
    for (const CheckLoad& load : report.loads) {
        if (load.outcome != CheckOutcome::Loads && !load.log.empty())
            return load.words + ' ' + nameOf(load.outcome) + ": " + load.log.back();
    }
    return "goes on, and reads nothing of what is in the wrong place";
}

// The same without what one cause explains: the text is judged with each cause mended that leaves less to
// report.
CheckReport judgeByCauses(std::unique_ptr<CheckSource> source, Part part) {
    constexpr int kMostTries = 10;
    CheckReport report = judge(*source, part);
    const bool hasErrors = report.count(CheckLevel::Error) > 0;
    std::vector<CheckFinding> found;
    std::vector<CheckFinding> left = report.findings;
    size_t rest = problems(report);
    std::vector<CheckCause> causes = findCauses(*source);
    for (int tries = 0; !causes.empty() && tries < kMostTries; ++tries) {
        const CheckCause cause = causes.front();
        causes.erase(causes.begin());
        EditedText text = source->edited();
        std::optional<std::vector<TextEdit>> edits = text.apply(cause.edits);
        if (!edits || !cause.place.isInFile) continue;
        auto mended = std::make_unique<CheckSource>(std::move(text));
        if (mended->error().reason != nullptr) continue;
        CheckReport without = judge(*mended, part);
        if (problems(without) >= rest || (!hasErrors && without.count(CheckLevel::Error) > 0)) continue;
        found.push_back({hasErrors ? &kWrongPlace : &kWrongPlaceLeftOut, cause.place, cause.text,
                         effectOf(report), cause.help, *std::move(edits), false, cause.related});
        rest = problems(without);
        without.loads = std::move(report.loads);
        report = std::move(without);
        source = std::move(mended);
        causes = findCauses(*source);
    }
    for (CheckFinding& finding : found) report.add(std::move(finding));
    return report;
}

bool isGuessed(const TextPlace& place, const std::vector<CheckFinding>& faults) {
    return std::any_of(faults.begin(), faults.end(), [&place](const CheckFinding& fault) {
        return fault.isGuess &&
               std::any_of(fault.edits.begin(), fault.edits.end(), [&place](const TextEdit& edit) {
                   return edit.offset <= place.offset + place.length && place.offset <= edit.end();
               });
    });
}

// A file that cannot be read, or is not JSON: all loads fail. What else is wrong is told as well once it is
// mended.
CheckReport checkBroken(std::unique_ptr<CheckSource> source, Part part) {
    CheckReport report;
    const KaJsonError error = source->error();
    std::vector<CheckFinding> faults;
    if (error.line == 0) {
        const char* system = error.system_error != 0 ? std::strerror(error.system_error) : nullptr;
        CheckFinding fault = {};
        fault.code = &kUnreadable;
        fault.text = error.reason + (system != nullptr ? ": " + std::string(system) : "");
        faults.push_back(std::move(fault));
        report.loads = judge(*source, part).loads;
    } else {
        CheckReading reading = readOn(std::move(source));
        faults = std::move(reading.faults);
        const bool isDocument = reading.isDocument();
        report = isDocument ? judgeByCauses(std::move(reading.source), part) : CheckReport();
        if (!isDocument) report.loads = judge(*reading.source, part).loads;
    }
    // A guess is no value to judge.
    auto& findings = report.findings;
    findings.erase(
        std::remove_if(findings.begin(), findings.end(),
                       [&](const CheckFinding& finding) { return isGuessed(finding.place, faults); }),
        findings.end());
    for (CheckLoad& load : report.loads) load = {load.load, load.words, CheckOutcome::Fails};
    for (CheckFinding& fault : faults) {
        fault.device = report.words() + " fails: nothing of the file is read";
        report.add(std::move(fault));
    }
    return report;
}

}  // namespace

CheckReport checkFile(const std::string& path, Part part) {
    auto source = std::make_unique<CheckSource>(path);
    const bool isDocument = source->error().reason == nullptr;
    CheckReport report =
        isDocument ? judgeByCauses(std::move(source), part) : checkBroken(std::move(source), part);
    report.file = path;
    // What was put in to read on is not the author's.
    auto& findings = report.findings;
    findings.erase(std::remove_if(findings.begin(), findings.end(),
                                  [](const CheckFinding& finding) { return !finding.place.isInFile; }),
                   findings.end());
    report.sortByPlace();
    return report;
}

std::vector<CheckReport> checkFiles(const std::vector<std::string>& paths, Part part, unsigned threads,
                                    void (*progress)(size_t done, size_t all)) {
    std::vector<CheckReport> reports(paths.size());
    std::atomic<size_t> next{0};
    std::mutex telling;
    size_t done = 0;
    std::exception_ptr failure;  // of a thread: there was no memory
    const auto work = [&] {
        try {
            for (size_t i = next++; i < paths.size(); i = next++) {
                reports[i] = checkFile(paths[i], part);
                const std::lock_guard<std::mutex> lock(telling);
                progress(++done, paths.size());
            }
        } catch (...) {
            next = paths.size();
            const std::lock_guard<std::mutex> lock(telling);
            failure = std::current_exception();
        }
    };
    std::vector<std::thread> workers;
    try {
        while (workers.size() + 1 < std::min<size_t>(threads, paths.size())) workers.emplace_back(work);
    } catch (const std::system_error&) {
        // This thread and those that could be had do it all.
    }
    work();
    for (std::thread& worker : workers) worker.join();
    if (failure) std::rethrow_exception(failure);
    return reports;
}
