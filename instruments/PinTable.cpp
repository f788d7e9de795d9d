#include "instruments/PinTable.h"

#include "variables/GlobalVarsAndTypes.h"
#include "variables/SetupVariables.h"

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

int boundedNumber(const QString& text) {
    const double number = ParseNumber(QString(text));
    return static_cast<int>(std::clamp(number, 0.0, double(PinTable::kMaximumBound)));
}

/// One column's part: count, bound, `length` names and as many empty items as make up the bound.
void writeColumn(const PinTable& pins, int column, int length, QStringList& list) {
    list << pins.at(0, column) << QString::number(pins.upperBound());
    for (int row = 1; row <= pins.upperBound(); ++row)
        list << (row <= length ? pins.at(row, column) : QString());
}

/// The bound at the head of a part, as far as the list has items.
int boundOf(const QStringList& list, qsizetype first) {
    if (first + 1 >= list.size()) return 0;
    return static_cast<int>(std::min<qsizetype>(boundedNumber(list.at(first + 1)), list.size() - first - 2));
}

/// The bound of a graph's two parts. They are equally long: where the second does not repeat the bound at its
/// place, the length of the list tells it.
int graphBound(const QStringList& list, qsizetype first) {
    const int bound = boundOf(list, first);
    const qsizetype second = first + 2 + bound;
    const bool cutShort = second + 1 >= list.size() && second < list.size();
    if (cutShort || list.value(second + 1) == list.value(first + 1)) return bound;
    return static_cast<int>(std::clamp<qsizetype>((list.size() - first - 4) / 2, 0, PinTable::kMaximumBound));
}

/// Reads a part of `bound` names, or what the list has of it.
void readColumn(PinTable& pins, int column, const QStringList& list, qsizetype first, int bound) {
    if (first + 1 >= list.size()) return;
    bound = static_cast<int>(std::min<qsizetype>(bound, list.size() - first - 2));
    pins.setCount(boundedNumber(list.at(first)), column);
    if (bound > pins.upperBound()) pins.resize(bound);
    for (int row = 1; row <= bound; ++row) {
        const QString& name = list.at(first + 1 + row);
        if (name != QLatin1String("0")) pins.set(row, name, column); // old files have "0" for an empty place
    }
}

QString columnCaption(const PinTable& pins, int column) {
    if (pins.count(column) == 0) return {};
    for (int pin = 1; pin <= pins.upperBound(); ++pin) {
        const QString name = pins.at(pin, column);
        if (name.isEmpty()) continue;
        const int row = FindVariableByPhysicalName(name);
        if (row == kNoVariable) continue;
        return QStringLiteral("[%1] ").arg(pin) + VariableTable[static_cast<std::size_t>(row)].PhysicalName;
    }
    return {};
}

} // namespace

PinTable::PinTable(int columns) : m_columns(static_cast<std::size_t>(std::max(columns, 1))) {
    for (QStringList& column : m_columns) column.resize(1);
    for (int column = 0; column < nameColumns(); ++column) setCount(0, column);
}

bool PinTable::inside(int row, int column) const {
    return row >= 0 && row <= upperBound() && column >= 0 && column < columns();
}

QString PinTable::at(int row, int column) const {
    return inside(row, column) ? m_columns[static_cast<std::size_t>(column)].at(row) : QString();
}

void PinTable::set(int row, const QString& text, int column) {
    if (inside(row, column)) m_columns[static_cast<std::size_t>(column)][row] = text;
}

int PinTable::count(int column) const {
    return boundedNumber(at(0, column));
}

void PinTable::setCount(int count, int column) {
    set(0, QString::number(std::max(count, 0)), column);
}

void PinTable::resize(int upperBound) {
    const int bound = std::clamp(upperBound, 0, kMaximumBound);
    for (QStringList& column : m_columns) column.resize(bound + 1);
}

void PinTable::assign(int pin, const QString& name, int column) {
    if (pin < 1 || pin > kMaximumBound || column < 0 || column >= nameColumns()) return;
    if (pin > upperBound()) resize(pin);
    if (at(pin, column).isEmpty()) setCount(count(column) + 1, column);
    set(pin, name, column);
}

bool PinTable::lastRowEmpty() const {
    return std::all_of(m_columns.begin(), m_columns.begin() + nameColumns(),
                       [](const QStringList& column) { return column.last().isEmpty(); });
}

void PinTable::remove(int pin, int column) {
    if (pin < 1 || column < 0 || column >= nameColumns()) return;
    const bool last = pin == upperBound();
    set(pin, {}, column);
    while (last && lastRowEmpty()) resize(upperBound() - 1); // row 0 is never empty
    setCount(count(column) - 1, column);
}

int writePins(const PinTable& pins, PinForm form, QStringList& list) {
    const int bound = pins.upperBound();
    if (form == PinForm::ToCount) writeColumn(pins, 0, std::min(pins.count(), bound), list);
    if (form == PinForm::ToBound || form == PinForm::Graph) writeColumn(pins, 0, bound, list);
    if (form == PinForm::Graph) writeColumn(pins, 1, bound, list);
    return static_cast<int>(list.size()) - 1;
}

PinTable readPins(PinForm form, const QStringList& list, qsizetype first) {
    PinTable pins(form == PinForm::Graph ? PinTable::kGraphColumns : 1);
    if (form == PinForm::None) return pins;
    const int bound = form == PinForm::Graph ? graphBound(list, first) : boundOf(list, first);
    readColumn(pins, 0, list, first, bound);
    if (form == PinForm::Graph) readColumn(pins, 1, list, first + 2 + bound, bound);
    return pins;
}

QString tagCaption(const PinTable& pins) {
    QStringList parts;
    for (int column = 0; column < pins.nameColumns(); ++column) {
        const QString part = columnCaption(pins, column);
        if (!part.isEmpty()) parts << part;
    }
    return parts.join(u' ');
}

} // namespace vistor
