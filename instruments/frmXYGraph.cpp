#include "instruments/frmXYGraph.h"

#include "instruments/NumberBox.h"
#include "instruments/displays/StripTable.h"
#include "maths/QtNumberKeys.h"

#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>

namespace vistor {

frmXYGraph::frmXYGraph(XYGraphConfig& config, QWidget* parent)
    : GraphDialog(tr("XY Graph"), parent), m_config(config) {
    makeAxes();
    addColumn();
    makeTrace();
    finish(config.colours);
}

void frmXYGraph::makeAxes() {
    QFormLayout* x = addGroup(tr("X axis"));
    AutoScaleXChk = addCheck(x, "AutoScaleXChk", tr("Auto Scale &X"), m_config.autoScaleX);
    txtMinX = addNumber(x, "txtMinX", tr("Minimum X"), m_config.minimumX);
    txtMaxX = addNumber(x, "txtMaxX", tr("Maximum X"), m_config.maximumX);
    chkGridX = addCheck(x, "chkGridX", tr("Grid"), m_config.gridX);
    chkShowNumX = addCheck(x, "chkShowNumX", tr("Show Numbers"), m_config.showNumbersX);
    QFormLayout* y = addGroup(tr("Y axis"));
    AutoScaleYChk = addCheck(y, "AutoScaleYChk", tr("Auto Scale &Y"), m_config.autoScaleY);
    txtMinY = addNumber(y, "txtMinY", tr("Minimum Y"), m_config.minimumY);
    txtMaxY = addNumber(y, "txtMaxY", tr("Maximum Y"), m_config.maximumY);
    chkGridY = addCheck(y, "chkGridY", tr("Grid"), m_config.gridY);
    chkShowNumY = addCheck(y, "chkShowNumY", tr("Show Numbers"), m_config.showNumbersY);
    lockWhileChecked(AutoScaleXChk, std::array{txtMinX, txtMaxX});
    lockWhileChecked(AutoScaleYChk, std::array{txtMinY, txtMaxY});
}

void frmXYGraph::makeTrace() {
    QFormLayout* trace = addGroup(tr("Trace"));
    cmbSymbol = addWords(trace, "cmbSymbol", tr("&Symbol View"), kSymbolWords, m_config.symbol);
    txtSymbolSize = addNumber(trace, "txtSymbolSize", tr("Symbol Size"), m_config.symbolSize);
    txtSymbolSize->installEventFilter(this);
    txtBufSize = addNumber(trace, "txtBufSize", tr("&Buffer Size"), m_config.bufferSize);
    chkShowMarker = addCheck(trace, "chkShowMarker", tr("Show &Marker"), m_config.showMarker);
    chkFixAspect = addCheck(trace, "chkFixAspect", tr("&Fix Aspect Ratio 1:1"), m_config.fixAspect);
}

bool frmXYGraph::eventFilter(QObject* watched, QEvent* event) {
    if (watched != txtSymbolSize || event->type() != QEvent::KeyPress)
        return GraphDialog::eventFilter(watched, event);
    return refusesKey(*static_cast<QKeyEvent*>(event));
}

void frmXYGraph::cmdApply_Click() {
    m_config = {.autoScaleX = AutoScaleXChk->isChecked(),
                .autoScaleY = AutoScaleYChk->isChecked(),
                .minimumX = numberIn(txtMinX, m_config.minimumX),
                .maximumX = numberIn(txtMaxX, m_config.maximumX),
                .minimumY = numberIn(txtMinY, m_config.minimumY),
                .maximumY = numberIn(txtMaxY, m_config.maximumY),
                .bufferSize = numberIn(txtBufSize, m_config.bufferSize),
                .symbolSize = numberIn(txtSymbolSize, m_config.symbolSize),
                .symbol = wordIn(cmbSymbol, m_config.symbol),
                .gridX = chkGridX->isChecked(),
                .gridY = chkGridY->isChecked(),
                .showMarker = chkShowMarker->isChecked(),
                .showNumbersX = chkShowNumX->isChecked(),
                .showNumbersY = chkShowNumY->isChecked(),
                .fixAspect = chkFixAspect->isChecked(),
                .colours = colours()};
}

} // namespace vistor
