// The rules behind the formula editor. In: a variable's row, what the editor offers, what a person enters.
// Out: texts to insert, whether a formula may be stored, and the row's conversion fields.
#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <span>
#include <vector>

namespace vistor {

struct VariableDefinition;

/// Something to insert into a formula, with what it means.
struct FormulaItem {
    const char* token;
    const char* help;
};

/// The values that come from the car file and from the day.
std::span<const FormulaItem> formulaConstants();
/// Operators and functions, in the order in which the editor shows them.
std::span<const FormulaItem> formulaFunctions();

/// How an operator or function goes into a formula: some operators as they stand, all else in braces.
QString insertedText(const QString& item);

struct OfferedVariable {
    QString token;
    QString name; ///< with its unit
    int group;    ///< VariableType
};

/// The enabled variables of the working copy, by number.
std::vector<OfferedVariable> offeredVariables();

/// The entries of the list that narrows the variables down: all of them, each group, those of no group.
QStringList groupEntries();
/// Whether a variable belongs to an entry and has all the words in its token or name.
bool isOffered(const OfferedVariable& variable, int groupEntry, const QString& words);

/// What the editor edits.
struct TransformationDraft {
    bool custom = false;
    int standard = -1; ///< place in the row's list of conversions; -1: none chosen
    QString formula;
    QString units;
};

TransformationDraft draftOf(const VariableDefinition& row);

/// The keys of the conversions that a row allows; none where the list was never allocated.
QStringList standardConversions(const VariableDefinition& row);

/// How one of them reads in the list when it is chosen while a custom formula holds.
QString notApplied(const QString& key);

/// The short label of the conversion with that key, in brackets.
QString unitCaption(const QString& key);

/// The window's title for a row.
QString transformationTitle(const VariableDefinition& row, bool custom);

/// Tells whether a formula may be stored for row `index`, and shows what is wrong with one that may not. A
/// script is run once.
void CheckFormulaFormat(const QString& formula, std::int32_t index, bool& valid);

/// Puts the draft into a row. False, with the row untouched, when its formula may not be stored; the person
/// has been told.
bool storeTransformation(const TransformationDraft& draft, std::int32_t index, VariableDefinition& row);

} // namespace vistor
