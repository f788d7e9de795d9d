// A linear gauge laid out for a size: what the properties ask for, in logical pixels. In: properties and a
// rectangle. Out: places of scales, pointers and numbers. Numbers from a file are brought into bounds here.
#pragma once

#include "instruments/displays/LinearGaugeGeometry.h"
#include "instruments/displays/LinearGaugeProperties.h"

namespace vistor {

struct PointerPlace {
    int section = 0;
    LinearScale on;
    PointerStyle style = PointerStyle::Bar;
    BandStyle form = BandStyle::Rectangle; ///< of a bar
    double base = 0;                       ///< along, where a bar begins
    double near = 0;                       ///< across; on a bar the smaller one
    double far = 0;
    double halfWidth = 0; ///< of a mark
    QColor colour;
    QColor edge;
};

/// A pointer's value in digits.
struct NumberPlace {
    int section = 0;
    QPointF at; ///< its middle
    QFont font;
    QColor colour;
    QRectF room; ///< that it may not leave
    int decimals = 0;
    QString unit;
};

struct LinearLayout {
    QRectF panel;
    QRectF room; ///< inside border and caption
    PanelStyle style;
    double unit = 0; ///< that captions and numbers are measured by
    std::vector<LinearScale> scales;
    std::vector<PointerPlace> pointers; ///< those to be seen, marks behind bars
    std::vector<NumberPlace> numbers;

    /// The scale of a section that names it by number; the nearest one, or a usual one where there is none.
    LinearScale scaleAt(int index) const;
};

/// `page` is the colour behind the instrument.
LinearLayout layOutLinearGauge(const PropertyStore& properties, const QRectF& panel, const QColor& page);

/// The font of a font section. No value where it would be too small to read.
std::optional<QFont> linearFont(const PropertyStore& properties, int section, double unit);
/// Where the middle of a caption or number stands, from its shares of the room: it stays inside from top to
/// bottom.
QPointF linearTextPlace(const QRectF& room, double xShare, double yShare, const QFont& font);
/// How many pixels wide a band is, or a bar.
BarSpan bandSpan(const PropertyStore& properties, const LinearScale& scale, int section);

} // namespace vistor
