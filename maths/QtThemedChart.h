// A chart that wears the colours of the palette. In: a chart. Out: its look, also when the palette changes.
#pragma once

#include <QtCharts/QChartView>

class QAbstractAxis;

namespace vistor {

class QtThemedChart final : public QChartView {
    Q_OBJECT

public:
    explicit QtThemedChart(QWidget* parent = nullptr);

    /// Puts an axis on a side, with its title.
    void addAxis(QAbstractAxis* axis, const QString& title, Qt::Alignment side);
    /// Adds a series on the axes that are there: lines in the palette's highlight, points beside it.
    void addSeries(QAbstractSeries* series);

protected:
    void changeEvent(QEvent* event) override;

private:
    void applyPalette();
};

} // namespace vistor
