#include "instruments/VXODO.h"

#include "instruments/displays/OdometerDisplay.h"

namespace vistor {
VXODO::VXODO(QWidget* parent) : Instrument(Kind::Odometer, new OdometerDisplay, parent) {}

QStringList VXODO::shownLabels() const {
    return {QStringLiteral("Width"), QStringLiteral("Height"), QStringLiteral("Digits"),
            QStringLiteral("Decimals"), QStringLiteral("Value")};
}

QStringList VXODO::shownValues() const {
    const PropertyStore& p = inCTRL().properties();
    return {textOfNumber(displayTwips().width()), textOfNumber(displayTwips().height()),
            textOfNumber(p.number(OdoDigits)), textOfNumber(p.number(OdoDecimals)),
            textOfNumber(p.number(OdoValue), true)};
}

} // namespace vistor
