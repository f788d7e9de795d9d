// Any bytes as the library of custom instruments and as the window's settings: the entries can be told, taken
// out and added, and the panes fill the window without overlap.
#include "dashboard/CustomLibrary.h"
#include "dashboard/PaneLayout.h"
#include "dashboard/Thumbnails.h"
#include "dashboard/WindowSettings.h"
#include "fuzz/Harness.h"

#include <cmath>

namespace {

using namespace vistor;

const QString kNewKey = QStringLiteral("cnew entry of the test");

void checkLibrary(IniFile& file) {
    for (const KindInfo& info : kInstrumentKinds) {
        for (const CustomEntry& entry : customEntries(file, info.kind)) {
            if (entry.name().isEmpty() || customNumber(file, info.kind, entry.key) <= 0) std::abort();
            if (customList(file, info.kind, entry.number).size() > file.keyCount() + 5000) std::abort();
            const QString path = thumbnailPath(customThumbnail(file, info.kind, entry.number));
            if (path.contains(QLatin1String("..")) || path.count(u'/') > 0) std::abort(); // no folder is set
        }
    }
    const std::size_t before = customEntries(file, Kind::Led).size();
    if (before > 50) return;
    addCustomEntry(file, Kind::Led, kNewKey, {QStringLiteral("9")}, 0, QStringLiteral("n.bmp"));
    const auto entries = customEntries(file, Kind::Led);
    if (entries.size() < before + 1) std::abort();
    removeCustomEntry(file, Kind::Led, entries.back());
    if (customEntries(file, Kind::Led).size() > before) std::abort();
}

void checkPanes(const IniFile& file) {
    const WindowSettings settings = readWindowSettings(file);
    const auto rect = [&settings](LayoutBox which) {
        const TwipsBox& box = settings.box(which);
        const auto pixels = [](float twips) { return static_cast<int>(std::lround(twips / 15)); };
        return QRect(pixels(box.left), pixels(box.top), pixels(box.width), pixels(box.height));
    };
    const PaneRects stored = {rect(LayoutBox::Pages), rect(LayoutBox::VariableFrame),
                              rect(LayoutBox::Palette)};
    PaneFlags present{};
    for (int pane = 0; pane < kPaneCount; ++pane)
        present[static_cast<std::size_t>(pane)] = isPaneVisible(file, pane);
    const QRect room(0, 0, 1200, 800);
    const PaneRects panes = applyLayout(layoutOf(stored, present), room);
    for (std::size_t a = 0; a < panes.size(); ++a) {
        if (!room.contains(panes[a]) && !panes[a].isEmpty()) std::abort();
        for (std::size_t b = a + 1; b < panes.size(); ++b)
            if (panes[a].intersects(panes[b])) std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    IniFile file = IniFile::parse({reinterpret_cast<const char*>(data), size});
    checkPanes(file);
    checkLibrary(file);
    return 0;
}
