// Which commands the two modes allow. In: the mode. Out: names of menu entries and numbers of toolbar buttons
// with their state.
#pragma once

namespace vistor {

struct ModeCommand {
    const char* name; ///< of a menu or menu entry of the main window
    bool inEditMode;
    bool inPlayMode;
};

inline constexpr ModeCommand kModeCommands[] = {
    {"mnuEditMode", false, true},
    {"mnuPlayMode", true, false},
    {"mnuNew", true, false},
    {"mnuLoadConfig", true, false},
    {"mnuSaveAs", true, false},
    {"mnuSaveConfig", true, false},
    {"recentFiles", true, false},
    {"recoverWork", true, false},
    {"mnuLoadVarInfo", true, false},
    {"mnuSaveVarInfo", true, false},
    {"mnuView", true, false},
    {"mnuAddControl", true, false},
    {"mnuWindow", true, false},
    {"mnuSelectDataSource", true, false},
    {"mnuRestoreDefaultVar", true, false},
};

struct ModeButton {
    int number; ///< from 1
    bool inEditMode;
    bool inPlayMode;
};

inline constexpr ModeButton kModeButtons[] = {
    {2, true, false},  {3, true, false},  {4, true, false},  {6, true, false},  {7, false, true},
    {9, true, false},  {10, true, false}, {11, true, false}, {12, true, false}, {14, true, false},
    {15, true, false}, {17, true, false}, {18, true, false},
};

} // namespace vistor
