// What the settings file says about the dashboard window: grid, colours, geometry of the three panes and of
// the palette's bar. In: "vxvis.cfg" at window load. Out: the same keys at window unload.
#pragma once

#include "platform/IniFile.h"

#include <array>
#include <cstdint>

namespace vistor {

/// Geometry in twips.
struct TwipsBox {
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;

    bool operator==(const TwipsBox&) const = default;
};

/// The four boxes in the order in which their sections are read and written.
enum class LayoutBox : std::uint8_t { Palette, PaletteBar, VariableFrame, Pages };
inline constexpr int kLayoutBoxes = 4;

struct LayoutKey {
    const char* section;
    const char* key;
    const char* fallback;
    float lowest; ///< twips; what is read below it becomes it
    float highest;
};

inline constexpr float kAnyTwips = 480000; ///< as far as any screen goes

/// Four keys a box: left, top, width, height.
inline constexpr LayoutKey kLayoutKeys[] = {
    {"CONTROL", "LEFT", "0", -kAnyTwips, kAnyTwips},     {"CONTROL", "TOP", "5550", 894, 12894},
    {"CONTROL", "WIDTH", "3165", -kAnyTwips, kAnyTwips}, {"CONTROL", "HEIGHT", "2498", 276, 12316},
    {"CONTROL_SPL", "LEFT", "2500", -32768, 32767},      {"CONTROL_SPL", "TOP", "1110", -32768, 32767},
    {"CONTROL_SPL", "WIDTH", "60", -32768, 32767},       {"CONTROL_SPL", "HEIGHT", "60", -32768, 32767},
    {"FUNTION", "LEFT", "12259", -kAnyTwips, kAnyTwips}, {"FUNTION", "TOP", "180", -kAnyTwips, kAnyTwips},
    {"FUNTION", "WIDTH", "3041", -kAnyTwips, kAnyTwips}, {"FUNTION", "HEIGHT", "6978", -kAnyTwips, kAnyTwips},
    {"DESIGN", "LEFT", "0", -kAnyTwips, kAnyTwips},      {"DESIGN", "TOP", "180", -kAnyTwips, kAnyTwips},
    {"DESIGN", "WIDTH", "12255", -kAnyTwips, kAnyTwips}, {"DESIGN", "HEIGHT", "6978", 434, 12474},
};
static_assert(std::size(kLayoutKeys) == 4 * kLayoutBoxes);

struct WindowSettings {
    std::int16_t gridSize = 0; ///< twips
    std::uint8_t showGrid = 0;
    std::uint8_t snapToGrid = 0;
    std::int32_t backColour = 0; ///< 0x00BBGGRR, or a system colour with the top bit set
    std::int32_t labelColour = 0;
    std::array<TwipsBox, kLayoutBoxes> boxes;

    TwipsBox& box(LayoutBox which) { return boxes[static_cast<std::size_t>(which)]; }
    const TwipsBox& box(LayoutBox which) const { return boxes[static_cast<std::size_t>(which)]; }
};

/// Reads every key, each with its default. Numbers that do not fit their field become the nearest that does.
WindowSettings readWindowSettings(const IniFile& file);

/// Writes the geometry, and nothing else: grid and colours belong to the options.
void writeWindowGeometry(IniFile& file, const std::array<TwipsBox, kLayoutBoxes>& boxes);

/// False for a pane (0 to 2) that a hand-edited section "VISIBLE" leaves out.
bool isPaneVisible(const IniFile& file, int pane);

} // namespace vistor
