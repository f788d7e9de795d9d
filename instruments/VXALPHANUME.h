// The alphanumeric readout: one variable as digits or as text. In: values on its one pin. Out: what the
// display shows.
#pragma once

#include "instruments/Instrument.h"

namespace vistor {

class VXALPHANUME final : public Instrument {
    Q_OBJECT

public:
    explicit VXALPHANUME(QWidget* parent);

    using Instrument::refreshValue;
    void refreshValue(std::int16_t pin, float value) override;

protected:
    QStringList shownLabels() const override;
    QStringList shownValues() const override;
};

} // namespace vistor
