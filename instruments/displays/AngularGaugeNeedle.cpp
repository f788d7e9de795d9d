#include "instruments/displays/AngularGaugeNeedle.h"

#include <QPainter>
#include <QTransform>

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

constexpr double kOversampling = 2; ///< keeps turned edges crisp
constexpr double kMargin = 1.5;     ///< logical pixels, for what an edge fades into
const QColor kShadow(0, 0, 0, 70);

double detailFor(const QSizeF& size, double ratio, double mostPixels) {
    const double area = std::max(size.width() * size.height(), 1.0);
    return std::min(kOversampling * ratio, std::sqrt(mostPixels / area));
}

QPixmap pictureOf(const QSizeF& size, double detail) {
    QPixmap picture((size * detail).toSize().expandedTo(QSize(1, 1)));
    picture.fill(Qt::transparent);
    return picture;
}

} // namespace

NeedlePicture::NeedlePicture(const NeedlePlace& needle, double ratio, double mostPixels)
    : m_section(needle.section), m_on(needle.on), m_shadowDistance(needle.shadow) {
    const QRectF bounds = needle.outline.boundingRect().adjusted(-kMargin, -kMargin, kMargin, kMargin);
    m_pivot = -bounds.topLeft();
    m_detail = detailFor(bounds.size(), ratio, mostPixels);
    const auto draw = [this](QPixmap& picture, const QPolygonF& outline, const QColor& colour) {
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(m_detail, m_detail);
        painter.translate(m_pivot);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawPolygon(outline);
    };
    m_body = pictureOf(bounds.size(), m_detail);
    draw(m_body, needle.outline, needle.colour);
    if (needle.edge != needle.colour) draw(m_body, needle.half, needle.edge);
    if (m_shadowDistance <= 0) return;
    m_shadow = pictureOf(bounds.size(), m_detail);
    draw(m_shadow, needle.outline, kShadow);
}

double NeedlePicture::angle(const PropertyStore& properties) const {
    return dialAngle(m_on.scale, properties.number(NeedleValue, m_section));
}

/// From the upright picture's pixels to the display.
QTransform NeedlePicture::turned(const QPointF& offset, double angle) const {
    const QPointF centre = m_on.place.centre + offset;
    return QTransform::fromTranslate(centre.x(), centre.y())
        .rotate(angle)
        .translate(-m_pivot.x(), -m_pivot.y())
        .scale(1 / m_detail, 1 / m_detail);
}

QRectF NeedlePicture::bounds(double angle) const {
    const QRectF body = turned({}, angle).mapRect(QRectF(m_body.rect()));
    return m_shadow.isNull() ? body : body.united(body.translated(shadowOffset()));
}

void NeedlePicture::paint(QPainter& painter, double angle) {
    const QTransform before = painter.transform();
    if (!m_shadow.isNull()) {
        painter.setTransform(turned(shadowOffset(), angle) * before);
        painter.drawPixmap(QPointF(), m_shadow);
    }
    painter.setTransform(turned({}, angle) * before);
    painter.drawPixmap(QPointF(), m_body);
    painter.setTransform(before);
    m_paintedAngle = angle;
}

} // namespace vistor
