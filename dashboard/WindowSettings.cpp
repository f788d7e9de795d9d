#include "dashboard/WindowSettings.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vistor {
namespace {

constexpr const char* kOptions = "VXVISTOR";
constexpr int kNumberBuffer = 10;
constexpr int kColourBuffer = 20;

constexpr float TwipsBox::*kSides[] = {&TwipsBox::left, &TwipsBox::top, &TwipsBox::width, &TwipsBox::height};

double number(const IniFile& file, const char* section, const char* key, const char* fallback, int buffer) {
    return leadingNumber(file.value(QString::fromLatin1(section), QString::fromLatin1(key),
                                    QString::fromLatin1(fallback), buffer));
}

template <typename Integer>
Integer saturated(double value) {
    using Limits = std::numeric_limits<Integer>;
    const double rounded = std::nearbyint(value);
    return static_cast<Integer>(
        std::clamp(rounded, static_cast<double>(Limits::min()), static_cast<double>(Limits::max())));
}

} // namespace

WindowSettings readWindowSettings(const IniFile& file) {
    WindowSettings settings;
    settings.gridSize = saturated<std::int16_t>(number(file, kOptions, "GRIDSIZE", "80", kNumberBuffer));
    settings.showGrid = saturated<std::uint8_t>(number(file, kOptions, "SHOWGRID", "1", kNumberBuffer));
    settings.snapToGrid = saturated<std::uint8_t>(number(file, kOptions, "SNAPGRID", "1", kNumberBuffer));
    for (std::size_t i = 0; i < std::size(kLayoutKeys); ++i) {
        const LayoutKey& key = kLayoutKeys[i];
        const auto read = static_cast<float>(number(file, key.section, key.key, key.fallback, kNumberBuffer));
        settings.boxes[i / 4].*kSides[i % 4] = std::clamp(read, key.lowest, key.highest);
    }
    settings.backColour =
        saturated<std::int32_t>(number(file, kOptions, "BACKCOLOUR", "-2147483633", kColourBuffer));
    settings.labelColour = saturated<std::int32_t>(number(file, kOptions, "LABELCOLOUR", "0", kColourBuffer));
    return settings;
}

void writeWindowGeometry(IniFile& file, const std::array<TwipsBox, kLayoutBoxes>& boxes) {
    for (std::size_t i = 0; i < std::size(kLayoutKeys); ++i) {
        const auto twips = std::lround(boxes[i / 4].*kSides[i % 4]);
        file.setValue(QString::fromLatin1(kLayoutKeys[i].section), QString::fromLatin1(kLayoutKeys[i].key),
                      QString::number(twips));
    }
}

bool isPaneVisible(const IniFile& file, int pane) {
    const QString key = QString::number(pane);
    return leadingNumber(file.value(QStringLiteral("VISIBLE"), key, QStringLiteral("1"), kNumberBuffer)) != 0;
}

} // namespace vistor
