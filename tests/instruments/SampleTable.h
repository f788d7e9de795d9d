// A made-up kind with everything that a table can declare, so that the mechanism is tested apart from any
// display.
#pragma once

#include "instruments/displays/PropertyTable.h"

namespace vistor {

inline constexpr const char* kSampleWords[] = {"First", "Second", "Third"};
inline constexpr const char* kSampleGroups[] = {"Look", "Scale"};

inline constexpr PropertyInfo kSampleFixed[] = {
    {.number = -501, .type = PropertyType::Long, .label = "Back", .group = "Look", .editor = Editor::Colour},
    {.number = 3, .type = PropertyType::Integer, .label = "Width", .initial = 7, .group = "Look"},
    {.number = 5, .type = PropertyType::Boolean, .label = "Shown", .group = "Look"},
    {.number = 6,
     .type = PropertyType::Single,
     .label = "Size",
     .initial = 8.5,
     .group = "Scale",
     .low = 4,
     .high = 72},
    {.number = 9, .type = PropertyType::Double, .label = "Maximum", .group = "Scale"},
    {.number = 12, .type = PropertyType::String, .initialText = "none", .readOnly = true},
    {.number = 14,
     .type = PropertyType::Long,
     .label = "Style",
     .group = "Look",
     .editor = Editor::Choice,
     .choices = {kSampleWords}},
    {.number = 20, .type = PropertyType::Integer, .initial = 1},
    {.number = 30, .type = PropertyType::Integer, .initial = 2},
    {},
    {},
    {.number = 1001, .type = PropertyType::Flag, .label = "Auto Scale", .group = "Scale"},
};

inline constexpr PropertyInfo kSampleFonts[] = {
    {.number = 21, .type = PropertyType::Integer},
    {.number = -512, .type = PropertyType::FontName, .label = "Font", .initialText = "Sans"},
    {.number = 22, .type = PropertyType::Single, .label = "Font Size", .initial = 8},
};

inline constexpr PropertyInfo kSampleNeedles[] = {
    {.number = 31, .type = PropertyType::Integer},
    {.number = 32, .type = PropertyType::Double, .label = "Needle Value", .live = true},
    {.number = 33,
     .type = PropertyType::Long,
     .label = "Needle Colour",
     .initial = 255,
     .editor = Editor::Colour},
};

inline constexpr SectionInfo kSampleSections[] = {
    {.name = "Font", .countProperty = 20, .selectorProperty = 21, .fields = kSampleFonts},
    {.name = "Needle",
     .countProperty = 30,
     .selectorProperty = 31,
     .fields = kSampleNeedles,
     .countsFromPins = true},
};

inline constexpr KindTable kSampleTable{KindTable::Parts{.fixed = kSampleFixed,
                                                         .groups = kSampleGroups,
                                                         .sections = kSampleSections,
                                                         .pins = PinForm::ToBound,
                                                         .methods = {.redraw = 99, .sheet = 98},
                                                         .values = {.selector = 31, .value = 32},
                                                         .pinCountProperty = 30}};

/// The same as a graph has it: two-dimensional pins.
inline constexpr KindTable kSampleGraphTable{
    KindTable::Parts{.fixed = kSampleFixed, .sections = kSampleSections, .pins = PinForm::Graph}};

} // namespace vistor
