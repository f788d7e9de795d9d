// A dial laid out for a size: what the properties ask for, in logical pixels. In: properties and a rectangle.
// Out: places of the dial, its scales and needles. Numbers from a file are brought into bounds here.
#pragma once

#include "instruments/displays/AngularGaugeGeometry.h"
#include "instruments/displays/AngularGaugeProperties.h"
#include "instruments/displays/PropertyStyles.h"

#include <QColor>
#include <QFont>

#include <optional>

namespace vistor {

struct ScalePlace {
    DialScale scale;
    DialPlace place;
};

struct NeedlePlace {
    int section = 0;
    ScalePlace on;
    QPolygonF outline; ///< pointing up from (0, 0)
    QPolygonF half;    ///< its right half, in the edge colour
    QColor colour;
    QColor edge;
    double shadow = 0; ///< its distance; 0: none
};

struct DialLayout {
    QRectF panel;
    PanelStyle style;
    GaugeFaceForm face = GaugeFaceForm::None;
    QPainterPath outline; ///< of the face
    DialPlace dial;
    double rim = 0;                   ///< its width
    std::vector<ScalePlace> scales;   ///< at least one: without sections a usual one
    std::vector<NeedlePlace> needles; ///< those to be seen

    /// The scale of a section that names it by number, or the nearest one.
    ScalePlace scaleAt(int index) const;
};

/// `page` is the colour behind the instrument.
DialLayout layOutDial(const PropertyStore& properties, const QRectF& panel, const QColor& page);

/// The colour that texts of a dial stand on.
QColor groundOf(const PropertyStore& properties, const DialLayout& layout);

/// The font of a font section, for a dial of this radius. No value where it would be too small to read.
std::optional<QFont> dialFont(const PropertyStore& properties, int section, double radius);

} // namespace vistor
