// The odometer: one variable on rolling drums. In: values on its one pin. Out: what the display shows.
#pragma once

#include "instruments/Instrument.h"

namespace vistor {

class VXODO final : public Instrument {
    Q_OBJECT

public:
    explicit VXODO(QWidget* parent);

protected:
    QStringList shownLabels() const override;
    QStringList shownValues() const override;
};

} // namespace vistor
