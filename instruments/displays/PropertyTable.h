// How a kind of display declares its properties: one table a kind, in the order of the saved list. In:
// constexpr arrays. Out: what store, list reader and writer, property sheet and properties window need to
// know, so that a property is added in one place.
#pragma once

#include "instruments/PinTable.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace vistor {

enum class PropertyType : std::uint8_t {
    Empty,   ///< a position of the list that is left empty on purpose
    Integer, ///< 16 bit
    Long,    ///< 32 bit
    Single,
    Double,
    Boolean, ///< -1 or 0, saved as that number
    Flag,    ///< saved as the word "True" or "False"
    String,
    FontName,
};

constexpr bool isText(PropertyType type) {
    return type == PropertyType::String || type == PropertyType::FontName;
}

/// In place of a property's or method's number: there is none.
inline constexpr std::int16_t kNoNumber = -1;

/// What a person edits a property with.
enum class Editor : std::uint8_t {
    ByType, ///< number, flag, text or font, as the type says
    Colour,
    Choice,
    Section, ///< one of the sections that there are
};

/// The words of the values 0, 1, ... of a choice.
struct Choices {
    std::span<const char* const> words;
    int otherwise = 0; ///< the word for any other value
};

struct PropertyInfo {
    std::int16_t number = 0; ///< the display's own; flags of the instrument have numbers from 1000 up
    PropertyType type = PropertyType::Empty;
    const char* label = nullptr; ///< null: shown as "Property n"
    double initial = 0;
    const char* initialText = "";
    const char* group = nullptr; ///< one of the kind's branches in the sheet; null: "Other", or its section
    double low = 0;              ///< what the sheet lets a person enter; equal bounds are those of the type
    double high = 0;
    Editor editor = Editor::ByType;
    Choices choices{};
    bool live = false; ///< changes with the data: the display's static picture does not show it
    std::span<const double> initials{};  ///< of sections 0, 1, ... and round again, in place of `initial`
    bool readOnly = false;               ///< told by the display: the sheet shows it only
    std::int16_t sectionsOf = kNoNumber; ///< it is the number of a section in the list that this one counts
};

/// A row of the properties window: a property of the current section under the words given there. A choice
/// shows its word, a flag one of these two.
struct ShownProperty {
    const char* label = "";
    std::int16_t number = 0;
    const char* on = "True";
    const char* off = "False";
    bool asFlag = false; ///< also a choice shows one of these two, `on` for its value 1
};

/// A list of sections: `count` of them, of which the one that the selector names is current. The selector is
/// the first of the fields.
struct SectionInfo {
    const char* name = nullptr; ///< one of them, such as "Needle"
    std::int16_t countProperty = 0;
    std::int16_t selectorProperty = 0;
    std::span<const PropertyInfo> fields{};
    bool countsFromPins = false; ///< pin i addresses it, so that the last pin shows section 0
};

/// Which section of `count` comes first, second ... for a person. Where pins address sections the first is
/// the one that pin 1 moves.
constexpr int sectionShownAt(int row, int count, bool countsFromPins) {
    return countsFromPins ? (row + 1) % count : row;
}

/// Where a property lies. Block 0 is the fixed properties, block n the section list n - 1.
struct PropertyAddress {
    enum class Role : std::uint8_t { None, Field, Count, Selector };

    Role role = Role::None;
    PropertyType type = PropertyType::Empty;
    bool live = false;
    std::uint8_t block = 0;
    std::uint8_t counts = 0; ///< for a count: the block that it counts
    std::uint16_t slot = 0;  ///< among the numbers, or the texts, of its block
};

/// The declaration of one kind. Made at compile time, where a fault in it stops the build.
class KindTable {
public:
    static constexpr int kLowest = -520;
    static constexpr int kHighest = 1010;

    struct Methods {
        std::int16_t redraw = kNoNumber;
        std::int16_t sheet = kNoNumber;
    };
    /// What a value for a pin is written to.
    struct ValueProperties {
        std::int16_t selector = kNoNumber;
        std::int16_t value = kNoNumber;
    };
    struct Parts {
        std::span<const PropertyInfo> fixed{}; ///< from item 2 of the list on
        std::span<const char* const> groups{}; ///< branches of the sheet in their order
        std::span<const SectionInfo> sections{};
        PinForm pins = PinForm::ToBound;
        Methods methods{};
        ValueProperties values{};
        /// The section count that tells how many pins there are; none: one pin.
        std::int16_t pinCountProperty = kNoNumber;
        bool staysEnabled = false;              ///< play mode does not disable the display
        std::span<const ShownProperty> shown{}; ///< in the properties window
    };

    consteval explicit KindTable(const Parts& parts) : m_parts(parts) {
        addBlock(0, parts.fixed);
        for (std::size_t s = 0; s < parts.sections.size(); ++s) addSection(s);
    }

    constexpr const Parts& parts() const { return m_parts; }
    constexpr std::span<const PropertyInfo> fixed() const { return m_parts.fixed; }
    constexpr std::span<const SectionInfo> sections() const { return m_parts.sections; }
    constexpr std::size_t blockCount() const { return m_parts.sections.size() + 1; }
    constexpr std::span<const PropertyInfo> fields(std::size_t block) const {
        return block == 0 ? m_parts.fixed : m_parts.sections[block - 1].fields;
    }
    /// Numbers and texts that one section of a block holds.
    constexpr int numbersIn(std::size_t block) const { return m_numbers[block]; }
    constexpr int textsIn(std::size_t block) const { return m_texts[block]; }

    /// Where a number lies; its role is None for a number that the kind does not have.
    constexpr const PropertyAddress& find(int number) const {
        const bool known = number >= kLowest && number <= kHighest;
        return m_addresses[known ? static_cast<std::size_t>(number - kLowest) : 0];
    }
    /// The declaration of a number; null when the kind does not have it.
    constexpr const PropertyInfo* info(int number) const {
        const PropertyAddress& address = find(number);
        if (address.role == PropertyAddress::Role::None) return nullptr;
        for (const PropertyInfo& field : fields(address.block))
            if (field.number == number && field.type != PropertyType::Empty) return &field;
        return nullptr;
    }

private:
    static constexpr std::size_t kMaximumBlocks = 9;
    using Role = PropertyAddress::Role;

    consteval PropertyAddress& free(int number) {
        if (number <= kLowest || number > kHighest) throw "a property number is out of range";
        PropertyAddress& address = m_addresses[static_cast<std::size_t>(number - kLowest)];
        if (address.role != Role::None) throw "a property number stands twice";
        return address;
    }
    consteval void addBlock(std::size_t block, std::span<const PropertyInfo> fields) {
        for (const PropertyInfo& field : fields) {
            if (field.type == PropertyType::Empty) continue;
            int& slots = isText(field.type) ? m_texts[block] : m_numbers[block];
            free(field.number) = {.role = Role::Field,
                                  .type = field.type,
                                  .live = field.live,
                                  .block = static_cast<std::uint8_t>(block),
                                  .slot = static_cast<std::uint16_t>(slots++)};
        }
    }
    consteval void addSection(std::size_t s) {
        const SectionInfo& section = m_parts.sections[s];
        if (section.fields.empty() || section.fields[0].number != section.selectorProperty)
            throw "a section does not begin with its selector";
        addBlock(s + 1, section.fields);
        at(section.selectorProperty).role = Role::Selector;
        PropertyAddress& count = at(section.countProperty);
        if (count.role != Role::Field || count.block != 0) throw "a section has no count";
        count.role = Role::Count;
        count.counts = static_cast<std::uint8_t>(s + 1);
    }
    consteval PropertyAddress& at(int number) {
        return m_addresses[static_cast<std::size_t>(number - kLowest)];
    }

    Parts m_parts;
    std::array<PropertyAddress, static_cast<std::size_t>(kHighest - kLowest + 1)> m_addresses{};
    std::array<int, kMaximumBlocks> m_numbers{};
    std::array<int, kMaximumBlocks> m_texts{};
};

} // namespace vistor
