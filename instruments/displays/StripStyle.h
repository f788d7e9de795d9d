// What the properties of a strip say about its looks, as plain values. In: properties. Out: colours, pens,
// fonts and ranges, with defaults for what is out of bounds.
#pragma once

#include "instruments/displays/Panel.h"
#include "instruments/displays/PropertyStore.h"
#include "instruments/displays/StripAxes.h"
#include "instruments/displays/StripTable.h"

#include <QColor>
#include <QFont>

#include <span>

namespace vistor {

struct StripStyle {
    PanelStyle panel;
    QColor plot; ///< ground of the grid
    QColor fore; ///< of numbers; legible on the panel whatever was set
    QColor grid;
    QColor frame;
    QFont font;
    bool gridX = false; ///< lines at the X numbers
    bool gridY = false;
    bool numbersX = false;
    bool numbersY = false;
    bool marker = false;
};

struct TraceStyle {
    QColor colour;
    double width = 1.5;               ///< logical pixels
    std::span<const double> dashes{}; ///< on, off, on ... in widths; empty: solid
    StripSymbol symbol = StripSymbol::None;
    double symbolSize = 7; ///< logical pixels
};

/// `size` is the panel's, in logical pixels.
StripStyle stripStyle(const PropertyStore& properties, const QSizeF& size);

/// Trace i takes line style and symbol from line section i, round again where there are fewer.
TraceStyle traceStyle(const PropertyStore& properties, int trace);
/// The name that a line section gives to its own trace; empty where it gives none.
QString traceName(const PropertyStore& properties, int trace);

/// Decimals that an axis is to have even where its steps need fewer: X by StripDecimalsX, a trace's Y by
/// StripDecimalsY. A number that nobody could have entered asks for none.
int leastDecimals(const PropertyStore& properties, StripProperty number, int index = 0);

/// The trace that the selector names, 0 without traces.
int currentTrace(const PropertyStore& properties);
/// The range that a trace is painted on: its own, or with auto scale the one that all share.
AxisRange rangeY(const PropertyStore& properties, int trace);

} // namespace vistor
