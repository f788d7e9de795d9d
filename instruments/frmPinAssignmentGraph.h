// The same window for the two graphs, whose pins are the axes of tracks.
#pragma once

#include "instruments/frmPinAssignment.h"

namespace vistor {

class frmPinAssignmentGraph final : public frmPinAssignment {
    Q_OBJECT

public:
    frmPinAssignmentGraph(const PinQuestion& question, QWidget* parent);

protected:
    void choose(const PinRow& row) override;
    void assign(Instrument& instrument, int pin, const QString& name) override;

private:
    QComboBox* cmbAxis;
};

} // namespace vistor
