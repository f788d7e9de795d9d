// What an edit of a line of the variable tree asks, accepts and writes. In: a line's kind and row, the
// person's answer. Out: the working copy of the table changed, then the table itself and its file.
#pragma once

#include "variables/VariableTree.h"

#include <optional>

namespace vistor {

struct LineEdit {
    bool changed = false; ///< the working copy; to be committed
    QString text;         ///< what the line says now; empty: as before
};

/// Asks for the new value of a line that is a name or a number and puts the answer into its row of
/// VariableTableEdit, whatever name that has. No value where the person gave no answer or the line is of
/// another kind. A number that a row cannot hold changes nothing.
std::optional<LineEdit> editByPrompt(LineKind kind, int row);

/// Whether the working copy has such a row.
bool hasEditRow(int row);

/// Makes the working copy the table, runs the set-up pass over it, takes the result back as the working copy
/// and saves it to the definition file in use.
void commitVariableEdits();

} // namespace vistor
