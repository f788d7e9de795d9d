// Initialisation files: sections, keys and values as lines of text. In and out: files of texts as
// platform/CodePage.h tells them.
#pragma once

#include "platform/IniText.h"

#include <QByteArray>
#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace vistor {

/// One initialisation file in memory: read once, asked and changed any number of times, written once.
///
/// Sections and keys are found without regard to case; of two equal ones the first wins. Blanks around
/// sections, keys and values are dropped, and so is one pair of equal quotes around a value. Lines that were
/// not changed stay to the byte, known or not, and so does the order of first writing.
///
/// Every call takes the same time in a large file as in a small one, but for the first question to a section;
/// memory beside the bytes is about theirs at most.
class IniFile {
public:
    IniFile();

    /// The document in a file. A file that is missing gives an empty one; so does one that is no plain file,
    /// cannot be read or has more than 64 MiB, and problem() tells why.
    static IniFile load(const QString& path);
    /// The document in bytes; any bytes are one.
    static IniFile parse(std::string_view bytes);

    /// Why what the file holds is not here, in words; empty when it is.
    const QString& problem() const { return m_problem; }

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
    QStringList sections() const;
    /// The keys of a section in lower case, in no order; none where there is no such section.
    QStringList keys(const QString& section) const;
    bool hasKeys(const QString& section) const;
    /// Those of them that are whole numbers within two limits, ascending: what trying each would find.
    std::vector<int> numberedKeys(const QString& section, int lowest, int highest) const;
    /// No fewer than the keys there are in all sections.
    qsizetype keyCount() const;

    /// The document as it is written.
    QByteArray toBytes() const;
    /// Writes the whole document, replacing the file in one step; one that holds it already is not touched.
    /// False when that failed, or when what the file holds could not be read: it then stands. `problem` gets
    /// the reason in words.
    bool save(const QString& path, QString* problem = nullptr) const;
    /// The same, telling a person in a notice when it failed; `what` as for writeOrTell().
    bool saveOrTell(const QString& path, const QString& what) const;

private:
    using Place = IniText::Place;

    struct NewLine {
        QByteArray raw;                      ///< empty when it was taken out again
        Place inPlaceOf = IniText::kNowhere; ///< nowhere: behind the section's other lines
    };
    /// What was changed in the sections of one name.
    struct Edits {
        QByteArray head;      ///< of a section that the text has not
        qsizetype order = 0;  ///< of such a one among others, from 1
        bool dropped = false; ///< the text's sections of this name are gone
        std::vector<NewLine> lines;
        QHash<QByteArray, QList<qsizetype>>
            byFirst;                    ///< numbers of the lines by their key up to its first "="
        QHash<Place, qsizetype> placed; ///< numbers of those that stand for one of the text
        QSet<QByteArray> removed;       ///< keys whose lines in the text are gone
        qsizetype furthest = -1;        ///< the most "=" inside one of those
    };
    /// A line that was found: one of the text or a new one, or none.
    struct Found {
        std::string_view line;
        Place place = IniText::kNowhere;
        qsizetype number = -1;
        bool isThere() const { return place != IniText::kNowhere || number >= 0; }
    };
    class Writer;

    const Edits* editsOf(const QByteArray& section) const;
    Place headOf(const QByteArray& section, const Edits* edits) const;
    bool isHidden(const Edits& edits, Place place) const;
    Place findInText(Place head, const Edits* edits, const QByteArray& key, qsizetype further) const;
    Found find(const QByteArray& section, const QByteArray& key) const;
    void eachKey(const QByteArray& section, const std::function<bool(std::string_view)>& take) const;
    void append(Edits& edits, NewLine line);

    std::shared_ptr<const IniText> m_text;
    QHash<QByteArray, Edits> m_edits; ///< by the sections' names
    qsizetype m_newSections = 0;
    qsizetype m_newLines = 0;
    QString m_problem;
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
