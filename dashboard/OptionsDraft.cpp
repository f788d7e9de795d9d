#include "dashboard/OptionsDraft.h"

#include "dashboard/WindowSettings.h"
#include "instruments/Colours.h"
#include "instruments/displays/PropertyStore.h"
#include "platform/NumberText.h"

#include <cmath>

namespace vistor {
namespace {

constexpr double kLargestPitch = 1000;
constexpr int kNumberBuffer = 10;
constexpr int kColourBuffer = 20;

QString section() {
    return QStringLiteral("VXVISTOR");
}

QString flagText(bool on) {
    return on ? QStringLiteral("1") : QStringLiteral("0");
}

} // namespace

OptionsDraft readOptionsDraft(const IniFile& file) {
    const WindowSettings window = readWindowSettings(file);
    const QString size =
        file.value(section(), QStringLiteral("GRIDSIZE"), QStringLiteral("80"), kNumberBuffer);
    // A label colour that was never chosen shows as the button face here, though the dashboard takes black.
    const QString none = QStringLiteral("none");
    const QString label = file.value(section(), QStringLiteral("LABELCOLOUR"), none, kColourBuffer);
    return {textOfNumber(leadingNumber(size)), window.showGrid == 1, window.snapToGrid == 1,
            window.backColour, label == none ? kButtonFaceColour : window.labelColour};
}

void writeOptionsDraft(IniFile& file, const OptionsDraft& draft) {
    file.setValue(section(), QStringLiteral("GRIDSIZE"), draft.gridSize);
    file.setValue(section(), QStringLiteral("SHOWGRID"), flagText(draft.showGrid));
    file.setValue(section(), QStringLiteral("SNAPGRID"), flagText(draft.snapToGrid));
    file.setValue(section(), QStringLiteral("BACKCOLOUR"), QString::number(draft.backColour));
    file.setValue(section(), QStringLiteral("LABELCOLOUR"), QString::number(draft.labelColour));
}

std::optional<std::int16_t> gridPitchOf(const QString& text) {
    const auto number = numberEntered(text);
    const double pitch = std::nearbyint(number.value_or(0));
    if (!(pitch > 0) || *number > kLargestPitch) return std::nullopt;
    return static_cast<std::int16_t>(pitch);
}

} // namespace vistor
