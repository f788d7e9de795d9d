#include "instruments/frmVarTableGraph.h"

#include "instruments/Instrument.h"

#include <QComboBox>

namespace vistor {

frmVarTableGraph::frmVarTableGraph(QWidget* parent) : frmVarTable(parent), cmbAxis(new QComboBox) {
    m_showsAxis = true;
    cmbAxis->addItems({axisName(0), axisName(1)});
    cmbAxis->setCurrentIndex(1);
    connect(cmbAxis, &QComboBox::currentIndexChanged, this, &frmVarTableGraph::renewButtons);
    addFieldBelowPin(tr("Ax&is"), "cmbAxis", cmbAxis);
}

std::uint8_t frmVarTableGraph::axis() const {
    return static_cast<std::uint8_t>(cmbAxis->currentIndex());
}

std::vector<PinRow> frmVarTableGraph::rowsOf(const PinTable& table) const {
    return trackPins(table, pinCount(), true);
}

PinTable frmVarTableGraph::assign(Instrument& instrument, int pin, const QString& name) {
    return instrument.AssignPin(pin, axis(), name);
}

PinTable frmVarTableGraph::remove(Instrument& instrument, int pin) {
    return instrument.RemovePin(pin, axis());
}

QString frmVarTableGraph::boundTo(const PinTable& table, int pin) const {
    return table.at(pin, axis());
}

void frmVarTableGraph::choose(const PinRow& row) {
    frmVarTable::choose(row);
    cmbAxis->setCurrentIndex(row.axis);
}

} // namespace vistor
