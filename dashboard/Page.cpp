#include "dashboard/Page.h"

#include "dashboard/Twips.h"

#include <QMouseEvent>
#include <QPainter>

#include <cmath>

namespace vistor {

QList<int> gridPlaces(int pitch, int extent) {
    QList<int> places;
    if (pitch <= 0) return places;
    // Below a pixel every pixel has a dot already.
    const int step = std::max(pitch, static_cast<int>(kTwipsOfPixel));
    for (int twips = 0; twips < extent * kTwipsOfPixel; twips += step)
        places.append(static_cast<int>(twips / kTwipsOfPixel));
    return places;
}

Page::Page(int number, QWidget* parent) : QWidget(parent), m_number(number) {
    setObjectName(QStringLiteral("pic"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
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

void Page::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), m_back);
    if (m_pitch == 0) return;
    const QRect exposed = event->rect();
    const QList<int> columns = gridPlaces(m_pitch, width());
    QList<QPoint> dots;
    for (const int y : gridPlaces(m_pitch, height())) {
        if (y < exposed.top() || y > exposed.bottom()) continue;
        for (const int x : columns) dots.append(QPoint(x, y));
    }
    painter.setPen(Qt::black);
    painter.drawPoints(dots.constData(), static_cast<int>(dots.size()));
}

void Page::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton) Q_EMIT rightPressed(event->position().toPoint());
}

void Page::mouseMoveEvent(QMouseEvent*) {
    Q_EMIT moved();
}

} // namespace vistor
