#include "instruments/displays/LinearGaugeDisplay.h"

#include "instruments/displays/LinearGaugeFace.h"

#include <QPainter>

namespace vistor {

LinearGaugeDisplay::LinearGaugeDisplay(QWidget* parent) : InnerDisplay(kLinearGaugeTable, parent) {
    setNewLinearGauge(properties());
}

void LinearGaugeDisplay::paintStatic(QPainter& painter) {
    const LinearLayout layout = layOutLinearGauge(properties(), rect(), palette().color(QPalette::Window));
    paintLinearFace(painter, properties(), layout);
    m_room = layout.room;
    m_pointers = {layout.pointers.begin(), layout.pointers.end()};
    m_numbers = {layout.numbers.begin(), layout.numbers.end()};
}

void LinearGaugeDisplay::paintMoving(QPainter& painter) {
    painter.setClipRect(m_room, Qt::IntersectClip);
    for (LinearPointer& pointer : m_pointers) pointer.paint(painter, pointer.place(properties()));
    for (LinearNumber& number : m_numbers) number.paint(painter, properties());
}

QRect LinearGaugeDisplay::movedPart() const {
    QRectF part;
    for (const LinearPointer& pointer : m_pointers)
        part = part.united(pointer.moved(pointer.place(properties())));
    for (const LinearNumber& number : m_numbers)
        if (number.changed(properties())) part = part.united(number.bounds());
    return part.toAlignedRect();
}

} // namespace vistor
