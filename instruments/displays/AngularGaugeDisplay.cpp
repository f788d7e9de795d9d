#include "instruments/displays/AngularGaugeDisplay.h"

#include "instruments/displays/AngularGaugeFace.h"

#include <QPainter>

#include <cmath>

namespace vistor {
namespace {

const QColor kShadow(0, 0, 0, 70);

} // namespace

AngularGaugeDisplay::AngularGaugeDisplay(QWidget* parent) : InnerDisplay(kAngularGaugeTable, parent) {
    setNewDial(properties());
}

void AngularGaugeDisplay::paintStatic(QPainter& painter) {
    m_layout = layOutDial(properties(), rect(), palette().color(QPalette::Window));
    paintFace(painter, properties(), m_layout);
    paintHubPicture();
}

void AngularGaugeDisplay::paintHubPicture() {
    m_hubs = QPixmap();
    const QRect bounds = hubBounds(properties(), m_layout).toAlignedRect();
    if (bounds.isEmpty()) return;
    const double ratio = devicePixelRatioF();
    m_hubs = QPixmap((QSizeF(bounds.size()) * ratio).toSize());
    m_hubs.setDevicePixelRatio(ratio);
    m_hubs.fill(Qt::transparent);
    m_hubPlace = bounds.topLeft();
    QPainter painter(&m_hubs);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(-m_hubPlace);
    paintHubs(painter, properties(), m_layout);
}

void AngularGaugeDisplay::paintNeedle(QPainter& painter, const NeedlePlace& needle) const {
    const double angle = dialAngle(needle.on.scale, properties().number(NeedleValue, needle.section));
    const QPointF& centre = needle.on.place.centre;
    const auto turned = [angle](const QPointF& place) {
        return QTransform::fromTranslate(place.x(), place.y()).rotate(angle);
    };
    if (needle.shadow > 0) {
        painter.setBrush(kShadow);
        painter.drawPolygon(turned(centre + QPointF(needle.shadow / 2, needle.shadow)).map(needle.outline));
    }
    painter.setBrush(needle.colour);
    painter.drawPolygon(turned(centre).map(needle.outline));
    if (needle.edge == needle.colour) return;
    painter.setBrush(needle.edge);
    painter.drawPolygon(turned(centre).map(needle.half));
}

void AngularGaugeDisplay::paintMoving(QPainter& painter) {
    painter.setPen(Qt::NoPen);
    for (const NeedlePlace& needle : m_layout.needles) paintNeedle(painter, needle);
    if (!m_hubs.isNull()) painter.drawPixmap(m_hubPlace, m_hubs);
}

} // namespace vistor
