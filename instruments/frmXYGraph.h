// The settings of the XY graph. In: its settings. Out: the same as edited, where they are applied.
#pragma once

#include "instruments/GraphDialog.h"

namespace vistor {

class frmXYGraph final : public GraphDialog {
    Q_OBJECT

public:
    /// Writes to `config` on Apply only.
    frmXYGraph(XYGraphConfig& config, QWidget* parent);

protected:
    void cmdApply_Click() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeAxes();
    void makeTrace();

    XYGraphConfig& m_config;
    QCheckBox* AutoScaleXChk = nullptr;
    QCheckBox* AutoScaleYChk = nullptr;
    NumberBox* txtMinX = nullptr;
    NumberBox* txtMaxX = nullptr;
    NumberBox* txtMinY = nullptr;
    NumberBox* txtMaxY = nullptr;
    NumberBox* txtBufSize = nullptr;
    NumberBox* txtSymbolSize = nullptr;
    QComboBox* cmbSymbol = nullptr;
    QCheckBox* chkGridX = nullptr;
    QCheckBox* chkGridY = nullptr;
    QCheckBox* chkShowMarker = nullptr;
    QCheckBox* chkShowNumX = nullptr;
    QCheckBox* chkShowNumY = nullptr;
    QCheckBox* chkFixAspect = nullptr;
};

} // namespace vistor
