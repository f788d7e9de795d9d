// The same window for the two graphs, whose pins are the axes of tracks.
#pragma once

#include "instruments/frmVarTable.h"

namespace vistor {

class frmVarTableGraph final : public frmVarTable {
    Q_OBJECT

public:
    explicit frmVarTableGraph(QWidget* parent);

protected:
    std::vector<PinRow> rowsOf(const PinTable& table) const override;
    PinTable assign(Instrument& instrument, int pin, const QString& name) override;
    PinTable remove(Instrument& instrument, int pin) override;
    QString boundTo(const PinTable& table, int pin) const override;
    void choose(const PinRow& row) override;

private:
    std::uint8_t axis() const;

    QComboBox* cmbAxis;
};

} // namespace vistor
