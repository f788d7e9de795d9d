// The saved list's middle part: a kind's properties by position. In: a store or a list. Out: the other. Width
// and height before it and the pins after it are the instrument's own.
#pragma once

#include "instruments/displays/PropertyStore.h"

#include <QStringList>

namespace vistor {

inline constexpr int kFirstPropertyItem = 2;

/// Appends every fixed property and every section's fields, in the table's order. Selectors stay where they
/// are.
void writeProperties(const PropertyStore& store, QStringList& list);

/// Reads them back and answers the position of what comes after them. Where a block stands follows from the
/// counts in the list alone; items that the list lacks leave their property as it is. Selectors end at 0.
qsizetype readProperties(PropertyStore& store, const QStringList& list);

} // namespace vistor
