#include "instruments/VXXYGRAPH.h"

#include "instruments/GraphScales.h"
#include "instruments/displays/StripDisplay.h"
#include "instruments/frmXYGraph.h"

#include <QPointer>

namespace vistor {
namespace {

GraphAxes axesOf(const PropertyStore& p) {
    return {.origin = p.number(StripOrigin),
            .length = p.number(StripLength),
            .lowestY = p.number(StripMinimumY),
            .highestY = p.number(StripMaximumY)};
}

GraphScaling scalingOf(const PropertyStore& p, const QSizeF& display) {
    return {.autoX = p.flag(GraphAutoScaleX),
            .autoY = p.flag(GraphAutoScaleY),
            .fixAspect = p.flag(GraphFixAspect),
            .displayWidth = display.width(),
            .displayHeight = display.height()};
}

} // namespace

VXXYGRAPH::VXXYGRAPH(QWidget* parent)
    : GraphInstrument(Kind::XYGraph, new StripDisplay(kXYGraphTable, false), parent) {}

void VXXYGRAPH::mnuProperties_Click() {
    const QPointer<VXXYGRAPH> alive(this);
    Q_EMIT layoutChanged();
    if (!alive) return;
    XYGraphConfig config = xyGraphConfigOf(inCTRL().properties());
    const int answer = frmXYGraph(config, window()).exec();
    if (!alive || answer == QDialog::Rejected) return;
    setXYGraphConfig(inCTRL().properties(), config);
    showConfigured(answer == GraphDialog::kAllProperties);
}

void VXXYGRAPH::followPoint(double x, double y) {
    m_x.take(x);
    PropertyStore& p = inCTRL().properties();
    const GraphData held{m_x.low, m_x.high, strip().lowestY(0), strip().highestY(0)};
    const GraphAxes axes = scaledAxes(axesOf(p), held, scalingOf(p, displayTwips()));
    p.setNumber(StripMaximumY, axes.highestY);
    p.setNumber(StripMinimumY, axes.lowestY);
    showX(axes.origin, axes.length);
    p.setNumber(StripMarkerX, x);
    p.setNumber(StripMarkerY, y);
}

QString VXXYGRAPH::trackName(const PinTable& table, int track) const {
    const QString x = table.at(track, 0);
    const QString y = table.at(track, 1);
    return x.isEmpty() || y.isEmpty() ? y : y + QStringLiteral(" over ") + x;
}

} // namespace vistor
