#include "instruments/displays/AngularGaugeFace.h"

#include "instruments/Colours.h"
#include "instruments/displays/AngularGaugeTics.h"
#include "instruments/displays/GaugePaint.h"

#include <QPainter>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

QPainterPath stroked(const QPainterPath& path, double width) {
    QPainterPathStroker stroker;
    stroker.setWidth(width);
    stroker.setJoinStyle(Qt::RoundJoin);
    return stroker.createStroke(path);
}

void paintRim(QPainter& painter, const QColor& colour, bool shaded, const DialLayout& layout) {
    if (layout.rim <= 0) return;
    const QRectF bounds = layout.outline.boundingRect();
    painter.fillPath(stroked(layout.outline, 2 * layout.rim), shaded ? metal(bounds, colour, false) : colour);
    if (!shaded) return;
    painter.fillPath(stroked(layout.outline, 0.9 * layout.rim),
                     metal(bounds, mixed(colour, Qt::black, 0.35), true));
}

void paintGround(QPainter& painter, const PropertyStore& p, const DialLayout& layout) {
    if (layout.face == GaugeFaceForm::None || layout.dial.radius <= 0) return;
    const bool shaded = p.flag(GaugeShading);
    paintRim(painter, colourOf(p.integer(GaugeRimColour)), shaded, layout);
    const QColor face = colourOf(p.integer(GaugeFaceColour));
    QRadialGradient depth(layout.dial.centre, layout.dial.radius);
    depth.setColorAt(0, face);
    depth.setColorAt(0.55, mixed(face, colourOf(p.integer(GaugeFaceEdgeColour)), 0.3));
    depth.setColorAt(1, colourOf(p.integer(GaugeFaceEdgeColour)));
    painter.fillPath(layout.outline, shaded ? QBrush(depth) : QBrush(face));
}

void paintAnnular(QPainter& painter, const PropertyStore& p, const DialLayout& layout, int i) {
    const ScalePlace on = layout.scaleAt(p.integer(AnnularScale, i));
    const double from = dialAngle(on.scale, p.number(AnnularStartValue, i));
    const double to = dialAngle(on.scale, p.number(AnnularStopValue, i));
    if (from == to) return;
    const auto radius = [&](int number) { return std::clamp(usualSize(p, number, i), 0.0, 3.0); };
    QColor colour = colourOf(p.integer(AnnularColour, i));
    colour.setAlphaF(float(1 - std::clamp(p.number(AnnularTransparency, i), 0.0, 1.0)));
    painter.fillPath(ringPart(on.place, radius(AnnularInnerRadius), radius(AnnularOuterRadius), from, to),
                     colour);
}

void paintCaption(QPainter& painter, const PropertyStore& p, const DialLayout& layout, int i) {
    const QString text = p.text(CaptionText, i).left(kLongestText);
    if (text.isEmpty()) return;
    const DialPlace& dial = layout.dial;
    const auto font = dialFont(p, p.integer(CaptionFont, i), dial.radius);
    if (!font) return;
    painter.setFont(*font);
    painter.setPen(legibleOn(colourOf(p.integer(CaptionColour, i)), groundOf(p, layout)));
    const int alignment = p.integer(CaptionAlignment, i);
    const QPointF place(boundedPlace(p, CaptionX, i), boundedPlace(p, CaptionY, i));
    paintTextAt(painter, dial.centre + place * dial.radius, text,
                alignment == 1   ? 0
                : alignment == 2 ? 1
                                 : 0.5);
}

DialPlace hubPlace(const PropertyStore& p, const DialLayout& layout, int i) {
    const DialPlace place = layout.scaleAt(p.integer(HubScale, i)).place;
    return {place.centre, std::min(usualSize(p, HubRadius, i), 2.0) * place.radius};
}

QRectF boundsOf(const DialPlace& disc) {
    return {disc.centre.x() - disc.radius, disc.centre.y() - disc.radius, 2 * disc.radius, 2 * disc.radius};
}

} // namespace

void paintFace(QPainter& painter, const PropertyStore& properties, const DialLayout& layout) {
    paintPanel(painter, layout.style, layout.panel);
    painter.setClipRect(panelInside(layout.style, layout.panel));
    paintGround(painter, properties, layout);
    for (int i = 0; i < properties.integer(GaugeAnnulars); ++i) paintAnnular(painter, properties, layout, i);
    // The first row, with the labels, lies above the finer ones.
    for (int i = properties.integer(GaugeTics) - 1; i >= 0; --i) paintTics(painter, properties, layout, i);
    for (int i = 0; i < properties.integer(GaugeCaptions); ++i) paintCaption(painter, properties, layout, i);
}

QRectF hubBounds(const PropertyStore& properties, const DialLayout& layout) {
    QRectF bounds;
    for (int i = 0; i < properties.integer(GaugeHubs); ++i)
        bounds = bounds.united(boundsOf(hubPlace(properties, layout, i)));
    return bounds.intersected(layout.panel);
}

void paintHubs(QPainter& painter, const PropertyStore& properties, const DialLayout& layout) {
    painter.setPen(Qt::NoPen);
    for (int i = 0; i < properties.integer(GaugeHubs); ++i) {
        const DialPlace hub = hubPlace(properties, layout, i);
        const QColor colour = colourOf(properties.integer(HubColour, i));
        const bool shaded = properties.flag(GaugeShading);
        painter.setBrush(shaded ? metal(boundsOf(hub), mixed(colour, Qt::black, 0.25), false)
                                : QBrush(colour));
        painter.drawEllipse(hub.centre, hub.radius, hub.radius);
        if (!shaded) continue;
        painter.setBrush(metal(boundsOf(hub), colour, true));
        painter.drawEllipse(hub.centre, 0.88 * hub.radius, 0.88 * hub.radius);
    }
}

} // namespace vistor
