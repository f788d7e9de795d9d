// The library of custom instruments as it stands in its file: named lists of instruments, numbered by kind.
// In and out: plain data on the one side, an initialisation file on the other; no window.
#pragma once

#include "instruments/InstrumentKinds.h"

#include <QStringList>

#include <vector>

namespace vistor {

class IniFile;

struct CustomEntry {
    int number = 0; ///< from 1, within its kind
    QString key;    ///< the kind's letter and the entry's name

    QString name() const { return key.mid(1); }
};

/// The key of a name as a person typed it: in lower case, as the file can hold it. Empty for a name of which
/// nothing is left.
QString customKey(Kind kind, const QString& name);

/// The entries of a kind by number. Counts are believed as far as the file has entries; numbers whose key is
/// not one of that kind are left out.
std::vector<CustomEntry> customEntries(const IniFile& file, Kind kind);

/// The number of a key's entry, 0 where there is none.
int customNumber(const IniFile& file, Kind kind, const QString& key);

/// The stored list of an entry; a list that is missing has the one item "0".
QStringList customList(const IniFile& file, Kind kind, int number);

/// The thumbnail's name as the file has it, which can be anything.
QString customThumbnail(const IniFile& file, Kind kind, int number);
void setCustomThumbnail(IniFile& file, Kind kind, int number, const QString& name);

/// Adds an entry behind the last. `highest` is the index of the list's last item, as the instrument gives it.
void addCustomEntry(IniFile& file, Kind kind, const QString& key, const QStringList& list, int highest,
                    const QString& thumbnail);

/// Writes the library in its place in the working folder. False when that failed; the person has been told.
bool saveLibrary(const IniFile& file);

/// Takes an entry out; those behind it move up by one number.
void removeCustomEntry(IniFile& file, Kind kind, const CustomEntry& entry);

} // namespace vistor
