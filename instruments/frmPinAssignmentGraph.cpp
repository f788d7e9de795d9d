#include "instruments/frmPinAssignmentGraph.h"

#include "instruments/Instrument.h"

#include <QComboBox>
#include <QTableWidget>

namespace vistor {
namespace {

bool hasOwnX(const PinQuestion& question) {
    return question.className == QLatin1String(kindInfo(Kind::XYGraph).className);
}

} // namespace

frmPinAssignmentGraph::frmPinAssignmentGraph(const PinQuestion& question, QWidget* parent)
    : frmPinAssignment(question, parent, trackPins(question.table, question.pins, hasOwnX(question)),
                       QStringLiteral("AXIS")),
      cmbAxis(new QComboBox) {
    cmbAxis->setObjectName(QStringLiteral("cmbAxis"));
    cmbAxis->addItems({axisName(0), axisName(1)});
    cmbAxis->setCurrentIndex(hasOwnX(question) ? 0 : 1);
    addField(tr("A&xis"), cmbAxis);
    setTabOrder(cmbPin, cmbAxis);
    setTabOrder(cmbAxis, grd);
}

void frmPinAssignmentGraph::choose(const PinRow& row) {
    frmPinAssignment::choose(row);
    cmbAxis->setCurrentIndex(row.axis);
}

void frmPinAssignmentGraph::assign(Instrument& instrument, int pin, const QString& name) {
    instrument.AssignPin(pin, static_cast<std::uint8_t>(cmbAxis->currentIndex()), name);
}

} // namespace vistor
