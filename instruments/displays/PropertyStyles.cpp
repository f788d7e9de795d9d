#include "instruments/displays/PropertyStyles.h"

#include "instruments/Colours.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

constexpr int kWidestBorder = 20;
constexpr int kLongestFamily = 64;
constexpr int kSmallestText = 8;  ///< pixels
constexpr double kLostText = 5.4; ///< what asks for less is left out: nobody could read it

} // namespace

Qt::Alignment alignmentOf(int choice) {
    constexpr Qt::AlignmentFlag kFlags[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
    return choice >= 0 && choice <= 2 ? kFlags[choice] : Qt::AlignLeft;
}

PanelStyle panelStyleOf(const PropertyStore& properties, const PanelNumbers& numbers, const QColor& page) {
    const auto colour = [&](int number) { return colourOf(properties.integer(number)); };
    PanelStyle style;
    style.back = colour(numbers.back);
    style.shaded = numbers.shading != 0 && properties.flag(numbers.shading);
    if (numbers.onPage != 0 && properties.flag(numbers.onPage)) {
        style.back = page;
        style.shaded = false;
    }
    style.border = borderOf(properties.integer(numbers.border));
    style.borderWidth = std::clamp(properties.integer(numbers.borderWidth), 0, kWidestBorder);
    style.light = colour(numbers.light);
    style.shadow = colour(numbers.shadow);
    if (numbers.showCaption == 0 || !properties.flag(numbers.showCaption)) return style;
    style.caption = properties.text(numbers.caption).left(kLongestText);
    style.captionAlignment = alignmentOf(properties.integer(numbers.captionAlignment));
    style.captionBelow = properties.integer(numbers.captionPlace) == 1;
    style.captionColour = legibleOn(colour(numbers.captionColour), style.back);
    return style;
}

QFont fontOf(const PropertyStore& properties, const FontNumbers& numbers, int pixels, int index) {
    QFont font;
    QStringList families;
    for (const std::int16_t number : {numbers.family, numbers.substitute})
        if (const QString& family = properties.text(number, index); !family.isEmpty())
            families << family.left(kLongestFamily);
    if (!families.isEmpty()) font.setFamilies(families);
    font.setPixelSize(std::max(pixels, 1));
    font.setBold(properties.flag(numbers.bold, index));
    font.setItalic(properties.flag(numbers.italic, index));
    font.setUnderline(properties.flag(numbers.underline, index));
    font.setStrikeOut(properties.flag(numbers.strikeOut, index));
    return font;
}

std::optional<QFont> legibleFont(const PropertyStore& properties, const FontNumbers& numbers, int index,
                                 int count, double unit) {
    const int section = std::clamp(index, 0, std::max(count - 1, 0));
    const double size = usualSize(properties, numbers.size, section, 100) / 100 * unit;
    if (size < kLostText) return {};
    return fontOf(properties, numbers, std::max(qRound(size), kSmallestText), section);
}

double usualSize(const PropertyStore& properties, int number, int section, double most) {
    const double size = properties.number(number, section);
    if (size > 0) return std::min(size, most);
    return properties.table().info(number)->initial;
}

double boundedPlace(const PropertyStore& properties, int number, int section) {
    const double place = properties.number(number, section);
    return std::isfinite(place) ? std::clamp(place, -3.0, 3.0) : 0;
}

} // namespace vistor
