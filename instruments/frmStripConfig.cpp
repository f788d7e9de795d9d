#include "instruments/frmStripConfig.h"

#include "instruments/NumberBox.h"
#include "instruments/displays/StripTable.h"

#include <QCheckBox>
#include <QComboBox>

namespace vistor {

frmStripConfig::frmStripConfig(StripConfig& config, QWidget* parent)
    : GraphDialog(tr("Scrolling Time Graph"), parent), m_config(config) {
    QFormLayout* axes = addGroup(tr("Axes"));
    ConfigValueTxt[0] = addNumber(axes, "ConfigValueTxt0", tr("&Time Along X Axis"), config.timeAlongX);
    AutoScaleYChk = addCheck(axes, "AutoScaleYChk", tr("&Auto Scale Y"), config.autoScaleY);
    ConfigValueTxt[1] = addNumber(axes, "ConfigValueTxt1", tr("M&inimum Y"), config.minimumY);
    ConfigValueTxt[2] = addNumber(axes, "ConfigValueTxt2", tr("Ma&ximum Y"), config.maximumY);
    lockWhileChecked(AutoScaleYChk, std::span(ConfigValueTxt).subspan(1));
    chkShowNum = addCheck(axes, "chkShowNum", tr("Show &Numbers On X And Y"), config.showNumbers);
    QFormLayout* lines = addGroup(tr("Lines"));
    cmbGrid = addWords(lines, "cmbGrid", tr("&Grid"), kGridWords, config.grid);
    cmbLine = addWords(lines, "cmbLine", tr("&Line Style"), kLineStyleWords, config.line);
    cmbSymbol = addWords(lines, "cmbSymbol", tr("&Symbol View"), kSymbolWords, config.symbol);
    finish(config.colours);
}

void frmStripConfig::cmdApply_Click() {
    m_config = {.timeAlongX = numberIn(ConfigValueTxt[0], m_config.timeAlongX),
                .minimumY = numberIn(ConfigValueTxt[1], m_config.minimumY),
                .maximumY = numberIn(ConfigValueTxt[2], m_config.maximumY),
                .autoScaleY = AutoScaleYChk->isChecked(),
                .grid = wordIn(cmbGrid, m_config.grid),
                .line = wordIn(cmbLine, m_config.line),
                .symbol = wordIn(cmbSymbol, m_config.symbol),
                .showNumbers = chkShowNum->isChecked(),
                .colours = colours()};
}

} // namespace vistor
