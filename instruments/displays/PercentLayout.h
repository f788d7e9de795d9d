// A percentage bar laid out for a size: what the properties ask for, in logical pixels. In: properties and a
// rectangle. Out: bars, colours and texts. Numbers from a file are brought into bounds here.
#pragma once

#include "instruments/displays/PercentGeometry.h"
#include "instruments/displays/PercentProperties.h"

#include <QBrush>

namespace vistor {

struct PortionStyle {
    QBrush fill;
    QColor colour;
    QColor textColour;
    PortionTextForm text = PortionTextForm::Percent;
    QString name;

    QColor onPortion() const;
};

struct PercentPlan {
    QRectF panel;
    PanelStyle style;
    PortionRule rule;
    std::vector<PercentBar> bars;       ///< one, or one a portion
    std::vector<PortionStyle> portions; ///< in the order of their pins
    QColor track;
    QColor textColour;         ///< off the portions
    std::optional<QFont> font; ///< none: too small to read
    int decimals = 0;          ///< of values
    QString unit;

    bool round() const { return bars.front().round; }
    /// Texts stand under one another inside the rings, where there is room for them.
    bool textInHole() const;
    /// Each portion's text has a whole bar to itself.
    bool barEach() const { return portions.size() <= 1 || !rule.stacked; }
    const PercentBar& barOf(std::size_t portion) const { return bars[std::min(portion, bars.size() - 1)]; }
};

/// `page` is the colour behind the instrument.
PercentPlan layOutPercent(const PropertyStore& properties, const QRectF& panel, const QColor& page);

/// What a portion says of itself; empty for nothing.
QString portionText(const PercentPlan& plan, std::size_t portion, double value, const PortionSpan& span);

/// A font so small that a text of this width in `font` fits; no value where nobody could read that.
std::optional<QFont> fittedTo(QFont font, double textWidth, double room);

} // namespace vistor
