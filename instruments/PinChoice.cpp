#include "instruments/PinChoice.h"

#include "variables/GlobalVarsAndTypes.h"
#include "variables/SetupVariables.h"

#include <algorithm>

namespace vistor {
namespace {

QString groupOf(const QString& variable) {
    const auto row = static_cast<std::size_t>(FindVariableByPhysicalName(variable));
    if (row == kNoVariable || row >= VariableTable.size()) return {};
    for (const VariableGroup& group : variableGroups()) {
        if (group.type == VariableTable[row].VariableType) return QLatin1String(group.text);
    }
    return {};
}

PinRow rowOf(const PinTable& pins, int pin, std::uint8_t axis, int count) {
    const QString variable = pins.at(pin, axis);
    return {pin, axis, variable, variable.isEmpty() ? QString() : groupOf(variable), pin > count};
}

/// Rows for what is bound from pin `first` on, in the columns from `firstAxis` on.
void addBound(std::vector<PinRow>& rows, const PinTable& pins, int first, std::uint8_t firstAxis, int count) {
    for (int pin = first; pin <= pins.upperBound(); ++pin)
        for (std::uint8_t axis = firstAxis; axis < pins.nameColumns(); ++axis)
            if (!pins.at(pin, axis).isEmpty()) rows.push_back(rowOf(pins, pin, axis, count));
}

} // namespace

std::vector<PinRow> boundPins(const PinTable& pins, int count) {
    std::vector<PinRow> rows;
    addBound(rows, pins, 1, 0, count);
    return rows;
}

std::vector<PinRow> trackPins(const PinTable& pins, int count, bool bothAxes) {
    std::vector<PinRow> rows;
    for (int track = 1; track <= count; ++track) {
        if (bothAxes) rows.push_back(rowOf(pins, track, 0, count));
        rows.push_back(rowOf(pins, track, 1, count));
    }
    addBound(rows, pins, count + 1, bothAxes ? 0 : 1, count);
    return rows;
}

std::vector<PinRow> everyPin(const PinTable& pins, int count) {
    std::vector<PinRow> rows;
    for (int pin = 1; pin <= count; ++pin) rows.push_back(rowOf(pins, pin, 0, count));
    addBound(rows, pins, count + 1, 0, count);
    return rows;
}

QString pinText(int pin, bool leftOver, const QString& pinLabel) {
    const QString number = QString::number(pin);
    return leftOver ? QStringLiteral("%1 (no %2)").arg(number, pinLabel.toLower()) : number;
}

QStringList pinGroups() {
    constexpr std::size_t kOffered = 7; // lap timing and the rest are bound by dragging them
    QStringList groups;
    for (const VariableGroup& group : variableGroups().first(kOffered)) groups << QLatin1String(group.text);
    return groups;
}

QStringList variablesOfGroup(const QString& group) {
    QStringList names;
    const auto groups = variableGroups();
    const auto known = std::find_if(groups.begin(), groups.end(),
                                    [&](const VariableGroup& g) { return group == QLatin1String(g.text); });
    if (known == groups.end()) return names;
    for (const VariableDefinition& row : VariableTable)
        if (row.VariableType == known->type && row.Enabled && !row.PhysicalName.isEmpty())
            names << row.PhysicalName;
    return names;
}

QString axisName(std::uint8_t axis) {
    return axis == 0 ? QStringLiteral("X") : QStringLiteral("Y");
}

} // namespace vistor
