#include "dashboard/Page.h"

#include "dashboard/Palette.h"
#include "platform/Twips.h"

#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>

#include <cmath>

namespace vistor {

QList<int> gridPlaces(int pitch, int extent) {
    QList<int> places;
    if (pitch <= 0) return places;
    // Below a pixel every pixel has a dot already.
    const int step = std::max(pitch, static_cast<int>(kTwipsPerPixel));
    for (int twips = 0; toPixels(twips) < extent; twips += step) places.append(toPixels(twips));
    return places;
}

Page::Page(int number, QWidget* parent) : QWidget(parent), m_number(number) {
    setObjectName(QStringLiteral("pic"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setAcceptDrops(true);
    setFocusPolicy(Qt::ClickFocus);
    setBackColour(palette().color(QPalette::Button));
}

void Page::setBackColour(const QColor& colour) {
    m_back = colour;
    QPalette colours = palette();
    colours.setColor(QPalette::Window, colour);
    setPalette(colours);
    update();
}

void Page::drawGrid(int pitch) {
    m_pitch = std::max(0, pitch);
    update();
}

void Page::clearDrawing() {
    m_pitch = 0;
    update();
}

/// Painted once and copied to every line, so that a page full of dots costs no more than a few.
const QPixmap& Page::gridRow() {
    const double ratio = devicePixelRatioF();
    const QSize pixels = (QSizeF(width(), 1) * ratio).toSize();
    if (m_rowPitch == m_pitch && m_row.size() == pixels && m_row.devicePixelRatio() == ratio) return m_row;
    m_row = QPixmap(pixels);
    m_row.setDevicePixelRatio(ratio);
    m_row.fill(Qt::transparent);
    m_rowPitch = m_pitch;
    QPainter painter(&m_row);
    for (const int x : gridPlaces(m_pitch, width())) painter.fillRect(x, 0, 1, 1, Qt::black);
    return m_row;
}

void Page::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QRect exposed = event->rect();
    painter.fillRect(exposed, m_back);
    if (m_pitch == 0) return;
    for (const int y : gridPlaces(m_pitch, height())) {
        if (exposed.top() <= y && y <= exposed.bottom()) painter.drawPixmap(0, y, gridRow());
    }
}

void Page::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) Q_EMIT leftPressed();
    if (event->button() == Qt::RightButton) Q_EMIT rightPressed(event->position().toPoint());
}

void Page::mouseMoveEvent(QMouseEvent*) {
    Q_EMIT moved();
}

void Page::dragEnterEvent(QDragEnterEvent* event) {
    event->setAccepted(event->mimeData()->hasFormat(QLatin1String(kPaletteDragType)));
}

void Page::dragMoveEvent(QDragMoveEvent* event) {
    event->setAccepted(childAt(event->position().toPoint()) == nullptr);
}

void Page::dropEvent(QDropEvent* event) {
    if (childAt(event->position().toPoint())) return event->ignore();
    event->acceptProposedAction();
    Q_EMIT dropped(event->source(), event->position());
}

} // namespace vistor
