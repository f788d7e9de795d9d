// Which variables the filter box above the tree leaves to be seen. In: what a person types, and the tree's
// lines. Out: a flag for each line.
#pragma once

#include "variables/VariableTree.h"

namespace vistor {

/// Whether each line is to be seen: the variables of which every word of the filter stands somewhere in their
/// own text or in that of their group, with all that lies below and above them. Without words, all.
std::vector<bool> linesShown(std::span<const TreeLine> lines, const QString& words);

} // namespace vistor
