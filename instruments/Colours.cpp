#include "instruments/Colours.h"

#include <QApplication>
#include <QPalette>

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

struct SystemColour {
    int index;
    QPalette::ColorRole role;
};

constexpr SystemColour kSystemColours[] = {
    {0, QPalette::Mid},
    {1, QPalette::Dark},
    {2, QPalette::Highlight},
    {3, QPalette::Mid},
    {4, QPalette::Window},
    {5, QPalette::Base},
    {6, QPalette::Shadow},
    {7, QPalette::WindowText},
    {8, QPalette::Text},
    {9, QPalette::HighlightedText},
    {12, QPalette::Dark},
    {13, QPalette::Highlight},
    {14, QPalette::HighlightedText},
    {15, QPalette::Button},
    {16, QPalette::Dark},
    {17, QPalette::Mid},
    {18, QPalette::ButtonText},
    {20, QPalette::Light},
    {21, QPalette::Shadow},
    {22, QPalette::Midlight},
    {23, QPalette::ToolTipText},
    {24, QPalette::ToolTipBase},
};

QColor systemColour(int index) {
    const auto* found = std::find_if(std::begin(kSystemColours), std::end(kSystemColours),
                                     [index](const SystemColour& c) { return c.index == index; });
    const auto role = found == std::end(kSystemColours) ? QPalette::Window : found->role;
    return QApplication::palette().color(role);
}

} // namespace

QColor colourOf(std::int32_t number) {
    if (number < 0) return systemColour(number & 0xFF);
    return QColor(number & 0xFF, (number >> 8) & 0xFF, (number >> 16) & 0xFF);
}

std::int32_t numberOf(const QColor& colour) {
    return colour.red() | colour.green() << 8 | colour.blue() << 16;
}

QColor mixed(const QColor& a, const QColor& b, double share) {
    const auto channel = [share](int from, int to) { return qRound(from + (to - from) * share); };
    return QColor(channel(a.red(), b.red()), channel(a.green(), b.green()), channel(a.blue(), b.blue()));
}

double brightness(const QColor& colour) {
    return 0.299 * colour.red() + 0.587 * colour.green() + 0.114 * colour.blue();
}

QColor legibleOn(const QColor& wanted, const QColor& ground) {
    constexpr double kLeastContrast = 70;
    if (std::abs(brightness(wanted) - brightness(ground)) >= kLeastContrast) return wanted;
    return mixed(ground, brightness(ground) < 128 ? Qt::white : Qt::black, 0.75);
}

} // namespace vistor
