// What the options window edits: the grid and the two colours of the dashboard. In and out: section
// "VXVISTOR" of the settings file.
#pragma once

#include "platform/IniFile.h"

#include <cstdint>
#include <optional>

namespace vistor {

struct OptionsDraft {
    QString gridSize; ///< twips, as it is typed
    bool showGrid = true;
    bool snapToGrid = true;
    std::int32_t backColour = 0; ///< 0x00BBGGRR, or a system colour with the top bit set
    std::int32_t labelColour = 0;
};

/// The colour of button faces, 0x8000000F as a signed number.
inline constexpr std::int32_t kButtonFaceColour = -2147483633;

/// Reads the five keys, each with the window's own default.
OptionsDraft readOptionsDraft(const IniFile& file);
/// Writes them.
void writeOptionsDraft(IniFile& file, const OptionsDraft& draft);

/// The pitch that a text tells: above 0 and not above 1000, rounded to whole twips. No value for others.
std::optional<std::int16_t> gridPitchOf(const QString& text);

} // namespace vistor
