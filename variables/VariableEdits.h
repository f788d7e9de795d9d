// What an edit of a line of the variable tree asks, accepts and writes. In: a line's key and the person's
// answer. Out: the working copy of the table changed, then the table itself and its file.
#pragma once

#include "variables/VariableTree.h"

#include <optional>

namespace vistor {

/// What a line's key names.
struct LineTarget {
    LineKind kind = LineKind::Group; ///< Group: nothing to edit
    int row = kNoVariable;           ///< of the variable; 8000 where the name fits none
};

/// Reads a key: what is edited stands between its first two "#", the variable's name behind the second.
LineTarget targetOf(const QString& key);

struct LineEdit {
    bool changed = false; ///< the working copy; to be committed
    QString text;         ///< what the line says now; empty: as before
};

/// Asks for the new value of a line that is a name or a number and puts the answer into VariableTableEdit. No
/// value where the person gave no answer or the line is of another kind. A number that a row cannot hold
/// changes nothing.
std::optional<LineEdit> editByPrompt(const LineTarget& target);

/// Whether the working copy has such a row.
bool hasEditRow(int row);

/// Makes the working copy the table, runs the set-up pass over it, takes the result back as the working copy
/// and saves it to the definition file in use.
void commitVariableEdits();

} // namespace vistor
