#include "variables/VariableEdits.h"

#include "maths/VariableFiles.h"
#include "platform/Prompts.h"
#include "variables/SetupVariables.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace vistor {
namespace {

struct NumberPrompt {
    LineKind kind;
    const char* question;
    bool named; ///< the variable's name follows the question
    const char* title;
    float VariableDefinition::*field;
    const char* edited; ///< what the line says before the number afterwards; null: what it always says
};

constexpr NumberPrompt kNumbers[] = {
    {LineKind::MaximumROC, "Please inputs a new maximum rate of change ", false, "Maximum rate of change",
     &VariableDefinition::MaximumROC, nullptr},
    {LineKind::Minimum, "Please inputs a new minimum value for ", true, "Minimum value",
     &VariableDefinition::DefaultMin, "Minimum: "},
    {LineKind::Maximum, "Please inputs a new maximum value for ", true, "Maximum value",
     &VariableDefinition::DefaultMax, "Maximum: "},
    {LineKind::Smoothing, "Please inputs a new smoothing time for ", true, "Smoothing time",
     &VariableDefinition::SmoothingTime, nullptr},
};

/// The answer to a question; no value for one that cancels.
std::optional<QString> answerTo(const QString& question, const char* title, const QString& current) {
    auto answer = InputBox(question, QLatin1String(title), current);
    return answer && !answer->isEmpty() ? answer : std::nullopt;
}

std::optional<LineEdit> editNumber(const NumberPrompt& prompt, VariableDefinition& row) {
    float& field = row.*prompt.field;
    const QString name = prompt.named ? row.BaseName : QString();
    const QString current = numberText(field);
    auto answer = answerTo(QLatin1String(prompt.question) + name, prompt.title, current);
    if (!answer) return std::nullopt;
    const float before = field;
    const bool asOffered = *answer == current; // which may have fewer digits than the number behind it
    const auto number = static_cast<float>(ParseNumber(*answer));
    if (!asOffered && std::isfinite(number)) field = number + 0.0F; // without a minus zero
    const QString text =
        prompt.edited ? QLatin1String(prompt.edited) + numberText(field) : lineText(prompt.kind, row);
    return LineEdit{field != before, text};
}

std::optional<LineEdit> editName(VariableDefinition& row) {
    const QString before = row.BaseName;
    const auto answer =
        answerTo(QStringLiteral("Please inputs a new name for ") + before, "New name", before);
    if (!answer) return std::nullopt;
    row.BaseName = *answer;
    return LineEdit{row.BaseName != before, QStringLiteral("User name: ") + row.BaseName};
}

std::optional<LineEdit> editDraft(LineKind kind, VariableDefinition& draft) {
    if (kind == LineKind::Name) return editName(draft);
    const auto* prompt = std::find_if(std::begin(kNumbers), std::end(kNumbers),
                                      [=](const NumberPrompt& candidate) { return candidate.kind == kind; });
    return prompt == std::end(kNumbers) ? std::nullopt : editNumber(*prompt, draft);
}

} // namespace

bool hasEditRow(int row) {
    return row >= 0 && static_cast<std::size_t>(row) < VariableTableEdit.size();
}

std::optional<LineEdit> editByPrompt(LineKind kind, int row) {
    if (!hasEditRow(row)) return std::nullopt;
    const auto place = static_cast<std::size_t>(row);
    VariableDefinition draft = VariableTableEdit[place]; // events run while the person thinks
    const auto edit = editDraft(kind, draft);
    if (!edit || !hasEditRow(row)) return std::nullopt;
    VariableTableEdit[place] = std::move(draft);
    return edit;
}

void commitVariableEdits() {
    VariableTable = VariableTableEdit;
    SetupVariables();
    VariableTableEdit = VariableTable;
    saveVariables(VariableFilePath);
}

} // namespace vistor
