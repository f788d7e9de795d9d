// The pin table of an instrument: which variable stands on which pin. In: bindings made by a person or read
// from a file. Out: names for the dispatch, texts for the file.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace vistor {

/// How a kind's bindings stand in its saved list.
enum class PinForm {
    None,    ///< the kind has no pins
    ToBound, ///< count, bound, then every pin up to the bound
    ToCount, ///< count, bound, then as many pins as are bound: what stands behind a hole is lost
    Graph,   ///< two such sections, X names and Y names, both up to the bound
};

/// A table of texts, columns by rows, lower bounds 0. Most kinds have one column: row 0 holds the number of
/// bound pins as text, row i the name of the variable on pin i or an empty text. A graph has six columns (X
/// and Y names, latest values, flags), rows being its tracks.
class PinTable {
public:
    static constexpr int kGraphColumns = 6;
    static constexpr int kMaximumBound = 8000;

    explicit PinTable(int columns = 1);

    int columns() const { return static_cast<int>(m_columns.size()); }
    /// The columns that hold names: 1, or 2 on a graph.
    int nameColumns() const { return columns() > 1 ? 2 : 1; }
    /// The highest row number, 0 for a new table.
    int upperBound() const { return static_cast<int>(m_columns.front().size()) - 1; }
    /// The text at a place, empty outside the table.
    QString at(int row, int column = 0) const;
    /// Writes a place inside the table; outside it nothing happens.
    void set(int row, const QString& text, int column = 0);
    /// The number of bound pins that row 0 tells.
    int count(int column = 0) const;
    void setCount(int count, int column = 0);
    /// Makes the table go from row 0 to `upperBound` (0 to 8000), keeping what fits.
    void resize(int upperBound);

    /// Binds a pin: grows the table where needed; the count goes up only when an empty pin fills. A pin below
    /// 1 or above 8000 changes nothing.
    void assign(int pin, const QString& name, int column = 0);
    /// Unbinds a pin: the last one goes with all empty ones before it, another one leaves a hole. The count
    /// goes down, to 0 at the least, also for a pin that was empty or lies beyond the table.
    void remove(int pin, int column = 0);

private:
    bool inside(int row, int column) const;
    bool lastRowEmpty() const;

    std::vector<QStringList> m_columns;
};

/// Appends the pin block to a list and answers the index of its last item (one less than the list when there
/// is no block).
int writePins(const PinTable& pins, PinForm form, QStringList& list);

/// Reads the pin block that begins at `first`. The bound is taken only as far as the list has items.
PinTable readPins(PinForm form, const QStringList& list, qsizetype first);

/// The tag's caption: for each column of names the first pin whose variable is known, as "[pin] name".
QString tagCaption(const PinTable& pins);

} // namespace vistor
