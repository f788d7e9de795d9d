#include "dashboard/ControlManager.h"

#include "dashboard/PaneHandles.h"
#include "platform/Twips.h"

#include <QEvent>
#include <QRubberBand>

namespace vistor {
namespace {

QRect pixelRect(const TwipsBox& box) {
    return {toPixels(box.left), toPixels(box.top), toPixels(box.width), toPixels(box.height)};
}

} // namespace

ControlManager::ControlManager(QWidget* window) : QObject(window), m_window(window) {
    window->installEventFilter(this);
}

ControlManager::~ControlManager() = default;

void ControlManager::addPane(int number, QWidget* pane, const QString& caption) {
    Pane& added = m_panes.at(static_cast<std::size_t>(number));
    added.widget = pane;
    added.caption = new PaneCaption(*this, number, caption, m_window);
    added.present = true;
}

void ControlManager::placePane(int number, const TwipsBox& box) {
    Pane& pane = m_panes.at(static_cast<std::size_t>(number));
    pane.box = box;
    pane.widget->setGeometry(pixelRect(box));
    m_adopted = false;
}

TwipsBox ControlManager::paneBox(int number) const {
    const Pane& pane = m_panes.at(static_cast<std::size_t>(number));
    const QRect stands = pane.widget->geometry();
    if (stands == pixelRect(pane.box)) return pane.box;
    return {toTwips(stands.left()), toTwips(stands.top()), toTwips(stands.width()), toTwips(stands.height())};
}

void ControlManager::removePane(int number) {
    if (number < 0 || number >= kPaneCount) return;
    Pane& pane = m_panes[static_cast<std::size_t>(number)];
    pane.present = false;
    pane.widget->hide();
    pane.caption->hide();
    m_adopted = false;
    if (m_window->isVisible()) fitPanes();
}

QRect ControlManager::room() const {
    return m_window->rect();
}

/// The pane with its caption.
QRect ControlManager::outerRect(const Pane& pane) const {
    return pane.widget->geometry().adjusted(0, -kCaptionHeight, 0, 0);
}

void ControlManager::adoptGeometry() {
    PaneRects rects;
    PaneFlags present{};
    for (std::size_t i = 0; i < m_panes.size(); ++i) {
        present[i] = m_panes[i].present;
        if (present[i]) rects[i] = outerRect(m_panes[i]);
    }
    m_layout = layoutOf(rects, present);
    m_adopted = true;
}

void ControlManager::fitPanes() {
    if (!m_adopted) adoptGeometry();
    place();
    Q_EMIT paneResizing();
    // Whoever hears that the panes stand lets pending events run, which has no place inside the window's own
    // show and resize events.
    if (m_completionPending) return;
    m_completionPending = true;
    QMetaObject::invokeMethod(this, &ControlManager::complete, Qt::QueuedConnection);
}

void ControlManager::complete() {
    m_completionPending = false;
    Q_EMIT ControlResizeComplete();
}

void ControlManager::place() {
    const PaneRects rects = applyLayout(m_layout, room());
    for (std::size_t i = 0; i < m_panes.size(); ++i) {
        Pane& pane = m_panes[i];
        if (!pane.present) continue;
        QRect inner = rects[i];
        inner.setTop(inner.top() + kCaptionHeight);
        pane.widget->setGeometry(inner);
        pane.caption->setGeometry(rects[i].left(), rects[i].top(), rects[i].width(), kCaptionHeight);
        pane.caption->show();
    }
    placeBorders();
}

void ControlManager::placeBorders() {
    const std::vector<QRect> rects = bordersOf(m_layout, room());
    while (m_borders.size() < rects.size())
        m_borders.push_back(new PaneBorder(*this, m_borders.size(), m_window));
    for (std::size_t i = 0; i < m_borders.size(); ++i) {
        m_borders[i]->setVisible(i < rects.size());
        if (i >= rects.size()) continue;
        m_borders[i]->setGeometry(rects[i]);
        m_borders[i]->setCursor(rects[i].width() < rects[i].height() ? Qt::SplitHCursor : Qt::SplitVCursor);
    }
}

void ControlManager::dragBorder(std::size_t border, const QPoint& place) {
    m_layout = withBorderAt(m_layout, room(), border, place);
    this->place();
    Q_EMIT paneResizing();
}

void ControlManager::endBorderDrag() {
    Q_EMIT ControlResizeComplete();
}

void ControlManager::dragPane(int number, const QPoint& place) {
    const PaneLayout dropped = withPaneDropped(m_layout, room(), number, place);
    if (!m_preview) m_preview = std::make_unique<QRubberBand>(QRubberBand::Rectangle, m_window);
    m_preview->setGeometry(applyLayout(dropped, room())[static_cast<std::size_t>(number)]);
    m_preview->show();
    m_preview->raise();
}

void ControlManager::dropPane(int number, const QPoint& place) {
    m_preview.reset();
    m_layout = withPaneDropped(m_layout, room(), number, place);
    this->place();
    // The outermost cut has a whole side of the window.
    if (!m_layout.cuts.empty() && m_layout.cuts.front().pane == number)
        Q_EMIT paneDocked();
    else
        Q_EMIT paneMoved();
}

bool ControlManager::eventFilter(QObject* watched, QEvent* event) {
    const bool shown = event->type() == QEvent::Show;
    const bool resized = event->type() == QEvent::Resize && m_window->isVisible();
    if (watched == m_window && (shown || resized)) fitPanes();
    return QObject::eventFilter(watched, event);
}

} // namespace vistor
