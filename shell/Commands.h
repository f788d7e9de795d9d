// The commands of the main window as tables: menus, their entries, the toolbar. In: nothing. Out: names,
// captions, pictures and what each one does.
#pragma once

#include "instruments/InstrumentKinds.h"

#include <array>
#include <span>

namespace vistor {

class frmMain;

using Operation = void (*)(frmMain& window);

struct MenuHead {
    const char* name;
    const char* caption;
    const char* parent;           ///< a menu's name, empty for the menu bar, null for a pop-up menu
    const char* before = nullptr; ///< the parent's entry behind it; empty for the first, null for none
};

struct MenuEntry {
    const char* menu;
    const char* name; ///< null for a separator
    const char* caption;
    const char* picture; ///< null for none
    Operation run;
    const char* keys = ""; ///< its shortcut
    bool checkable = false;
    bool underMessages = false; ///< its shortcut acts while a message stands
};

/// Menus before the menus inside them.
std::span<const MenuHead> menuHeads();
/// In the order in which they stand in their menus.
std::span<const MenuEntry> menuEntries();

/// Two of them are marks without a command: the head of the tab group, and the program's own at the end.
struct ToolButton {
    int number; ///< from 1; a number that is not in the table is a separator
    const char* picture;
    const char* tip;
};

inline constexpr int kToolButtons = 18;
std::span<const ToolButton> toolButtons();

} // namespace vistor
