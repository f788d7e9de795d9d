// The entries of the palette that stand for the nine kinds themselves: keys, texts and pictures. In: a kind
// or a key's first letter. Out: the entry.
#pragma once

#include "instruments/InstrumentKinds.h"

#include <QString>

namespace vistor {

struct PaletteEntry {
    Kind kind;
    const char* key; ///< its first letter orders the palette and tells the type
    const char* text;
    const char* iconFile; ///< in the scratch folder
    bool inTree;          ///< the odometer comes from the menus alone
};

/// In the order of the kinds.
inline constexpr PaletteEntry kPaletteEntries[] = {
    {Kind::AngularGauge, "aAGAUGE", "Angular gauge", "agauge.bmp", true},
    {Kind::Alphanumeric, "bALPHANUME", "Alphanumeric", "alphanume.bmp", true},
    {Kind::Led, "cLED", "LED", "led.bmp", true},
    {Kind::LinearGauge, "dLGAUGE", "Linear gauge", "lgauge.bmp", true},
    {Kind::Odometer, "eODO", "Odometer", "odo.bmp", false},
    {Kind::PercentageBar, "fPCTBAR", "Percentage bar", "pctbar.bmp", true},
    {Kind::TimeGraph, "gSTRIP", "Scrolling time graph", "strip.bmp", true},
    {Kind::XYGraph, "iXYGRAPH", "XY graph", "xygraph.bmp", true},
    {Kind::TextTag, "hTEXTTAG", "Text tag", "texttag.bmp", true},
};

constexpr const PaletteEntry& paletteEntry(Kind kind) {
    return kPaletteEntries[static_cast<std::size_t>(kind)];
}

/// The letter with which all keys of a kind begin.
constexpr char paletteLetter(Kind kind) {
    return paletteEntry(kind).key[0];
}

/// The plain entry whose type a key's first letter names; null for another letter.
constexpr const PaletteEntry* paletteEntryOf(QStringView key) {
    for (const PaletteEntry& entry : kPaletteEntries) {
        if (!key.isEmpty() && key.front() == QLatin1Char(entry.key[0])) return &entry;
    }
    return nullptr;
}

/// Whether a key is that of a custom entry and not of a plain one.
inline bool isCustomKey(const QString& key) {
    const PaletteEntry* entry = paletteEntryOf(key);
    return entry && key != QLatin1String(entry->key);
}

} // namespace vistor
