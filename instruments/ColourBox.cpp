#include "instruments/ColourBox.h"

#include "instruments/Colours.h"
#include "platform/Prompts.h"

#include <QPainter>
#include <QStyleOptionFocusRect>

namespace vistor {

ColourBox::ColourBox(QWidget* parent) : QAbstractButton(parent), m_seen(colourOf(0)) {
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setCursor(Qt::PointingHandCursor);
    connect(this, &QAbstractButton::clicked, this, &ColourBox::pick);
}

void ColourBox::setColour(std::int32_t colour) {
    setColour(colour, colourOf(colour));
}

void ColourBox::setColour(std::int32_t colour, const QColor& seen) {
    m_colour = colour;
    m_seen = seen;
    setToolTip(seen.name().toUpper());
    update();
}

void ColourBox::pick() {
    const auto answer = PickColour(numberOf(m_seen));
    if (!answer) return;
    setColour(*answer);
    Q_EMIT picked(*answer);
}

QSize ColourBox::sizeHint() const {
    return {72, fontMetrics().height() + 10};
}

void ColourBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(mixed(palette().color(QPalette::WindowText), palette().color(QPalette::Window), 0.5));
    painter.setBrush(isEnabled() ? m_seen : palette().color(QPalette::Window));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5), 3, 3);
    if (!hasFocus()) return;
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    focus.rect = rect().adjusted(3, 3, -3, -3);
    focus.backgroundColor = m_seen;
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
}

} // namespace vistor
