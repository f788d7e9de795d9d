// Short forms for the lines of a kind's table. In: number, label, default. Out: the declaration.
#pragma once

#include "instruments/displays/PropertyTable.h"

#include <algorithm>

namespace vistor {

inline constexpr const char* kDirectionWords[] = {"Forward", "Backward"};
inline constexpr const char* kOrientationWords[] = {"Horizontal", "Vertical"};

constexpr PropertyInfo colourProperty(std::int16_t number, const char* label, int initial,
                                      const char* group = nullptr) {
    return {.number = number,
            .type = PropertyType::Long,
            .label = label,
            .initial = double(initial),
            .group = group,
            .editor = Editor::Colour};
}

constexpr PropertyInfo choiceProperty(std::int16_t number, PropertyType type, const char* label, int initial,
                                      std::span<const char* const> words, const char* group = nullptr) {
    return {.number = number,
            .type = type,
            .label = label,
            .initial = double(initial),
            .group = group,
            .editor = Editor::Choice,
            .choices = {words}};
}

/// The same for a choice with a word for all values that have none of their own.
constexpr PropertyInfo choiceOrElseProperty(std::int16_t number, const char* label, int initial,
                                            std::span<const char* const> words, int otherwise,
                                            const char* group = nullptr) {
    PropertyInfo info = choiceProperty(number, PropertyType::Long, label, initial, words, group);
    info.choices.otherwise = otherwise;
    return info;
}

/// The number of a section in the list that `countProperty` counts.
constexpr PropertyInfo sectionProperty(std::int16_t number, const char* label, int initial,
                                       std::int16_t countProperty) {
    return {.number = number,
            .type = PropertyType::Integer,
            .label = label,
            .initial = double(initial),
            .editor = Editor::Section,
            .sectionsOf = countProperty};
}

constexpr PropertyInfo flagProperty(std::int16_t number, const char* label, bool initial,
                                    const char* group = nullptr) {
    return {.number = number,
            .type = PropertyType::Boolean,
            .label = label,
            .initial = initial ? -1.0 : 0.0,
            .group = group};
}

constexpr PropertyInfo wholeProperty(std::int16_t number, const char* label, int initial, int low, int high,
                                     const char* group = nullptr) {
    return {.number = number,
            .type = PropertyType::Integer,
            .label = label,
            .initial = double(initial),
            .group = group,
            .low = double(low),
            .high = double(high)};
}

constexpr PropertyInfo realProperty(std::int16_t number, const char* label, double initial,
                                    const char* group = nullptr) {
    return {
        .number = number, .type = PropertyType::Double, .label = label, .initial = initial, .group = group};
}

constexpr PropertyInfo textProperty(std::int16_t number, const char* label, const char* group = nullptr) {
    return {.number = number, .type = PropertyType::String, .label = label, .group = group};
}

/// What data write.
constexpr PropertyInfo liveProperty(std::int16_t number, PropertyType type, const char* label,
                                    const char* group = nullptr) {
    return {.number = number, .type = type, .label = label, .group = group, .live = true};
}

/// Kept and given back, without a meaning for the picture.
constexpr PropertyInfo keptProperty(std::int16_t number, PropertyType type) {
    return {.number = number, .type = type};
}

/// Lines behind one another.
template <std::size_t... Counts>
constexpr auto joined(const std::array<PropertyInfo, Counts>&... lines) {
    std::array<PropertyInfo, (Counts + ...)> all{};
    auto end = all.begin();
    ((end = std::copy(lines.begin(), lines.end(), end)), ...);
    return all;
}

} // namespace vistor
