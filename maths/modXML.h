// The text form of the variable table and of the unit conversions: XML files in the program's code page. In:
// a file, or the live table. Out: the live tables, or a file.
#pragma once

#include "maths/XmlDocument.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QByteArray>
#include <QString>

#include <span>

namespace vistor {

/// Writes the rows of the live table that have a number, 1 to 8000, to a file, in place of what stood there.
/// Nothing is escaped: a text with "<" or "&" makes a file that cannot be read again. When
/// the file cannot be written the old one stands, and a notice tells it.
void SaveXvrDocument(const QString& path);

/// Reads a file into the live table, or with `units` into the live unit conversions. A file that is no
/// document shows one message and leaves both as they were. A block is stored when the next one begins, so
/// the last one only if it is that of row 8000. No set-up pass is run.
void LoadXvrDocument(const QString& path, bool units);

/// What LoadXvrDocument does with a document that was read.
void storeVariables(const XmlDocument& document);
void storeUnits(const XmlDocument& document);

/// Puts the text of every known element below into its slot, and commits the slots wherever an element with
/// several children begins.
void WalkVariableNodes(const XmlNodeList& nodes);
void WalkUnitNodes(const XmlNodeList& nodes);

/// Moves the slots into the row that the first of them names. What cannot be converted stays as it is in the
/// row.
void CommitVariableSlots();

/// The text that SaveXvrDocument writes for a table.
QByteArray xvrBytes(std::span<const VariableDefinition> variables);
/// Unit conversions as a file that LoadXvrDocument reads.
QByteArray xvrUnitBytes(std::span<const UnitConversion> units);

} // namespace vistor
