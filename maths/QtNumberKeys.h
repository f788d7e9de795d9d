// What a person may type into a box for numbers. In: a key press. Out: whether the box is to see it.
#pragma once

class QKeyEvent;

namespace vistor {

/// Whether a key types something that NumericKeyFilter keeps out. Keys that type nothing, such as arrows, and
/// commands pass.
bool refusesKey(const QKeyEvent& pressed);

} // namespace vistor
