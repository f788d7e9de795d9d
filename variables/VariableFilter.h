// Which variables the filter box above the tree leaves to be seen. In: what a person types, the tree's lines,
// and the PhysicalName of the variable to which each belongs. Out: a flag for each line.
#pragma once

#include "variables/VariableTree.h"

namespace vistor {

/// Whether each line is to be seen: the variables of which every word of the filter stands somewhere in their
/// own text, their PhysicalName (as formulas and pins have it) or the text of their group, with all that lies
/// below and above them. Without words, all.
std::vector<bool> linesShown(std::span<const TreeLine> lines, std::span<const QString> physicalNames,
                             const QString& words);

} // namespace vistor
