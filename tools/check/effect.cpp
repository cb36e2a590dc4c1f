#include "check/section.h"
#include "model/load_log.h"
#include "model/places.h"
#include "text/words.h"

namespace {

// Two sections report a missing status in the words of another one.
std::string whoseMessage(const EboSection& section, const std::string& message) {
    if (message.find(' ' + std::string(section.name) + ' ') != std::string::npos) return {};
    return " (the message does not say so, but it is about " + quoted(section.name) + ")";
}

}  // namespace

std::string effectOfFailure(const CheckPass& pass, const CheckStep& step, bool enabled,
                            const std::string& message) {
    const EboSection& section = *step.section;
    const std::string logged = ": " + message + whoseMessage(section, message);
    if (step.required) return pass.load + " fails" + logged;

    const std::string goesOn = pass.load + " goes on ";
    if (section.container == EboContainer::EchoCanceller) return goesOn + "without delay estimation" + logged;
    if (section.recordSize == 0)
        return goesOn + "with " + quoted(section.name) + (enabled ? " on" : " off") + logged;
    return goesOn + "without the record of " + quoted(section.name) +
           (enabled ? ", though its enable bit is set" : "") + logged;
}

void checkMissingSection(CheckContext& context, const CheckPass& pass, const CheckStep& step,
                         const CheckAbsence& absence) {
    const EboKeyRow& status = step.section->rows[0];
    if (missingMessage(status) == nullptr) {
        context.add(*absence.warning, absence.place, absence.text,
                    pass.load + " goes on with an all-zero record of " + quoted(step.section->name) +
                        ", and says nothing",
                    absence.help);
        return;
    }
    const std::string message = plainText(missingMessage(status));
    const bool fatal = step.required && pass.chosen;
    context.add(fatal ? *absence.error : *absence.warning, absence.place, absence.text,
                effectOfFailure(pass, step, false, message), absence.help);
    context.logs(pass, message);
    if (fatal) context.endLoad(CheckOutcome::Fails);
}
