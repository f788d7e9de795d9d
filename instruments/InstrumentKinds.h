// The nine kinds of instrument in their fixed order, which files, menus and the clipboard share. In: a kind
// or its class name. Out: what is particular to it, and a new instrument.
#pragma once

#include <QString>

#include <array>
#include <cstdint>
#include <memory>
#include <optional>

class QWidget;

namespace vistor {

class Instrument;

enum class Kind : std::uint8_t {
    AngularGauge,
    Alphanumeric,
    Led,
    LinearGauge,
    Odometer,
    PercentageBar,
    TimeGraph,
    XYGraph,
    TextTag,
};

struct KindInfo {
    Kind kind;
    const char* className; ///< as it stands in files
    const char* title;     ///< as the properties window and the variable table say it
    const char* pinLabel;  ///< what a pin is called; empty when there are none
    int width;             ///< of a new one, in logical pixels
    int height;
};

inline constexpr std::array<KindInfo, 9> kInstrumentKinds{{
    {Kind::AngularGauge, "VXAGAUGE", "Angular Gauge", "NEEDLE", 220, 220},
    {Kind::Alphanumeric, "VXALPHANUME", "Alphanumaric", "INPUT", 160, 80},
    {Kind::Led, "VXLED", "LED", "INPUT", 240, 60},
    {Kind::LinearGauge, "VXLGAUGE", "Linear Gauge", "POINTER", 130, 280},
    {Kind::Odometer, "VXODO", "ODO Meter", "INPUT", 190, 60},
    {Kind::PercentageBar, "VXPCTBAR", "Percentage Bar", "PORTION", 260, 70},
    {Kind::TimeGraph, "VXSTRIP", "Scrolling Time Graph", "TRACK", 400, 220},
    {Kind::XYGraph, "VXXYGRAPH", "XY Graph", "TRACK", 300, 260},
    {Kind::TextTag, "VXTEXTTAG", "Text Tag", "", 160, 46},
}};

constexpr const KindInfo& kindInfo(Kind kind) {
    return kInstrumentKinds[static_cast<std::size_t>(kind)];
}

/// The kind of a class name, to the letter; no value for another text.
std::optional<Kind> kindOf(const QString& className);

/// A new instrument of a kind with its defaults, hidden.
std::unique_ptr<Instrument> makeInstrument(Kind kind, QWidget* parent);

} // namespace vistor
