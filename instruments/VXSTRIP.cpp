#include "instruments/VXSTRIP.h"

#include "instruments/displays/StripDisplay.h"
#include "instruments/frmStripConfig.h"

#include <QPointer>

namespace vistor {
VXSTRIP::VXSTRIP(QWidget* parent)
    : GraphInstrument(Kind::TimeGraph, new StripDisplay(kStripTable, true), parent) {}

void VXSTRIP::mnuProperties_Click() {
    const QPointer<VXSTRIP> alive(this);
    Q_EMIT layoutChanged();
    if (!alive) return;
    StripConfig config = stripConfigOf(inCTRL().properties());
    const int answer = frmStripConfig(config, window()).exec();
    if (!alive || answer == QDialog::Rejected) return;
    setStripConfig(inCTRL().properties(), config);
    showConfigured(answer == GraphDialog::kAllProperties);
}

void VXSTRIP::followPoint(double x, double) {
    showX(x);
    if (inCTRL().properties().flag(GraphAutoScaleY)) scaleYToPoints();
}

void bindPlaced(Instrument& instrument) {
    if (instrument.kind() == Kind::TimeGraph)
        instrument.AssignPin(1, std::uint8_t{0}, QStringLiteral("Time"));
}

} // namespace vistor
