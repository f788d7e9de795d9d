// The grid in which windows show the pins of an instrument: pin, axis of a graph, variable and its group. In:
// rows. Out: what stands in the table widget.
#pragma once

#include "instruments/PinChoice.h"

class QTableWidget;

namespace vistor {

/// Looks and keys of such a grid, once.
void makePinGrid(QTableWidget& grid);

/// Puts rows into it. `axisHeader` heads the column of axes; without one there is none.
void fillPinGrid(QTableWidget& grid, const QString& pinLabel, const QString& axisHeader,
                 const std::vector<PinRow>& rows);

} // namespace vistor
