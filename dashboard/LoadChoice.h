// What may happen to the layout that stands when another one is loaded. In: the number of an option. Out: its
// words and its steps.
#pragma once

#include <array>

namespace vistor {

/// The steps in their order: save, clear, load.
struct LoadChoice {
    const char* text;
    bool save;
    bool clear;
    bool load;
};

inline constexpr const char* kLoadQuestion = "You are about to load another layout, do you want to:";

inline constexpr std::array<LoadChoice, 4> kLoadChoices{{
    {"clear current layout, and load the new one?", false, true, true},
    {"save the current one, clear current layout and load the new one?", true, true, true},
    {"load the new one on-top of the current layout?", false, false, true},
    {"abort, and do not load the new layout?", false, false, false},
}};

/// The option that stands at first: whatever the answer then is, nothing unsaved is lost without a word.
inline constexpr int kFirstLoadChoice = 1;

} // namespace vistor
