#include "maths/DefinitionTables.h"

#include "maths/TableCells.h"
#include "platform/CodePage.h"

#include <QSet>

#include <algorithm>
#include <iterator>

namespace vistor {
namespace {

/// A column of a table: its head, and the way of a field into a cell and out of one.
template <typename Row>
struct Column {
    const char* head;
    QString (*cell)(const Row&);
    bool (*read)(Row&, const QString&);
};

template <auto Member, typename Row>
constexpr Column<Row> column(const char* head) {
    return {head, [](const Row& row) { return toCell(row.*Member); },
            [](Row& row, const QString& cell) { return fromCell(cell, row.*Member); }};
}

/// A limit of 0 is told when the other limit is set.
template <auto Member>
constexpr Column<VariableDefinition> limitColumn(const char* head) {
    auto limit = column<Member, VariableDefinition>(head);
    limit.cell = [](const VariableDefinition& row) {
        const bool set = row.DefaultMin != 0 || row.DefaultMax != 0;
        return set && row.*Member == 0 ? QStringLiteral("0") : toCell(row.*Member);
    };
    return limit;
}

constexpr Column<UnitConversion> kUnitColumns[] = {
    {"Key",
     [](const UnitConversion& row) {
         return row.UnitName.isEmpty() ? emptyTextCell() : toCell(row.UnitName);
     },
     [](UnitConversion& row, const QString& cell) { return fromCell(cell, row.UnitName); }},
    column<&UnitConversion::Uniit, UnitConversion>("Label"),
    column<&UnitConversion::Conversion, UnitConversion>("Conversion"),
    column<&UnitConversion::Description, UnitConversion>("Description"),
};

constexpr const char* kNumber = "Number";
constexpr const char* kIndex = "Index";

template <auto Member>
constexpr Column<VariableDefinition> field(const char* head) {
    return column<Member, VariableDefinition>(head);
}
constexpr Column<VariableDefinition> kVariableColumns[] = {
    field<&VariableDefinition::PhysicalName>("PhysicalName"),
    field<&VariableDefinition::BaseName>("BaseName"),
    field<&VariableDefinition::VariableType>("Type"),
    limitColumn<&VariableDefinition::DefaultMin>("Min"),
    limitColumn<&VariableDefinition::DefaultMax>("Max"),
    field<&VariableDefinition::ApplyTransformation>("Unit"),
    field<&VariableDefinition::AllowTransformations>("Units"),
    field<&VariableDefinition::allowLowerBound>("UnitsFrom"),
    field<&VariableDefinition::UseCustomTrans>("UseFormula"),
    field<&VariableDefinition::CustomTransformation>("Formula"),
    field<&VariableDefinition::CustomUnits>("FormulaUnit"),
    field<&VariableDefinition::Calculus>("Calculus"),
    field<&VariableDefinition::SmoothingTime>("Smoothing"),
    field<&VariableDefinition::MaximumROC>("MaximumROC"),
    field<&VariableDefinition::FilterDesign>("FilterDesign"),
    field<&VariableDefinition::FilterLowVal>("FilterLow"),
    field<&VariableDefinition::FilterHighVal>("FilterHigh"),
    field<&VariableDefinition::FilterRipple>("FilterRipple"),
    field<&VariableDefinition::FilterOrder>("FilterOrder"),
    field<&VariableDefinition::AlwaysOn>("AlwaysOn"),
    field<&VariableDefinition::Misc>("Misc"),
    field<&VariableDefinition::Description>("Description"),
};

template <typename Row>
QStringList cellsOf(std::span<const Column<Row>> columns, const Row& row) {
    QStringList cells;
    for (const Column<Row>& column : columns) cells += column.cell(row);
    return cells;
}

/// Lines of cells as the text of a table, without the columns that are empty throughout.
QByteArray printed(const QList<QStringList>& lines) {
    QList<qsizetype> kept;
    for (qsizetype i = 0; i < lines.front().size(); ++i) {
        if (std::any_of(lines.begin() + 1, lines.end(), [=](const auto& line) { return !line[i].isEmpty(); }))
            kept += i;
    }
    QByteArray text;
    for (const QStringList& line : lines) {
        QStringList cells;
        for (const qsizetype i : kept) cells += line[i];
        QString joined = cells.join(u'\t');
        while (joined.endsWith(u'\t')) joined.chop(1);
        text += joined.toUtf8() + '\n';
    }
    return text;
}

template <typename Row>
QStringList heads(std::span<const Column<Row>> columns) {
    QStringList names;
    for (const Column<Row>& column : columns) names += QString::fromLatin1(column.head);
    return names;
}

/// One table under its header, line by line. The first fault ends the reading.
class TableReader {
public:
    TableReader(const char* file, const QByteArray& text, TableFault& fault) : m_fault(fault) {
        m_fault = {QString::fromLatin1(file), 1, {}};
        const QByteArray plain = unmarked(text);
        for (std::string_view rest = viewOf(plain); !rest.empty();) m_lines += fromCodePage(takeLine(rest));
        if (m_lines.isEmpty()) m_lines += QString();
        m_heads = cellsOfLine(0);
    }

    bool failed() const { return !m_fault.message.isEmpty(); }
    void fail(const QString& message) {
        if (!failed()) m_fault.message = message;
    }

    void checkHeads(const QStringList& known, const QString& needed) {
        for (const QString& head : m_heads) {
            if (!known.contains(head)) return fail(QStringLiteral("there is no column \"%1\"").arg(head));
            if (m_heads.count(head) > 1) return fail(QStringLiteral("column \"%1\" comes twice").arg(head));
        }
        if (!m_heads.contains(needed)) fail(QStringLiteral("column \"%1\" is missing").arg(needed));
    }

    /// The next line that is not blank; false at the end or after a fault.
    bool next() {
        while (!failed() && m_fault.line < m_lines.size()) {
            m_cells = cellsOfLine(m_fault.line++);
            if (m_cells == QStringList(QString())) continue;
            if (m_cells.size() > m_heads.size()) fail(QStringLiteral("more cells than columns"));
            return !failed();
        }
        return false;
    }

    QString cell(const char* head) const { return m_cells.value(m_heads.indexOf(QLatin1String(head))); }

    template <typename Row>
    void read(std::span<const Column<Row>> columns, Row& row) {
        for (const Column<Row>& column : columns) {
            const QString text = cell(column.head);
            if (!text.isEmpty() && !column.read(row, text)) return failCell(column.head);
        }
    }
    template <typename Number>
    void readNumber(const char* head, Number& number) {
        if (!fromCell(cell(head), number)) failCell(head);
    }

private:
    QStringList cellsOfLine(int line) const { return m_lines[line].split(u'\t'); }
    void failCell(const char* head) {
        fail(QStringLiteral("\"%1\" cannot stand in column \"%2\"").arg(cell(head), QLatin1String(head)));
    }

    TableFault& m_fault;
    QStringList m_lines;
    QStringList m_heads;
    QStringList m_cells;
};

std::vector<UnitConversion> readUnits(const QByteArray& text, TableFault& fault) {
    TableReader reader(kUnitsTable, text, fault);
    reader.checkHeads(heads<UnitConversion>(kUnitColumns), QString::fromLatin1(kUnitColumns[0].head));
    std::vector<UnitConversion> units;
    QSet<QString> keys;
    while (reader.next()) {
        reader.read<UnitConversion>(kUnitColumns, units.emplace_back());
        const QString& key = units.back().UnitName;
        if (keys.contains(key)) reader.fail(QStringLiteral("unit \"%1\" comes twice").arg(key));
        keys.insert(key);
    }
    return units;
}

void checkVariable(TableReader& reader, const VariableDefinition& row, const QSet<QString>& units,
                   QSet<QString>& names) {
    QStringList keys = row.AllowTransformations.value_or(QStringList());
    if (!row.ApplyTransformation.isEmpty()) keys += row.ApplyTransformation;
    for (const QString& key : keys) {
        if (!units.contains(key)) return reader.fail(QStringLiteral("there is no unit \"%1\"").arg(key));
    }
    const QString name = foldedCase(row.PhysicalName.trimmed());
    if (name.isEmpty()) return;
    if (names.contains(name))
        return reader.fail(QStringLiteral("name \"%1\" comes twice").arg(row.PhysicalName));
    names.insert(name);
}

std::vector<VariableDefinition> readVariables(const QByteArray& text,
                                              const std::vector<UnitConversion>& units, TableFault& fault) {
    TableReader reader(kVariablesTable, text, fault);
    reader.checkHeads(QStringList{kNumber, kIndex} + heads<VariableDefinition>(kVariableColumns), kNumber);
    QSet<QString> keys;
    for (const UnitConversion& unit : units) keys.insert(unit.UnitName);
    QSet<QString> names;
    QSet<std::int32_t> numbers;
    std::vector<VariableDefinition> rows(kVariableCount);
    while (reader.next()) {
        std::int32_t number = -1;
        reader.readNumber(kNumber, number);
        if (number < 0 || number >= kVariableCount) reader.fail(QStringLiteral("a number is 0 to 8000"));
        if (numbers.contains(number)) reader.fail(QStringLiteral("number %1 comes twice").arg(number));
        if (reader.failed()) break;
        numbers.insert(number);
        VariableDefinition& row = rows[static_cast<std::size_t>(number)];
        row.IndexNumber = number;
        if (!reader.cell(kIndex).isEmpty()) reader.readNumber(kIndex, row.IndexNumber);
        reader.read<VariableDefinition>(kVariableColumns, row);
        if (!reader.failed()) checkVariable(reader, row, keys, names);
    }
    return rows;
}

QByteArray printVariables(const std::vector<VariableDefinition>& variables) {
    QList<QStringList> lines = {QStringList{kNumber, kIndex} + heads<VariableDefinition>(kVariableColumns)};
    for (std::size_t number = 0; number < variables.size(); ++number) {
        const VariableDefinition& row = variables[number];
        const QStringList cells = cellsOf<VariableDefinition>(kVariableColumns, row);
        if (row.IndexNumber == 0 && cells.join(QString()).isEmpty()) continue;
        const bool own = row.IndexNumber == static_cast<std::int32_t>(number);
        const QString index = own ? QString() : QString::number(row.IndexNumber);
        lines += QStringList{QString::number(number), index} + cells;
    }
    return printed(lines);
}

} // namespace

std::optional<Definitions> readTables(const DefinitionTables& tables, TableFault& fault) {
    Definitions definitions;
    definitions.units = readUnits(tables.units, fault);
    if (!fault.message.isEmpty()) return std::nullopt;
    definitions.variables = readVariables(tables.variables, definitions.units, fault);
    if (!fault.message.isEmpty()) return std::nullopt;
    return definitions;
}

DefinitionTables printTables(const Definitions& definitions) {
    QList<QStringList> units = {heads<UnitConversion>(kUnitColumns)};
    for (const UnitConversion& unit : definitions.units) units += cellsOf<UnitConversion>(kUnitColumns, unit);
    return {printVariables(definitions.variables), printed(units)};
}

} // namespace vistor
