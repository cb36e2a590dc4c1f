#include "check/file.h"

#include <algorithm>
#include <cstring>

#include "check/context.h"
#include "check/names.h"
#include "check/section.h"
#include "check/syntax.h"
#include "check/types.h"
#include "model/load_log.h"
#include "model/places.h"
#include "text/words.h"

namespace {

void checkSyntax(CheckContext& context) {
    CheckSource& source = context.source;
    const KaJsonError& error = source.error();
    std::string reason = error.reason;
    const std::string device = context.report.load + " fails: nothing of the file is read";
    context.endLoad(CheckOutcome::Fails);
    if (error.line == 0) {
        if (error.system_error != 0) reason += std::string(": ") + std::strerror(error.system_error);
        context.add(kUnreadable, {}, reason, device, {});
        return;
    }
    const size_t offset = source.offsetOf(error.line, error.column);
    context.add(kInvalidJson, source.place(offset, 1), "invalid JSON: " + reason, device,
                syntaxHelp(source.text(), offset));
}

// The root object is missing or none: all of its sections are missing.
void checkMissingRoot(CheckContext& context, const CheckPass& pass, const CheckAbsence& absence) {
    const bool fatal = pass.chosen && pass.steps.front().required;
    std::string messages;
    for (const CheckStep& step : pass.steps) {
        const std::string message = plainText(missingMessage(step.section->rows[0]));
        context.logs(pass, message);
        messages += (messages.empty() ? "" : ", ") + message;
        if (step.required) break;
    }
    const char* effect = pass.steps.front().required ? " fails: " : " goes on without any record: ";
    context.add(fatal ? *absence.error : *absence.warning, absence.place, absence.text,
                pass.load + effect + messages, absence.help);
    if (fatal) context.endLoad(CheckOutcome::Fails);
}

void checkStep(CheckContext& context, const CheckPass& pass, const CheckStep& step, const KaJsonItem& root,
               CheckNames& names) {
    const std::string name = step.section->name;
    const KaJsonItem* item = names.last(name);
    if (item != nullptr && item->kind == KaJsonKind::kObject) {
        checkSection(context, pass, step, *item);
    } else if (item != nullptr) {
        checkMissingSection(context, pass, step,
                            {&kWrongType, &kWrongTypeLeftOut, context.source.valueOf(*item),
                             "section " + quoted(name) + " is " + typeOf(*item) + " and must be an object",
                             "write " + quoted(name) + ": { \"status\": ... }"});
    } else if (const KaJsonItem* slip = names.takeSlip(name)) {
        const std::string written = quoted(CheckSource::name(*slip));
        checkMissingSection(context, pass, step,
                            {&kMissingSection, &kSectionLeftOut, context.source.nameOf(*slip),
                             "section " + quoted(name) + " is missing from " + quoted(pass.root) +
                                 ", which has " + written + " instead",
                             "did you mean " + quoted(name) + "? Rename " + written});
    } else {
        checkMissingSection(
            context, pass, step,
            {&kMissingSection, &kSectionLeftOut, context.source.nameOf(root),
             "section " + quoted(name) + " is missing from " + quoted(pass.root),
             step.section->whenDisabled != EboDisabled::IsRead
                 ? "add " + quoted(name) + ": { \"status\": \"disable\" }, or enable it"
                 : "add " + quoted(name) + " with all its keys; a disabled section needs them too"});
    }
}

void checkPass(CheckContext& context, const CheckPass& pass, CheckNames& roots) {
    const KaJsonItem* root = roots.last(pass.root);
    const std::string name = quoted(pass.root);
    if (root == nullptr) {
        if (!pass.chosen) return;  // another loader's, and not in this file
        const KaJsonItem* slip = roots.takeSlip(pass.root);
        const std::string written = slip != nullptr ? quoted(CheckSource::name(*slip)) : std::string();
        checkMissingRoot(
            context, pass,
            {&kMissingRoot, &kRootLeftOut,
             slip != nullptr ? context.source.nameOf(*slip) : context.source.start(),
             "root object " + name + " is missing" + (slip != nullptr ? "; there is " + written : ""),
             slip != nullptr ? "did you mean " + name + "? Rename " + written
                             : "add " + name + ": { ... } at the top level"});
        return;
    }
    if (root->kind != KaJsonKind::kObject) {
        checkMissingRoot(context, pass,
                         {&kWrongType, &kWrongTypeLeftOut, context.source.valueOf(*root),
                          "root object " + name + " is " + typeOf(*root) + " and must be an object",
                          "write " + name + ": { ... }"});
        return;
    }
    CheckNames names(context.source, context.source.children(*root), sectionNames(pass.root), "section");
    for (const CheckStep& step : pass.steps) checkStep(context, pass, step, *root, names);
    names.report(context, kUnknownSection, " in " + name);
}

}  // namespace

CheckReport checkFile(const std::string& path, Part part) {
    CheckReport report;
    report.file = path;
    CheckSource source(path);
    const std::vector<CheckPass> plan = checkPlan(part, source.document());
    for (const CheckPass& pass : plan) {
        if (pass.chosen) report.load += (report.load.empty() ? "" : ", ") + pass.load;
    }
    CheckContext context = {source, report};
    if (source.error().reason != nullptr) {
        checkSyntax(context);
        return report;
    }
    CheckNames roots(source, source.roots(), rootNames(), "root object");
    for (const CheckPass& pass : plan) checkPass(context, pass, roots);
    roots.report(context, kUnknownRoot, "");
    std::stable_sort(
        report.findings.begin(), report.findings.end(),
        [](const CheckFinding& a, const CheckFinding& b) { return a.place.offset < b.place.offset; });
    return report;
}
