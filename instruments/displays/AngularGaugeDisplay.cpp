#include "instruments/displays/AngularGaugeDisplay.h"

#include "instruments/displays/AngularGaugeFace.h"

#include <QPainter>

namespace vistor {
namespace {

/// Of all needles' pictures together, so that a file cannot ask for more memory than a screen takes.
constexpr double kMostNeedlePixels = 4e6;

} // namespace

AngularGaugeDisplay::AngularGaugeDisplay(QWidget* parent) : InnerDisplay(kAngularGaugeTable, parent) {
    setNewDial(properties());
}

void AngularGaugeDisplay::paintStatic(QPainter& painter) {
    const DialLayout layout = layOutDial(properties(), rect(), palette().color(QPalette::Window));
    paintFace(painter, properties(), layout);
    m_needles.clear();
    const double share = kMostNeedlePixels / std::max(double(layout.needles.size()), 1.0);
    for (const NeedlePlace& needle : layout.needles)
        m_needles.emplace_back(needle, devicePixelRatioF(), share);
    paintHubPicture(layout);
}

void AngularGaugeDisplay::paintHubPicture(const DialLayout& layout) {
    m_hubs = QPixmap();
    const QRect bounds = hubBounds(properties(), layout).toAlignedRect();
    if (bounds.isEmpty()) return;
    const double ratio = devicePixelRatioF();
    m_hubs = QPixmap((QSizeF(bounds.size()) * ratio).toSize());
    m_hubs.setDevicePixelRatio(ratio);
    m_hubs.fill(Qt::transparent);
    m_hubPlace = bounds.topLeft();
    QPainter painter(&m_hubs);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(-m_hubPlace);
    paintHubs(painter, properties(), layout);
}

void AngularGaugeDisplay::paintMoving(QPainter& painter) {
    // Edges come smooth from the pictures; smoothing the turned frames as well would cost most of a repaint.
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (NeedlePicture& needle : m_needles) needle.paint(painter, needle.angle(properties()));
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    if (!m_hubs.isNull()) painter.drawPixmap(m_hubPlace, m_hubs);
}

QRect AngularGaugeDisplay::movedPart() const {
    QRectF part;
    for (const NeedlePicture& needle : m_needles) {
        const double angle = needle.angle(properties());
        if (angle != needle.paintedAngle())
            part = part.united(needle.bounds(angle)).united(needle.bounds(needle.paintedAngle()));
    }
    return part.toAlignedRect();
}

} // namespace vistor
