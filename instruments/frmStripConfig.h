// The settings of the scrolling time graph. In: its settings. Out: the same as edited, where they are
// applied.
#pragma once

#include "instruments/GraphDialog.h"

#include <array>

namespace vistor {

class frmStripConfig final : public GraphDialog {
    Q_OBJECT

public:
    /// Writes to `config` on Apply only.
    frmStripConfig(StripConfig& config, QWidget* parent);

protected:
    void cmdApply_Click() override;

private:
    StripConfig& m_config;
    std::array<NumberBox*, 3> ConfigValueTxt{}; ///< time along X, minimum Y, maximum Y
    QCheckBox* AutoScaleYChk;
    QComboBox* cmbGrid;
    QComboBox* cmbLine;
    QComboBox* cmbSymbol;
    QCheckBox* chkShowNum;
};

} // namespace vistor
