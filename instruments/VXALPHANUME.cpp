#include "instruments/VXALPHANUME.h"

#include "instruments/AlphanumericText.h"
#include "instruments/displays/NumLedDisplay.h"
#include "variables/GlobalVarsAndTypes.h"

namespace vistor {
namespace {

QString words(bool on) {
    return on ? QStringLiteral("True") : QStringLiteral("False");
}

AlphanumericForm formOf(const PropertyStore& p) {
    return {.decimals = p.integer(NumLedDecimals),
            .fixedDecimals = p.flag(NumLedFixedDecimals),
            .plusMinus = p.flag(NumLedLeadingPlusMinus),
            .mark = DecimalSeparator};
}

} // namespace

VXALPHANUME::VXALPHANUME(QWidget* parent) : Instrument(Kind::Alphanumeric, new NumLedDisplay, parent) {}

void VXALPHANUME::refreshValue(std::int16_t, float value) {
    PropertyStore& p = inCTRL().properties();
    p.setNumber(NumLedValue, roundedValue(value, p.integer(NumLedDecimals)));
    if (p.integer(NumLedDisplayMode) == kAlphaNumericMode) {
        if (const auto text = alphanumericText(value, formOf(p))) p.setText(NumLedText, *text);
    }
    inCTRL().call(p.table().parts().methods.redraw);
}

QStringList VXALPHANUME::shownLabels() const {
    return {QStringLiteral("Value"),
            QStringLiteral("Display Mode"),
            QStringLiteral("Digits"),
            QStringLiteral("Decimals"),
            QStringLiteral("Leading Zeros"),
            QStringLiteral("Leading PlusMinus"),
            QStringLiteral("Leading One Digit"),
            QStringLiteral("Fixed Decimals")};
}

QStringList VXALPHANUME::shownValues() const {
    const PropertyStore& p = inCTRL().properties();
    const bool alpha = p.integer(NumLedDisplayMode) == kAlphaNumericMode;
    return {alpha ? p.text(NumLedText) : p.item(NumLedValue, 0),
            alpha ? QStringLiteral("Alpha Numeric") : QStringLiteral("Numeric"),
            p.item(NumLedDigits, 0),
            p.item(NumLedDecimals, 0),
            words(p.flag(NumLedLeadingZeros)),
            words(p.flag(NumLedLeadingPlusMinus)),
            words(p.flag(NumLedLeadingPlusMinus)), // both rows tell the same property
            words(p.flag(NumLedFixedDecimals))};
}

} // namespace vistor
