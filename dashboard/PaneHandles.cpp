#include "dashboard/PaneHandles.h"

#include "dashboard/ControlManager.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>

#include <utility>

namespace vistor {

PaneCaption::PaneCaption(ControlManager& manager, int number, const QString& text, QWidget* window)
    : QWidget(window), m_manager(manager), m_number(number), m_text(text) {
    setObjectName(QStringLiteral("caption%1").arg(number));
    setCursor(Qt::SizeAllCursor);
    setToolTip(QStringLiteral("Drag to move this pane"));
    QFont small = font();
    small.setPointSizeF(7.5);
    setFont(small);
}

void PaneCaption::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Midlight));
    painter.setPen(palette().color(QPalette::PlaceholderText));
    const QRect text = rect().adjusted(6, 0, -4, 0);
    painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeft, m_text);
    const int begin = text.left() + painter.fontMetrics().horizontalAdvance(m_text) + 8;
    painter.setPen(palette().color(QPalette::Mid));
    for (int x = begin; x < width() - 6; x += 4) {
        painter.drawPoint(x, height() / 2 - 2);
        painter.drawPoint(x + 2, height() / 2);
        painter.drawPoint(x, height() / 2 + 2);
    }
}

QPoint PaneCaption::inWindow(const QMouseEvent* event) const {
    return mapToParent(event->position().toPoint());
}

void PaneCaption::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) m_pressed = event->position().toPoint();
}

void PaneCaption::mouseMoveEvent(QMouseEvent* event) {
    if (!(event->buttons() & Qt::LeftButton)) return;
    const QPoint way = event->position().toPoint() - m_pressed;
    m_dragging = m_dragging || way.manhattanLength() >= QApplication::startDragDistance();
    if (m_dragging) m_manager.dragPane(m_number, inWindow(event));
}

void PaneCaption::mouseReleaseEvent(QMouseEvent* event) {
    // Off before the panes are arranged: that lets events run, a new drag among them.
    if (std::exchange(m_dragging, false)) m_manager.dropPane(m_number, inWindow(event));
}

PaneBorder::PaneBorder(ControlManager& manager, std::size_t number, QWidget* window)
    : QWidget(window), m_manager(manager), m_number(number) {
    setObjectName(QStringLiteral("border%1").arg(number));
}

void PaneBorder::mousePressEvent(QMouseEvent* event) {
    m_dragging = event->button() == Qt::LeftButton;
    m_grip = event->position().toPoint();
}

void PaneBorder::mouseMoveEvent(QMouseEvent* event) {
    if (m_dragging) m_manager.dragBorder(m_number, mapToParent(event->position().toPoint()) - m_grip);
}

void PaneBorder::mouseReleaseEvent(QMouseEvent*) {
    if (std::exchange(m_dragging, false)) m_manager.endBorderDrag();
}

} // namespace vistor
