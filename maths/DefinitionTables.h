// The definitions as two readable tables: tab-separated UTF-8 with a header line, one line a variable and one
// line a unit conversion. In: the tables as text. Out: definitions; and the way back.
#pragma once

#include "maths/LoadAndSaveVariableDefinitions.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace vistor {

inline constexpr const char* kVariablesTable = "variables.tsv";
inline constexpr const char* kUnitsTable = "units.tsv";

/// The two tables as the text of their files.
struct DefinitionTables {
    QByteArray variables;
    QByteArray units;
};

/// Why and where a table could not be read.
struct TableFault {
    QString file; ///< kVariablesTable or kUnitsTable
    int line = 0; ///< from 1, the header line
    QString message;
};

/// The definitions behind two tables, always with rows 0 to 8000; a number without a line is an empty row.
/// The header names the columns, in any order; a column or a cell that is not there means 0 or an empty text.
/// No value, and `fault` filled, when a column, number, key or character cannot be, or a name or number comes
/// twice.
std::optional<Definitions> readTables(const DefinitionTables& tables, TableFault& fault);

/// The tables behind definitions, without rows and columns that say nothing. What the set-up pass derives
/// (ConstantName, Available, Enabled) is left out, and a Boolean is told as yes or nothing.
DefinitionTables printTables(const Definitions& definitions);

} // namespace vistor
