#include "dashboard/VXSPLITTER.h"

#include "platform/Prompts.h"
#include "platform/Twips.h"

#include <QMouseEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace vistor {
namespace {

constexpr int kFirstWidth = 3165; ///< twips; the size before anybody gives one
constexpr int kFirstHeight = 2498;

int whole(float twips) {
    return static_cast<int>(twips);
}

/// Edges are rounded, not sizes, so that neighbours touch.
QRect pixelRect(const SplitterBox& box) {
    const QPoint first(toPixels(box.left), toPixels(box.top));
    const QPoint behind(toPixels(box.left + box.width), toPixels(box.top + box.height));
    return {first, behind - QPoint(1, 1)};
}

void place(QWidget* widget, const SplitterBox& box) {
    widget->setVisible(box.width > 0 && box.height > 0);
    widget->setGeometry(pixelRect(box));
}

} // namespace

VXSPLITTER::VXSPLITTER(QWidget* parent)
    : QWidget(parent), m_pane0(new QWidget(this)), m_pane1(new QWidget(this)), m_bar(new QWidget(this)) {
    m_pane0->setObjectName(QStringLiteral("Pane0"));
    m_pane1->setObjectName(QStringLiteral("Pane1"));
    m_bar->setObjectName(QStringLiteral("bar"));
    m_bar->installEventFilter(this);
    Size(kFirstWidth, kFirstHeight);
    m_state.width = kFirstWidth;
    m_state.height = kFirstHeight;
    m_state.barLeft = kFirstWidth / 2;
    m_state.barTop = kFirstHeight / 2;
    setPointer();
    Refresh();
}

QColor VXSPLITTER::BackColor() const {
    return palette().color(QPalette::Window);
}

void VXSPLITTER::setBackColor(const QColor& colour) {
    QPalette colours = palette();
    colours.setColor(QPalette::Window, colour);
    setPalette(colours);
    setAutoFillBackground(true);
}

void VXSPLITTER::setBorderStyle(int style) {
    m_borderStyle = style;
    Refresh();
}

void VXSPLITTER::setStyle(int style) {
    applyStyle(m_state, style);
    setPointer();
    Refresh();
}

void VXSPLITTER::setMinHorizontalSize(int twips) {
    m_state.minHorizontalSize = twips;
    Refresh();
}

void VXSPLITTER::setMinVerticalSize(int twips) {
    m_state.minVerticalSize = twips;
    Refresh();
}

void VXSPLITTER::setSplitterHeight(int twips) {
    m_state.barHeight = twips;
    Refresh();
}

void VXSPLITTER::setSplitterWidth(int twips) {
    m_state.barWidth = twips;
    Refresh();
}

void VXSPLITTER::setSplitterTop(int twips) {
    m_state.barTop = twips;
    Refresh();
}

void VXSPLITTER::setSplitterLeft(int twips) {
    m_state.barLeft = twips;
    Refresh();
}

void VXSPLITTER::setSplitterOrientation(int orientation) {
    const QString refusal = applyOrientation(m_state, orientation);
    if (!refusal.isEmpty()) {
        MsgBox(refusal, Icon::None, Buttons::Ok, QStringLiteral("vbuSplitter"));
        return;
    }
    setPointer();
    Refresh();
}

void VXSPLITTER::setPointer() {
    m_bar->setCursor(m_state.orientation == kVerticalBar ? Qt::SplitHCursor : Qt::SplitVCursor);
}

void VXSPLITTER::Refresh() {
    const SplitterBoxes boxes = arrange(m_state);
    place(m_pane0, boxes.pane0);
    place(m_bar, boxes.bar);
    place(m_pane1, boxes.pane1);
    if (m_borderStyle != 0) {
        const QRect inside = rect().adjusted(1, 1, -1, -1);
        for (QWidget* part : {m_pane0, m_bar, m_pane1}) part->setGeometry(part->geometry() & inside);
    }
    update();
}

void VXSPLITTER::Size(int width, int height) {
    resize(toPixels(width), toPixels(height));
}

void VXSPLITTER::fillPane(int number, QWidget* child) {
    auto* layout = new QVBoxLayout(pane(number));
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(child);
}

void VXSPLITTER::resizeEvent(QResizeEvent*) {
    m_state.width = whole(toTwips(width()));
    m_state.height = whole(toTwips(height()));
    Refresh();
}

void VXSPLITTER::paintEvent(QPaintEvent*) {
    if (m_borderStyle == 0) return;
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

bool VXSPLITTER::eventFilter(QObject* watched, QEvent* event) {
    return (watched == m_bar && barEvent(event)) || QWidget::eventFilter(watched, event);
}

bool VXSPLITTER::barEvent(QEvent* event) {
    const bool vertical = m_state.orientation == kVerticalBar;
    switch (event->type()) {
    case QEvent::MouseButtonPress: {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() != Qt::LeftButton) return false;
        m_dragging = true;
        const QPoint place = mouse->position().toPoint();
        m_grip = vertical ? place.x() : place.y();
        return true;
    }
    case QEvent::MouseMove:
        if (m_dragging) dragTo(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
        return m_dragging;
    case QEvent::MouseButtonRelease:
        m_dragging = false;
        Refresh();
        return true;
    default:
        return false;
    }
}

void VXSPLITTER::dragTo(const QPoint& place) {
    const QPoint inside = mapFromGlobal(place);
    const bool vertical = m_state.orientation == kVerticalBar;
    const int edge = (vertical ? inside.x() : inside.y()) - m_grip;
    dragBar(m_state, whole(toTwips(edge)) - (vertical ? m_state.barLeft : m_state.barTop));
    Refresh();
}

void VXSPLITTER::mousePressEvent(QMouseEvent* event) {
    Q_EMIT MouseDown(event->button(), event->position().toPoint());
}

void VXSPLITTER::mouseMoveEvent(QMouseEvent* event) {
    Q_EMIT MouseMove(event->position().toPoint());
}

void VXSPLITTER::mouseReleaseEvent(QMouseEvent* event) {
    Q_EMIT MouseUp(event->button(), event->position().toPoint());
    if (rect().contains(event->position().toPoint())) Q_EMIT Click();
}

void VXSPLITTER::mouseDoubleClickEvent(QMouseEvent*) {
    Q_EMIT DblClick();
}

} // namespace vistor
