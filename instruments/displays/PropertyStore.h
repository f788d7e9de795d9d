// The values of a display's properties, addressed by number. In: numbers and texts from data, files and the
// property sheet. Out: the same as declared, to drawing, files and the sheet. A value type: a copy is a
// draft.
#pragma once

#include "instruments/displays/PropertyTable.h"
#include "platform/NumberText.h"

#include <QString>
#include <QStringView>

#include <span>
#include <vector>

namespace vistor {

class PropertyStore {
public:
    static constexpr int kMaximumSections = 256; ///< of one kind

    /// All properties at their defaults. `table` outlives the store.
    explicit PropertyStore(const KindTable& table);

    const KindTable& table() const { return *m_table; }

    /// Writes a property of the current section, coerced to its type: halves go to the even side, what is out
    /// of the type's range rests at its end, what is not a number changes nothing but a Single or Double,
    /// which keeps it. A count makes or drops sections; a selector makes section (value modulo count)
    /// current, unless it is negative. Unknown numbers change nothing. Allocates only where a count changes
    /// or a text grows.
    void setNumber(int number, double value);
    void setText(int number, QStringView text);
    /// The property of the current section; 0 or an empty text where there is none.
    double number(int number) const;
    const QString& text(int number) const;

    /// The same in section `index` of the property's list, whichever is current.
    double number(int number, int index) const;
    const QString& text(int number, int index) const;
    void setNumber(int number, int index, double value);
    void setText(int number, int index, QStringView text);

    int integer(int number) const { return static_cast<int>(this->number(number)); }
    int integer(int number, int index) const { return static_cast<int>(this->number(number, index)); }
    bool flag(int number) const { return this->number(number) != 0; }
    bool flag(int number, int index) const { return this->number(number, index) != 0; }

    /// The place of a choice's word among its words: that of all others for a value without one.
    int choice(int number) const { return choice(number, m_blocks[m_table->find(number).block].current); }
    int choice(int number, int index) const;
    /// The section that a property names by its number: the nearest where there is none such, 0 without any.
    int sectionNamed(int number, int index) const;
    /// A number held to what the sheet lets a person enter.
    int bounded(int number, int index = 0) const;

    /// A property in the form of the saved list, and written from it.
    QString item(int number, int index) const;
    void setItem(int number, int index, const QString& item);

    /// Sections of a block: 1 for the fixed properties.
    int sections(std::size_t block) const { return m_blocks[block].count; }
    /// Makes a block's sections anew: place i takes the section that stood at `order[i]`, or its defaults
    /// where that is none. So sections are added, dropped and moved. Numbers that name one of them follow it;
    /// in place of a dropped one they name that which took its place.
    void rearrange(std::size_t block, std::span<const int> order);
    /// Makes section 0 of every list the current one.
    void resetSelectors();

    /// Counts all changes of values, and those that are not live.
    std::uint64_t revision() const { return m_revision; }
    std::uint64_t staticRevision() const { return m_staticRevision; }

private:
    struct Block {
        int count = 0;
        int selector = 0; ///< as it was written
        int current = -1; ///< -1 without sections
        std::vector<double> numbers;
        std::vector<QString> texts;
    };

    void resizeBlock(std::size_t block, int count);
    void fillDefaults(std::size_t block, int index);
    void renumber(std::int16_t countProperty, int before, std::span<const int> order);
    void countChanged(std::size_t block);
    void select(Block& block, double value);
    void writeNumber(const PropertyAddress& address, int index, double value);
    void writeText(const PropertyAddress& address, int index, QStringView text);
    double readNumber(const PropertyAddress& address, int index) const;
    const QString& readText(const PropertyAddress& address, int index) const;
    void changed(bool live);

    const KindTable* m_table;
    std::vector<Block> m_blocks;
    std::uint64_t m_revision = 1;
    std::uint64_t m_staticRevision = 1;
};

/// A value as a type takes it; `before` where it is not a number.
double coerced(PropertyType type, double value, double before);

/// The number of a text: exact where the text is a plain number, else as far as a lenient reader gets. The
/// words of a flag count as -1 and 0.
double numberOfText(const QString& text);

} // namespace vistor
