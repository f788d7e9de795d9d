#include "maths/Transformation.h"

#include "maths/ConvertUnits.h"
#include "platform/Prompts.h"
#include "variables/GlobalVarsAndTypes.h"
#include "variables/SetupVariables.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace vistor {
namespace {

constexpr FormulaItem kConstants[] = {
    {"CdA", "Aerodynamic Resistance [m2]"}, {"Roll", "Rolling Resistance [N/m2]"},
    {"Mass", "Vehicle Mass [kg]"},          {"Temp", "Ambient Temperature [C]"},
    {"Press", "Ambient Pressure [kPa]"},    {"Humid", "Ambient Humidity [%]"},
    {"CAR_1", "Car Constant 1 [-]"},        {"CAR_2", "Car Constant 2 [-]"},
    {"CAR_3", "Car Constant 3 [-]"},        {"CAR_4", "Car Constant 4 [-]"},
    {"CAR_5", "Car Constant 5 [-]"},        {"CAR_6", "Car Constant 6 [-]"},
    {"CAR_7", "Car Constant 7 [-]"},        {"CAR_8", "Car Constant 8 [-]"},
    {"CAR_9", "Car Constant 9 [-]"},        {"CAR_10", "Car Constant 10 [-]"},
};

constexpr FormulaItem kFunctions[] = {
    {"+", "Add "},
    {"-", "Minus"},
    {"*", "Multiply"},
    {"/", "Divide"},
    {"^", "Raise to the power"},
    {"(", "Open parenthesis"},
    {")", "Close parenthesis"},
    {"SQR", "square function which can be used as SQR(X) "},
    {"SIN", "sinus function which can be used as SIN(X), X is in radians. "},
    {"COS", "cosinus function which can be used as COS(X), X is in radians. "},
    {"ATAN", "arctangent function which can be used as ATAN(X) "},
    {"SINH", "sinus hyperbolic function which can be used as SINH(X) "},
    {"COSH", "cosinus hyperbolic function which can be used as COSH(X) "},
    {"COTAN", "which can be used as COTAN(X) "},
    {"TAN", "which can be used as TAN(X) "},
    {"EXP", "which can be used as EXP(X) "},
    {"LN", "natural log, which can be used as LN(X) "},
    {"LOG", "base 10 log, which can be used as LOG(X) "},
    {"SQRT", "which can be used as SQRT(X) "},
    {"ABS", "absolute value, which can be used as ABS(X) "},
    {"SIGN", "SIGN(X) returns -1 if X<0; +1 if X>0, 0 if X=0; it can be used as SQR(X) "},
    {"TRUNC", "discards the fractional part of a number. e.g. TRUNC(-3.2) is -3, TRUNC(3.2) is 3. "},
    {"CEIL", "CEIL(-3.2) = -3, CEIL(3.2) = 4 "},
    {"FLOOR", "FLOOR(-3.2) = -4, FLOOR(3.2) = 3 "},
    {"INTPOW", "the INTPOW function raises Base to an integral power. INTPOW(2, 3) = 8"},
    {"POW", "the Power function raises Base to any power."},
    {"LOGN", "the LogN function returns the log base N of X. Example: LOGN(10, 100) = 2 "},
    {"MIN", "MIN(2, 3) is 2. "},
    {"MAX", "MAX(2, 3) is 3. "},
    {"IF", "eg IF(b, case1, case2), If b is not 0, then it returns case1, else it returns case2."},
    {"RND", "RND() function generates a random number (double value) between 0 and 1. "},
    {"SUM", "SUM(2,3,5,...) functions returns the sum of it's arguments"},
};

/// Go in without braces. The backslash stands here and "/" does not; existing formulas hold "{/}" for it.
constexpr const char* kPlainOperators[] = {"+", "-", "*", "\\", "(", ")", "^"};

constexpr const char* kIllegal = "$#[]";

/// The fields that both options share.
void rebuildName(VariableDefinition& row, const QString& unit) {
    row.ConstantName = row.BaseName + QStringLiteral(" [") + unit + u']';
}

const UnitConversion* conversionOf(const QString& key) {
    const auto found = static_cast<std::size_t>(FindUnit(key));
    return found < UnitConversions.size() ? &UnitConversions[found] : nullptr;
}

void storeStandard(int place, VariableDefinition& row) {
    row.UseCustomTrans = kFalse16;
    const QStringList keys = standardConversions(row);
    const bool chosen = place >= 0 && place < keys.size();
    const UnitConversion* unit = conversionOf(chosen ? keys[place] : row.ApplyTransformation);
    if (!unit) return;
    if (chosen) row.ApplyTransformation = unit->UnitName;
    rebuildName(row, unit->Uniit);
}

void storeCustom(const TransformationDraft& draft, VariableDefinition& row) {
    row.UseCustomTrans = kTrue16;
    row.CustomTransformation = draft.formula.isEmpty() ? QStringLiteral("0") : draft.formula;
    row.CustomUnits = draft.units;
    rebuildName(row, draft.units);
}

} // namespace

std::span<const FormulaItem> formulaConstants() {
    return kConstants;
}

std::span<const FormulaItem> formulaFunctions() {
    return kFunctions;
}

QString insertedText(const QString& item) {
    const bool plain = std::any_of(std::begin(kPlainOperators), std::end(kPlainOperators),
                                   [&](const char* op) { return item == QLatin1String(op); });
    return plain ? item : u'{' + item + u'}';
}

std::vector<OfferedVariable> offeredVariables() {
    std::vector<OfferedVariable> offered;
    for (std::size_t row = 1; row < VariableTableEdit.size(); ++row) {
        const VariableDefinition& definition = VariableTableEdit[row];
        if (definition.Enabled)
            offered.push_back(
                {variableName(static_cast<int>(row)), definition.ConstantName, definition.VariableType});
    }
    return offered;
}

QStringList groupEntries() {
    QStringList entries{QStringLiteral("All")};
    for (const VariableGroup& group : variableGroups()) entries += QLatin1String(group.text);
    return entries << QStringLiteral("None");
}

bool isOffered(const OfferedVariable& variable, int groupEntry, const QString& words) {
    const auto groups = variableGroups();
    if (groupEntry > 0) {
        const bool none = std::cmp_greater(groupEntry, groups.size());
        const bool known = std::any_of(groups.begin(), groups.end(), [&](const VariableGroup& group) {
            return group.type == variable.group;
        });
        if (none ? known : groups[static_cast<std::size_t>(groupEntry - 1)].type != variable.group)
            return false;
    }
    const QStringList wanted = words.simplified().split(u' ', Qt::SkipEmptyParts);
    const QString text = variable.token + u' ' + variable.name;
    return std::all_of(wanted.begin(), wanted.end(),
                       [&](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
}

TransformationDraft draftOf(const VariableDefinition& row) {
    const auto place = standardConversions(row).indexOf(row.ApplyTransformation);
    return {row.UseCustomTrans != kFalse16, static_cast<int>(place), row.CustomTransformation,
            row.CustomUnits};
}

QStringList standardConversions(const VariableDefinition& row) {
    return row.AllowTransformations.value_or(QStringList());
}

QString notApplied(const QString& key) {
    return key + QStringLiteral(" (not applied)");
}

QString unitCaption(const QString& key) {
    const UnitConversion* unit = conversionOf(key);
    return u'[' + (unit ? unit->Uniit : QString()) + u']';
}

QString transformationTitle(const VariableDefinition& row, bool custom) {
    return (custom ? QStringLiteral("Edit equation for ") : QStringLiteral("Set units for ")) + row.BaseName;
}

void CheckFormulaFormat(const QString& formula, std::int32_t index, bool& valid) {
    const QLatin1String illegal(kIllegal);
    valid = std::none_of(formula.begin(), formula.end(), [=](QChar c) { return illegal.contains(c); });
    if (!valid) {
        MsgBox(QStringLiteral("The formula contains illegal characters"), Icon::Stop);
        return;
    }
    float value = 1;
    valid = ConvertValue(formula, index, value, true);
}

bool storeTransformation(const TransformationDraft& draft, std::int32_t index, VariableDefinition& row) {
    if (!draft.custom) {
        storeStandard(draft.standard, row);
        return true;
    }
    bool valid = false;
    CheckFormulaFormat(draft.formula, index, valid);
    if (valid) storeCustom(draft, row);
    return valid;
}

} // namespace vistor
