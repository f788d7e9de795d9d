#include "instruments/displays/InnerDisplay.h"

#include "instruments/PropertySheet.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

/// Device pixels of a cached picture; of a larger display it is coarser.
constexpr double kLargestPicture = 9e6;

} // namespace

InnerDisplay::InnerDisplay(const KindTable& table, QWidget* parent) : QWidget(parent), m_properties(table) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
}

void InnerDisplay::setProperties(const PropertyStore& properties) {
    m_properties = properties;
    m_staticRevision = 0; // another store counts for itself
    m_paintedRevision = 0;
    propertiesReplaced();
    redraw();
}

void InnerDisplay::call(int method) {
    if (method == kNoNumber) return;
    const KindTable::Methods& methods = m_properties.table().parts().methods;
    if (method == methods.redraw) return redraw();
    if (method == methods.sheet) openPropertySheet();
}

void InnerDisplay::redraw() {
    if (m_paintedRevision == m_properties.revision()) return;
    m_paintedRevision = m_properties.revision();
    update(staticPictureIsCurrent() ? movedPart() : rect());
}

void InnerDisplay::openPropertySheet() {
    PropertySheet sheet(m_properties, window());
    connect(&sheet, &PropertySheet::changed, this, &InnerDisplay::setProperties);
    connect(&sheet, &PropertySheet::applied, this, &InnerDisplay::edited);
    sheet.placeBeside(QRect(mapToGlobal(QPoint()), size()));
    sheet.exec();
}

double InnerDisplay::staticRatio() const {
    return std::min(devicePixelRatioF(), std::sqrt(kLargestPicture / (double(width()) * height())));
}

bool InnerDisplay::staticPictureIsCurrent() const {
    const double ratio = staticRatio();
    return m_staticRevision == m_properties.staticRevision() && m_static.devicePixelRatio() == ratio &&
           m_static.size() == (QSizeF(size()) * ratio).toSize().expandedTo(QSize(1, 1));
}

void InnerDisplay::refreshStaticPicture() {
    if (staticPictureIsCurrent()) return;
    const double ratio = staticRatio();
    const QSize pixels = (QSizeF(size()) * ratio).toSize().expandedTo(QSize(1, 1));
    if (m_static.size() != pixels) m_static = QPixmap(pixels);
    m_static.setDevicePixelRatio(ratio);
    QPainter painter(&m_static);
    painter.setRenderHint(QPainter::Antialiasing);
    paintStatic(painter);
    m_staticRevision = m_properties.staticRevision();
}

void InnerDisplay::paintEvent(QPaintEvent* event) {
    if (size().isEmpty()) return;
    const bool asked = m_paintedRevision == m_properties.revision();
    if (!asked && event->rect() != rect()) update(); // what moved may stand beyond this part
    QPainter painter(this);
    refreshStaticPicture();
    if (m_static.devicePixelRatio() == devicePixelRatioF())
        painter.drawPixmap(0, 0, m_static);
    else
        painter.drawPixmap(QRectF(rect()), m_static, QRectF(m_static.rect()));
    painter.setRenderHint(QPainter::Antialiasing);
    paintMoving(painter);
    m_paintedRevision = m_properties.revision();
}

void InnerDisplay::mousePressEvent(QMouseEvent* event) {
    event->accept();
    Q_EMIT pressed(event->button(), event->globalPosition().toPoint());
}

void InnerDisplay::mouseMoveEvent(QMouseEvent* event) {
    event->accept();
    Q_EMIT moved();
}

void InnerDisplay::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange) return;
    m_staticRevision = 0; // colours of the system and of the page come from there
    update();
}

} // namespace vistor
