#include "maths/QtThemedChart.h"

#include <QEvent>
#include <QGraphicsLayout>
#include <QtCharts/QAbstractAxis>
#include <QtCharts/QLegend>
#include <QtCharts/QLineSeries>
#include <QtCharts/QScatterSeries>

namespace vistor {
namespace {

constexpr QRgb kPointColour = 0xFFD9782B; // legible on light and on dark
constexpr qreal kLineWidth = 2;
constexpr qreal kPointSize = 9;
constexpr int kGridAlpha = 60;

void colourAxis(QAbstractAxis& axis, const QPalette& palette) {
    const QColor text = palette.color(QPalette::Text);
    QColor grid = text;
    grid.setAlpha(kGridAlpha);
    axis.setLabelsBrush(text);
    axis.setTitleBrush(text);
    axis.setLinePen(QPen(text, 1));
    axis.setGridLinePen(QPen(grid, 1));
}

void colourSeries(QAbstractSeries& series, const QPalette& palette) {
    if (auto* points = qobject_cast<QScatterSeries*>(&series)) {
        points->setColor(QColor::fromRgb(kPointColour));
        points->setBorderColor(palette.color(QPalette::Base));
        points->setMarkerSize(kPointSize);
    } else if (auto* line = qobject_cast<QLineSeries*>(&series)) {
        line->setPen(QPen(palette.color(QPalette::Highlight), kLineWidth));
    }
}

} // namespace

QtThemedChart::QtThemedChart(QWidget* parent) : QChartView(parent) {
    setRenderHint(QPainter::Antialiasing);
    setFocusPolicy(Qt::NoFocus);
    chart()->legend()->hide();
    chart()->setBackgroundRoundness(0);
    chart()->layout()->setContentsMargins(0, 0, 0, 0);
    chart()->setMargins(QMargins(6, 10, 14, 6));
    applyPalette();
}

void QtThemedChart::addAxis(QAbstractAxis* axis, const QString& title, Qt::Alignment side) {
    QFont plain = font();
    axis->setLabelsFont(plain);
    axis->setTitleFont(plain);
    axis->setTitleText(title);
    chart()->addAxis(axis, side);
    colourAxis(*axis, palette());
}

void QtThemedChart::addSeries(QAbstractSeries* series) {
    chart()->addSeries(series);
    for (QAbstractAxis* axis : chart()->axes()) series->attachAxis(axis);
    colourSeries(*series, palette());
}

void QtThemedChart::changeEvent(QEvent* event) {
    QChartView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) applyPalette();
}

void QtThemedChart::applyPalette() {
    chart()->setBackgroundBrush(palette().color(QPalette::Base));
    for (QAbstractAxis* axis : chart()->axes()) colourAxis(*axis, palette());
    for (QAbstractSeries* series : chart()->series()) colourSeries(*series, palette());
}

} // namespace vistor
