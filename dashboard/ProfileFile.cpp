#include "dashboard/ProfileFile.h"

#include "dashboard/ItemList.h"
#include "platform/Folders.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

namespace vistor {
namespace {

constexpr int kNumberBuffer = 10;
// As far as the buffer of a number holds digits and sign, so that what was read is written alike.
constexpr double kLeastNumber = -99'999'999;
constexpr double kMostNumber = 999'999'999;
constexpr int kPortBuffer = kLongestPath + 200; // a path, and words beside it
constexpr int kCaptionBuffer = 30;
constexpr int kNameBuffer = 20;

/// Items that instruments may take when several of them share a section.
constexpr qsizetype kSharedItems = 1'000'000;

const QString kTabsSection = QStringLiteral("TABS");
const QString kCaptionsSection = QStringLiteral("TAB");
const QString kSystemSection = QStringLiteral("SYSTEM");

/// With as many decimals as its value has and the buffer of a number holds.
QString twipsText(double twips) {
    for (int decimals = 4; decimals > 0; --decimals) {
        QString text = QString::number(twips, 'f', decimals);
        while (text.endsWith(u'0')) text.chop(1);
        if (text.endsWith(u'.')) break;
        if (text.size() < kNumberBuffer) return text;
    }
    return QString::number(std::llround(twips));
}

QString pageSection(Kind kind, int tab) {
    return QLatin1String(kindInfo(kind).className) + u'/' + QString::number(tab);
}

QString ownSection(const ProfileInstrument& instrument) {
    return pageSection(instrument.kind, instrument.tab) + u'/' + QString::number(instrument.index);
}

double boundedNumber(const QString& text) {
    return std::clamp(leadingNumber(text), kLeastNumber, kMostNumber);
}

int wholeNumber(const QString& text) {
    return boundedWhole(text, kLeastNumber, kMostNumber);
}

double number(const IniFile& file, const QString& section, const char* key) {
    return boundedNumber(file.value(section, QLatin1String(key), QStringLiteral("0"), kNumberBuffer));
}

std::optional<double> sizeOf(const IniFile& file, const char* key, const char* fallback) {
    const QString text = file.value(kTabsSection, QLatin1String(key), QLatin1String(fallback), kNumberBuffer);
    return text.isEmpty() ? std::nullopt : std::optional(boundedNumber(text));
}

/// For each kind the tabs, ascending, on which a file has instruments of it.
using KindTabs = std::array<std::vector<int>, kInstrumentKinds.size()>;

/// Asks for the sections that there are: most of the pages that a file may have it has not.
KindTabs tabsOfKinds(const IniFile& file) {
    KindTabs found;
    for (const QString& section : file.sections()) {
        const qsizetype slash = section.indexOf(u'/');
        const auto kind = slash < 0 ? std::nullopt : kindOf(section.left(slash).toUpper());
        const int tab = section.mid(slash + 1).toInt();
        if (!kind || tab < 0 || tab >= kMostTabs) continue;
        if (section != pageSection(*kind, tab).toLower() || !file.hasKeys(section)) continue;
        found.at(static_cast<std::size_t>(*kind)).push_back(tab);
    }
    for (std::vector<int>& tabs : found) std::sort(tabs.begin(), tabs.end());
    return found;
}

int declaredTabs(const IniFile& file) {
    return wholeNumber(file.value(kTabsSection, QStringLiteral("PIC"), QStringLiteral("1"), kNumberBuffer));
}

/// Up to the last tab that has a caption or an instrument.
int tabsSeen(const IniFile& file, const KindTabs& pages) {
    const std::vector<int> captions = file.numberedKeys(kCaptionsSection, 0, kMostTabs - 1);
    int seen = captions.empty() ? 0 : captions.back() + 1;
    for (const std::vector<int>& tabs : pages)
        if (!tabs.empty()) seen = std::max(seen, tabs.back() + 1);
    return seen;
}

QStringList readCaptions(const IniFile& file, const KindTabs& pages) {
    const int tabs = std::min(declaredTabs(file), std::max(kTabsUnseen, tabsSeen(file, pages)));
    QStringList captions;
    for (int tab = 0; tab < tabs; ++tab)
        captions << file.value(kCaptionsSection, QString::number(tab), QStringLiteral("VX"), kCaptionBuffer);
    return captions;
}

/// Reads the instruments of a document, all in one walk.
class InstrumentReader {
public:
    InstrumentReader(const IniFile& file, int tabs)
        : m_file(file), m_tabs(std::max(1, tabs)), m_items(file.keyCount() + kSharedItems) {}

    std::vector<ProfileInstrument> read(const KindTabs& pages) {
        for (const KindInfo& info : kInstrumentKinds) {
            const int count = wholeNumber(m_file.value(kTabsSection, QLatin1String(info.className),
                                                       QStringLiteral("0"), kNumberBuffer));
            m_last = 0;
            for (const int tab : pages.at(static_cast<std::size_t>(info.kind)))
                readPage(info.kind, tab, count);
            m_lost += std::max(0, count - m_last);
        }
        return std::move(m_found);
    }
    /// Instruments that the document counts or holds and that do not come up.
    int lost() const { return m_lost; }
    /// Those whose lists are not all there.
    int incomplete() const { return m_incomplete; }

private:
    void readPage(Kind kind, int tab, int count) {
        const QString page = pageSection(kind, tab);
        for (const int key : m_file.numberedKeys(page, 1, static_cast<int>(kMostNumber))) {
            const QString section = m_file.value(page, QString::number(key), QString(), kNameBuffer);
            if (section.isEmpty()) continue;
            m_last = std::max(m_last, key);
            const bool taken = key <= count && m_found.size() < kMostInstruments;
            if (!taken || tab >= m_tabs) ++m_lost;
            if (!taken) continue;
            m_found.push_back({kind,
                               tab,
                               key,
                               number(m_file, section, "LEFT"),
                               number(m_file, section, "TOP"),
                               wholeNumber(m_file.value(section, QStringLiteral("MEM"), QStringLiteral("0"),
                                                        kNumberBuffer)),
                               {}});
            readList(section, m_found.back());
        }
    }

    void readList(const QString& section, ProfileInstrument& instrument) {
        // What the section holds is its own; what is declared beyond that all of them share.
        const auto held = static_cast<qsizetype>(m_file.numberedKeys(section, 0, instrument.highest).size());
        const qsizetype most = std::min(m_items, held + m_spare);
        const qsizetype declared = std::max<qsizetype>(qsizetype{instrument.highest} + 1, 0);
        const qsizetype count = std::min(declared, most);
        if (std::min(count, held) < declared) ++m_incomplete;
        m_items -= count;
        m_spare -= std::max<qsizetype>(0, count - held);
        instrument.list = readItems(m_file, section, count);
        instrument.highest = static_cast<int>(count) - 1;
    }

    const IniFile& m_file;
    int m_tabs;
    int m_last = 0; ///< the highest number of the kind
    int m_lost = 0;
    int m_incomplete = 0;
    qsizetype m_items;
    qsizetype m_spare = kSpareItems; ///< how many more are believed
    std::vector<ProfileInstrument> m_found;
};

/// Tabs that the document counts beyond those that are taken. One without any instrument may have been cut
/// among its captions, and then those are counted; else a tab needs none.
int lostTabs(const IniFile& file, const Profile& profile) {
    const auto most = static_cast<int>(profile.captions.size());
    const int declared = declaredTabs(file);
    if (!profile.instruments.empty() || declared > most) return std::max(0, declared - most);
    return most - static_cast<int>(file.numberedKeys(kCaptionsSection, 0, most - 1).size());
}

QString damageInWords(int tabs, int instruments, int lists) {
    QStringList words;
    if (tabs > 0) words << QStringLiteral("tabs that it counts are missing: %1").arg(tabs);
    if (instruments > 0) words << QStringLiteral("%1 of its instruments cannot be shown").arg(instruments);
    if (lists > 0) words << QStringLiteral("the settings of %1 instruments are incomplete").arg(lists);
    return words.join(QStringLiteral(", "));
}

} // namespace

void WriteProfileLayout(const Profile& profile, IniFile& file) {
    if (profile.width) file.setValue(kTabsSection, QStringLiteral("WIDTH"), twipsText(*profile.width));
    if (profile.height) file.setValue(kTabsSection, QStringLiteral("HEIGHT"), twipsText(*profile.height));
    file.setValue(kTabsSection, QStringLiteral("PIC"), QString::number(profile.captions.size()));
    file.setValue(kSystemSection, QStringLiteral("PORT"), profile.port);
    for (qsizetype tab = 0; tab < profile.captions.size(); ++tab)
        file.setValue(kCaptionsSection, QString::number(tab), profile.captions.at(tab));
    std::array<int, kInstrumentKinds.size()> counts{};
    for (const ProfileInstrument& instrument : profile.instruments) {
        const int count = ++counts.at(static_cast<std::size_t>(instrument.kind));
        const QString section = ownSection(instrument);
        file.setValue(pageSection(instrument.kind, instrument.tab), QString::number(count), section);
        file.setValue(section, QStringLiteral("LEFT"), twipsText(instrument.left));
        file.setValue(section, QStringLiteral("TOP"), twipsText(instrument.top));
    }
    for (std::size_t kind = 0; kind < counts.size(); ++kind)
        file.setValue(kTabsSection, QLatin1String(kInstrumentKinds.at(kind).className),
                      QString::number(counts.at(kind)));
}

void WriteProfileInstruments(const Profile& profile, IniFile& file) {
    for (const ProfileInstrument& instrument : profile.instruments) {
        const QString section = ownSection(instrument);
        file.setValue(section, QStringLiteral("MEM"), QString::number(instrument.highest));
        writeItems(file, section, instrument.list);
    }
}

bool isProfile(const IniFile& file) {
    const QString sections[] = {kTabsSection, kCaptionsSection, kSystemSection};
    return std::any_of(std::begin(sections), std::end(sections),
                       [&](const QString& section) { return file.hasKeys(section); });
}

Profile readProfile(const IniFile& file) {
    Profile profile;
    const KindTabs pages = tabsOfKinds(file);
    profile.width = sizeOf(file, "WIDTH", "0");
    profile.height = sizeOf(file, "HEIGHT", "");
    profile.captions = readCaptions(file, pages);
    profile.port = file.value(kSystemSection, QStringLiteral("PORT"), QString(), kPortBuffer);
    InstrumentReader reader(file, static_cast<int>(profile.captions.size()));
    profile.instruments = reader.read(pages);
    profile.damage = damageInWords(lostTabs(file, profile), reader.lost(), reader.incomplete());
    return profile;
}

} // namespace vistor
