#include "variables/VariableTree.h"

#include "maths/AdvancedFiltering.h"
#include "variables/SetupVariables.h"

#include <QHash>

#include <algorithm>
#include <iterator>

namespace vistor {
namespace {

constexpr int kExternalInput = 2;
constexpr int kRowsWithoutUnits[] = {1, 30, 31};
constexpr int kCorrectedPowerRow = 20;

enum class Under : std::uint8_t { Group, Variable, Advanced };

struct LineForm {
    LineKind kind;
    Under parent;
    const char* keyword; ///< null: the line has a key of its own form
    const char* picture;
};

/// The lines of one variable, in their order.
constexpr LineForm kBlock[] = {
    {LineKind::Variable, Under::Group, "AVAILABLETYPE", "Some"},
    {LineKind::Advanced, Under::Variable, nullptr, "Advanced"},
    {LineKind::Filtering, Under::Advanced, "FILTERING", "Filter"},
    {LineKind::Calculus, Under::Advanced, "CALCULUS", "Calc"},
    {LineKind::MaximumROC, Under::Advanced, "MAXROC", "Roc"},
    {LineKind::Units, Under::Variable, "TRANSFORMTYPE", "Units"},
    {LineKind::CorrectionStandard, Under::Variable, "POWERCORRECTIONSTDKEY", "S"},
    {LineKind::Name, Under::Variable, "USERNAME", "Name"},
    {LineKind::Minimum, Under::Variable, "MINVAL", "Min"},
    {LineKind::Maximum, Under::Variable, "MAXVAL", "Max"},
    {LineKind::Smoothing, Under::Variable, "SMOOTHING", "Smooth"},
};

constexpr const char* kCalculusTexts[] = {
    "Calculus : None", "Calculus : Integrate by time", "Calculus : Differentiate by time",
    "Calculus : Integrate by distance", "Calculus : Differentiate by distance"};

bool hasLine(LineKind kind, int row) {
    if (kind == LineKind::CorrectionStandard) return row == kCorrectedPowerRow;
    if (kind != LineKind::Units) return true;
    return std::find(std::begin(kRowsWithoutUnits), std::end(kRowsWithoutUnits), row) ==
           std::end(kRowsWithoutUnits);
}

QString groupKey(int type) {
    return QStringLiteral("VT_") + QString::number(type);
}

QString keyOf(const LineForm& form, const QString& name) {
    if (!form.keyword) return name + QStringLiteral("Advanced");
    return u'#' + QLatin1String(form.keyword) + u'#' + name;
}

/// Adds lines as a tree control does: by keys.
class Lines {
public:
    std::vector<TreeLine> list;

    void addGroups() {
        for (const VariableGroup& group : variableGroups())
            add({LineKind::Group, groupKey(group.type), QLatin1String(group.text), group.letter, -1, 0});
    }
    void addVariable(const VariableDefinition& definition, int row) {
        const QString parents[] = {groupKey(definition.VariableType), keyOf(kBlock[0], definition.BaseName),
                                   keyOf(kBlock[1], definition.BaseName)};
        for (const LineForm& form : kBlock) {
            if (!hasLine(form.kind, row)) continue;
            const int parent = m_places.value(parents[static_cast<std::size_t>(form.parent)], -1);
            if (parent < 0) continue;
            add({form.kind, keyOf(form, definition.BaseName), lineText(form.kind, definition), form.picture,
                 parent, row});
        }
    }

private:
    void add(TreeLine&& line) {
        if (m_places.contains(line.key)) return;
        m_places.insert(line.key, static_cast<int>(list.size()));
        list.push_back(std::move(line));
    }

    QHash<QString, int> m_places;
};

QString bandText(const VariableDefinition& row) {
    const QString low = numberText(row.FilterLowVal);
    const QString high = numberText(row.FilterHighVal);
    if (row.FilterLowVal > 0 && row.FilterHighVal > 0)
        return QStringLiteral("Bandpass, %1Hz to %2Hz").arg(low, high);
    if (row.FilterLowVal > 0) return QStringLiteral("Highpass,  %1Hz").arg(low);
    if (row.FilterHighVal > 0) return QStringLiteral("Lowpass,  %1Hz").arg(high);
    return {};
}

QString filteringText(const VariableDefinition& row) {
    if (row.FilterDesign == kButterworth) return QStringLiteral("Filtering : Butterworth ") + bandText(row);
    if (row.FilterDesign == kChebyshev) return QStringLiteral("Filtering : Chebyshev ") + bandText(row);
    return QStringLiteral("Filtering : None");
}

QString calculusText(std::int32_t mode) {
    const bool known = mode >= 0 && mode < static_cast<std::int32_t>(std::size(kCalculusTexts));
    return QLatin1String(kCalculusTexts[known ? mode : 0]);
}

QString unitsLine(const VariableDefinition& row) {
    if (row.VariableType == kCalculatedType) return QStringLiteral("edit equation");
    return (row.VariableType == kExternalInput ? QStringLiteral("sensor type/units: [")
                                               : QStringLiteral("units: [")) +
           unitText(row) + u']';
}

QString orNoneSet(const char* head, bool set, float value, const char* tail = "") {
    return QLatin1String(head) + (set ? numberText(value) + QLatin1String(tail) : QStringLiteral("None Set"));
}

} // namespace

std::vector<TreeLine> variableTreeLines(std::span<const VariableDefinition> table) {
    Lines lines;
    lines.addGroups();
    for (std::size_t row = 1; row < table.size(); ++row) {
        if (table[row].Enabled) lines.addVariable(table[row], static_cast<int>(row));
    }
    return std::move(lines.list);
}

QString lineText(LineKind kind, const VariableDefinition& row) {
    const bool limits = row.DefaultMin != 0 || row.DefaultMax != 0;
    switch (kind) {
    case LineKind::Variable:
        return row.BaseName + QStringLiteral("  (") + row.ConstantName + u')';
    case LineKind::Advanced:
        return QStringLiteral("Advanced options");
    case LineKind::Filtering:
        return filteringText(row);
    case LineKind::Calculus:
        return calculusText(row.Calculus);
    case LineKind::MaximumROC:
        return orNoneSet("Maximum rate of change: ", row.MaximumROC != 0, row.MaximumROC);
    case LineKind::Units:
        return unitsLine(row);
    case LineKind::CorrectionStandard:
        return QStringLiteral("Correction standard");
    case LineKind::Name:
        return QStringLiteral("Variable Name: ") + row.BaseName;
    case LineKind::Minimum:
        return orNoneSet("Minimum: ", limits, row.DefaultMin);
    case LineKind::Maximum:
        return orNoneSet("Maximum: ", limits, row.DefaultMax);
    case LineKind::Smoothing:
        return orNoneSet("Smoothed over: ", row.SmoothingTime != 0, row.SmoothingTime, " seconds");
    case LineKind::Group:
        break;
    }
    return {};
}

bool hasSettings(LineKind kind) {
    return std::any_of(std::begin(kBlock), std::end(kBlock),
                       [=](const LineForm& form) { return form.kind == kind && form.keyword != nullptr; });
}

QString unitText(const VariableDefinition& row) {
    if (row.UseCustomTrans) return row.CustomUnits;
    const auto unit = static_cast<std::size_t>(FindUnit(row.ApplyTransformation));
    return unit < UnitConversions.size() ? UnitConversions[unit].Uniit : QString();
}

} // namespace vistor
