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
};

inline constexpr std::array<KindInfo, 9> kInstrumentKinds{{
    {Kind::AngularGauge, "VXAGAUGE", "Angular Gauge", "NEEDLE"},
    {Kind::Alphanumeric, "VXALPHANUME", "Alphanumaric", "INPUT"},
    {Kind::Led, "VXLED", "LED", "INPUT"},
    {Kind::LinearGauge, "VXLGAUGE", "Linear Gauge", "POINTER"},
    {Kind::Odometer, "VXODO", "ODO Meter", "INPUT"},
    {Kind::PercentageBar, "VXPCTBAR", "Percentage Bar", "PORTION"},
    {Kind::TimeGraph, "VXSTRIP", "Scrolling Time Graph", "TRACK"},
    {Kind::XYGraph, "VXXYGRAPH", "XY Graph", "TRACK"},
    {Kind::TextTag, "VXTEXTTAG", "Text Tag", ""},
}};

constexpr const KindInfo& kindInfo(Kind kind) {
    return kInstrumentKinds[static_cast<std::size_t>(kind)];
}

/// The kind of a class name, to the letter; no value for another text.
std::optional<Kind> kindOf(const QString& className);

/// Whether this program can make a kind yet.
bool canMake(Kind kind);

/// A new instrument of a kind with its defaults, hidden. Null for a kind that this program cannot make yet.
std::unique_ptr<Instrument> makeInstrument(Kind kind, QWidget* parent);

} // namespace vistor
