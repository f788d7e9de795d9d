#include "maths/QtNumberKeys.h"

#include "maths/ConvertUnits.h"

#include <QKeyEvent>

#include <algorithm>

namespace vistor {

bool refusesKey(const QKeyEvent& pressed) {
    if (pressed.modifiers().testAnyFlags(Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    const QString typed = pressed.text();
    return std::any_of(typed.begin(), typed.end(), [](QChar sign) {
        auto key = static_cast<std::int16_t>(sign.unicode());
        if (sign.isPrint() || sign.isSurrogate()) NumericKeyFilter(key);
        return key == 0;
    });
}

} // namespace vistor
