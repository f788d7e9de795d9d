// The lines of the variable tree: a group for every kind of variable, in them the enabled variables, below
// each its settings. In: the rows of a table. Out: the lines in their order, each with key, text, picture,
// parent.
#pragma once

#include "variables/GlobalVarsAndTypes.h"

#include <QString>

#include <cstdint>
#include <span>
#include <vector>

namespace vistor {

enum class LineKind : std::uint8_t {
    Group,
    Variable,
    Advanced,
    Filtering,
    Calculus,
    MaximumROC,
    Units,
    CorrectionStandard,
    Name,
    Minimum,
    Maximum,
    Smoothing
};

struct TreeLine {
    LineKind kind;
    QString key; ///< no two lines have the same
    QString text;
    const char* picture;
    int parent; ///< its place among the lines; -1: none
    int row;    ///< of the table; 0 for a group
};

/// All lines of a table, parents before their children. A line whose key is taken, or whose parent there is
/// not, is left out; those after it come all the same.
std::vector<TreeLine> variableTreeLines(std::span<const VariableDefinition> table);

/// What a line of that kind says about a row.
QString lineText(LineKind kind, const VariableDefinition& row);

/// Whether a line of that kind has something to edit.
bool hasSettings(LineKind kind);

/// The short label of the unit in which a row's values come.
QString unitText(const VariableDefinition& row);

} // namespace vistor
