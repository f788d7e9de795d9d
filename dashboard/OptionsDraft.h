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

/// Reads the five keys, each with the window's own default.
OptionsDraft readOptionsDraft(const IniFile& file);
/// Writes them.
void writeOptionsDraft(IniFile& file, const OptionsDraft& draft);

/// The pitch that a text tells, rounded to whole twips: 1 to 1000. No value for others.
std::optional<std::int16_t> gridPitchOf(const QString& text);

} // namespace vistor
