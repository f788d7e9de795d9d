#include "dashboard/VXSPLITTER.h"

#include "platform/Prompts.h"
#include "platform/Twips.h"

#include <QMouseEvent>
#include <QPainter>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>

namespace vistor {
namespace {

constexpr int kFirstWidth = 3165; ///< twips; the size before anybody gives one
constexpr int kFirstHeight = 2498;

int whole(float twips) {
    return static_cast<int>(twips);
}

QWidget* addPane(QSplitter& splitter, const char* name) {
    auto* pane = new QWidget(&splitter);
    pane->setObjectName(QLatin1String(name));
    pane->setMinimumSize(1, 1); // the limits are the control's own
    splitter.addWidget(pane);
    return pane;
}

} // namespace

VXSPLITTER::VXSPLITTER(QWidget* parent)
    : QWidget(parent),
      m_splitter(new QSplitter(this)),
      m_pane0(addPane(*m_splitter, "Pane0")),
      m_pane1(addPane(*m_splitter, "Pane1")) {
    m_splitter->setChildrenCollapsible(false);
    connect(m_splitter, &QSplitter::splitterMoved, this, &VXSPLITTER::splitterMoved);
    Size(kFirstWidth, kFirstHeight);
    m_state.width = kFirstWidth;
    m_state.height = kFirstHeight;
    m_state.barLeft = kFirstWidth / 2;
    m_state.barTop = kFirstHeight / 2;
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
    Refresh();
}

void VXSPLITTER::Refresh() {
    const bool vertical = m_state.orientation == kVerticalBar;
    const int style = m_state.style;
    m_splitter->setGeometry(m_borderStyle == 0 ? rect() : rect().adjusted(1, 1, -1, -1));
    m_splitter->setOrientation(vertical ? Qt::Horizontal : Qt::Vertical);
    m_pane0->setVisible(style != kSinglePaneRight && style != kSinglePaneBottom);
    m_pane1->setVisible(style != kSinglePaneLeft && style != kSinglePaneTop);
    const int extent = vertical ? m_splitter->width() : m_splitter->height();
    const int bar = toPixels(shownBar(m_state));
    // No bar hides both panes, whatever a settings file says.
    m_splitter->setHandleWidth(
        std::min(toPixels(vertical ? m_state.barWidth : m_state.barHeight), extent / 2));
    m_splitter->setSizes({bar, std::max(extent - bar - m_splitter->handleWidth(), 0)});
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

/// The bar is put back where it went beyond its limits.
void VXSPLITTER::splitterMoved(int place) {
    dragBar(m_state, whole(toTwips(place - toPixels(shownBar(m_state)))));
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
