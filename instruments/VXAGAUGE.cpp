#include "instruments/VXAGAUGE.h"

#include "instruments/displays/AngularGaugeDisplay.h"

namespace vistor {
namespace {

struct ShownProperty {
    const char* label;
    AngularGaugeProperty number;
};

constexpr ShownProperty kShown[] = {
    {"Tic Start Value", TicStartValue},
    {"Tic Stop Value", TicStopValue},
    {"Tic Default Value", TicStep},
    {"Tic Labels", TicLabels},
    {"Scale Start Angle", ScaleStartAngle},
    {"Scale Stop Angle", ScaleStopAngle},
    {"Annuler Inner Radius", AnnularInnerRadius},
    {"Annuler Outer Radius", AnnularOuterRadius},
    {"Annuler Start Value", AnnularStartValue},
    {"Annuler Stop Value", AnnularStopValue},
};

QString shownWords(const PropertyStore& p, AngularGaugeProperty number) {
    if (number != TicLabels) return textOfNumber(p.number(number));
    return p.flag(number) ? QStringLiteral("On") : QStringLiteral("Off");
}

} // namespace

VXAGAUGE::VXAGAUGE(QWidget* parent) : Instrument(Kind::AngularGauge, new AngularGaugeDisplay, parent) {}

QStringList VXAGAUGE::shownLabels() const {
    QStringList labels;
    for (const ShownProperty& shown : kShown) labels << QLatin1String(shown.label);
    return labels;
}

QStringList VXAGAUGE::shownValues() const {
    QStringList values;
    for (const ShownProperty& shown : kShown) values << shownWords(inCTRL().properties(), shown.number);
    return values;
}

} // namespace vistor
