// Initialisation files: sections, keys and values as lines of text. In and out: files in the program's code
// page.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <string_view>
#include <vector>

namespace vistor {

/// One initialisation file in memory: parsed once, asked and changed any number of times, written once.
///
/// Sections and keys are found without regard to case; of two equal ones the first wins. Blanks around
/// sections, keys and values are dropped, and so is one pair of equal quotes around a value. Lines it does
/// not know (comments, text without "=") are kept where they stand, and so is the order of first writing.
class IniFile {
public:
    IniFile() = default;

    /// The document in a file. A file that is missing, cannot be read or has more than 64 MiB gives an empty
    /// one.
    static IniFile load(const QString& path);
    /// The document in bytes of the code page; any bytes are one.
    static IniFile parse(std::string_view bytes);

    /// The value of a key, or `fallback` where there is none, cut to `buffer` less 1 characters and at the
    /// first NUL, as a reader with a buffer of that size gets it.
    QString value(const QString& section, const QString& key, const QString& fallback, int buffer) const;

    /// Sets a key, in the section of that name or in a new one at the end. A line end inside the value is
    /// written as a blank, so that no value can forge a section. A key may hold "=" and is found again under
    /// that name; one that is empty or begins with "[" or ";" could not be, and is not written.
    void setValue(const QString& section, const QString& key, const QString& value);

    /// Takes a key out of all sections of that name, or all sections of that name out; what is not there
    /// need not be.
    void removeKey(const QString& section, const QString& key);
    void removeSection(const QString& section);

    /// The names of the sections that can be found, in lower case, in no order.
    QStringList sections() const { return m_names.keys(); }
    /// The keys of a section in lower case, in no order; none where there is no such section.
    QStringList keys(const QString& section) const;
    /// Those of them that are whole numbers within two limits, ascending: what trying each would find.
    std::vector<int> numberedKeys(const QString& section, int lowest, int highest) const;
    /// How many keys there are in all sections that can be found.
    qsizetype keyCount() const;

    /// The document as it is written.
    QByteArray toBytes() const;
    /// Writes the whole document, replacing the file in one step. False when that failed, or when the
    /// file that the document was loaded from could not be read whole: the old file then stands.
    bool save(const QString& path) const;

private:
    struct Line {
        QByteArray
            raw; ///< as it stood in the file, without the line end; for a key's line as it will be written
        QString value; ///< of a key's line
    };
    struct Section {
        QString name;                   ///< in lower case; none for what stands before the first head
        std::vector<Line> lines;        ///< the head itself first, but for what stands before the first head
        QHash<QString, qsizetype> keys; ///< up to the first "=" of each line

        void index();
        /// The number of a key's line, -1 where there is none.
        qsizetype find(const QString& key) const;
    };

    const Section* findSection(const QString& name) const;
    Section& sectionFor(const QString& name);
    void appendLine(std::string_view raw);

    bool m_whole = true;                           ///< nothing of the file it came from is missing here
    std::vector<Section> m_sections = {Section{}}; ///< number 0 is what stands before the first head
    QHash<QString, qsizetype> m_names;
};

/// Reads one key of a file (the first of the two classic operations). For more than a few keys load the file
/// once.
QString readIniValue(const QString& path, const QString& section, const QString& key, const QString& fallback,
                     int buffer);

/// Writes one key of a file, keeping all else in it; false when the file could not be
/// read whole or not be written.
bool writeIniValue(const QString& path, const QString& section, const QString& key, const QString& value);

/// The number with which a text begins, after blanks: sign, digits, "." and exponent; 0 where there is none.
/// Blanks between the digits are passed over. The form in which numbers in these files are read.
double leadingNumber(const QString& text);

} // namespace vistor
