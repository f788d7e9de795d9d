// The pin table of an instrument: which variable stands on which pin. In: bindings made by a person or read
// from a file. Out: names for the dispatch, texts for the file.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace vistor {

/// A table of texts, columns by rows, lower bounds 0. Most kinds have one column: row 0 holds the number of
/// bound pins as text, row i the name of the variable on pin i or an empty text. A graph has six columns (X
/// and Y names, latest values, flags), rows being its tracks.
class PinTable {
public:
    explicit PinTable(int columns = 1);

    int columns() const { return static_cast<int>(m_columns.size()); }
    /// The highest row number, 0 for a new table.
    int upperBound() const { return static_cast<int>(m_columns.front().size()) - 1; }
    /// The text at a place, empty outside the table.
    QString at(int row, int column = 0) const;
    /// Writes a place inside the table; outside it nothing happens.
    void set(int row, const QString& text, int column = 0);
    /// The number of bound pins that row 0 tells.
    int count(int column = 0) const;
    void setCount(int count, int column = 0);
    /// Makes the table go from row 0 to `upperBound`, keeping what fits.
    void resize(int upperBound);

    /// Binds a pin: grows the table where needed; the count goes up only when an empty pin fills.
    void assign(int pin, const QString& name, int column = 0);
    /// Unbinds a pin: the last one goes with all empty ones before it, another one leaves a hole. The count
    /// goes down.
    void remove(int pin, int column = 0);

private:
    std::vector<QStringList> m_columns;
};

} // namespace vistor
