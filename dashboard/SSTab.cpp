#include "dashboard/SSTab.h"

#include <QMouseEvent>
#include <QPainter>

namespace vistor {
namespace {

constexpr int kStripHeight = 22; ///< what the pages leave free at the bottom
constexpr int kBorder = 2;

/// Tabs no higher than the strip, whatever the style would like, and left to right without scroll jumps.
class Strip final : public QTabBar {
public:
    using QTabBar::QTabBar;

protected:
    QSize tabSizeHint(int index) const override {
        return {QTabBar::tabSizeHint(index).width() + 12, kStripHeight};
    }
    QSize minimumTabSizeHint(int index) const override {
        return {qMin(80, tabSizeHint(index).width()), kStripHeight};
    }
};

} // namespace

SSTab::SSTab(QWidget* parent) : QWidget(parent), m_bar(new Strip(this)) {
    m_bar->setObjectName(QStringLiteral("strip"));
    m_bar->setShape(QTabBar::RoundedSouth);
    m_bar->setDrawBase(false);
    m_bar->setExpanding(false);
    m_bar->setUsesScrollButtons(true);
    m_bar->setFocusPolicy(Qt::StrongFocus);
    m_bar->addTab(QString());
    connect(m_bar, &QTabBar::currentChanged, this, &SSTab::takeTab);
}

void SSTab::Tabs(int count) {
    const int wanted = qMax(1, count);
    while (m_bar->count() < wanted) m_bar->addTab(QString());
    while (m_bar->count() > wanted) m_bar->removeTab(m_bar->count() - 1);
}

void SSTab::Tab(int number) {
    if (number < 0 || number >= Tabs()) return;
    if (number == m_bar->currentIndex())
        takeTab(number);
    else
        m_bar->setCurrentIndex(number);
}

void SSTab::takeTab(int number) {
    m_tab = qMax(0, number);
    Q_EMIT Click();
}

QString SSTab::TabCaption(int number) const {
    // In the strip's own text an "&" would mark an access key.
    return m_bar->tabData(number).toString();
}

void SSTab::TabCaption(int number, const QString& caption) {
    QString shown = caption;
    m_bar->setTabData(number, caption);
    m_bar->setTabText(number, shown.replace(u'&', QStringLiteral("&&")));
}

QStringList SSTab::captions() const {
    QStringList all;
    for (int i = 0; i < Tabs(); ++i) all += TabCaption(i);
    return all;
}

int SSTab::tabAt(const QPoint& place) const {
    return m_bar->tabAt(m_bar->mapFromGlobal(place));
}

void SSTab::resizeEvent(QResizeEvent*) {
    m_bar->setGeometry(kBorder, height() - kStripHeight, qMax(0, width() - 2 * kBorder), kStripHeight);
}

void SSTab::mousePressEvent(QMouseEvent* event) {
    Q_EMIT MouseDown(event->button(), event->globalPosition().toPoint());
}

void SSTab::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(0, 0, width() - 1, height() - kStripHeight);
}

} // namespace vistor
