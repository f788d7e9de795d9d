// The binary definition file: the unit conversions and the variable table in one stream of bytes. In: a file,
// or bytes. Out: the live tables, or bytes. Nothing in a file is believed before it is checked.
#pragma once

#include "platform/WholeFile.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace vistor {

/// The most bytes that a text in a definition file can have.
inline constexpr qsizetype kLongestText = 65535;
/// The most rows of unit conversions that a file is believed.
inline constexpr std::size_t kMostConversions = 32768;

/// What one definition file holds.
struct Definitions {
    std::vector<UnitConversion> units;
    std::vector<VariableDefinition> variables;
};

/// Replaces the live tables by those of a file and runs the set-up pass. A file that is missing (it is then
/// made, empty), cut short or wrong in any count shows one message and leaves the tables as they were. An
/// empty path is the working file in the person's folder.
void LoadVariableFile(const QString& path);

/// Puts tables in place of the live ones and runs the set-up pass over them.
void replaceTables(Definitions&& definitions);

/// Puts the live tables in place of a file. When that fails the old file stands, and a notice tells it. An
/// empty path as above.
void SaveVariableFile(const QString& path);

/// The tables that `bytes` begin with; what follows the mark does not count. No value when the bytes end too
/// early, the mark is not there, or a count is impossible: a bound below -1 (-1 is a table without rows), a
/// table beyond row 8000, more than 32,768 conversions, an array of more than one dimension. Memory taken is
/// within a fixed multiple of the bytes given.
std::optional<Definitions> readDefinitions(std::string_view bytes);

/// The same tables as bytes. A text is cut at 65,535 bytes, which is all that its length field can tell.
QByteArray definitionBytes(std::span<const UnitConversion> units,
                           std::span<const VariableDefinition> variables);

/// The file at `path`, a plain one with no more bytes than a definition file may take.
FileBytes readDefinitionFile(const QString& path);

} // namespace vistor
