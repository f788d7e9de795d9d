// The Profile, a saved dashboard, as it stands in a file: tabs, window size, data source, instruments with
// their lists. In and out: plain data on the one side, an initialisation file on the other; no window.
#pragma once

#include "instruments/InstrumentKinds.h"
#include "platform/IniFile.h"

#include <QStringList>

#include <optional>
#include <vector>

namespace vistor {

struct ProfileInstrument {
    Kind kind = Kind::AngularGauge;
    int tab = 0;
    int index = 0;   ///< its number in its kind's array; of one that was read, its key
    double left = 0; ///< twips, on its page
    double top = 0;
    int highest = 0;  ///< index of the last item, as the instrument gives it
    QStringList list; ///< its saved state
};

struct Profile {
    std::optional<double> width; ///< of the window in twips; none leaves it as it is
    std::optional<double> height;
    QStringList captions; ///< one for each tab
    QString port;         ///< the data source's descriptor
    std::vector<ProfileInstrument> instruments;
    QString damage; ///< what its file tells of and does not hold, in words; empty when all is there
};

/// Pages are made on a file's word alone up to here, and beyond it as far as the file has captions or
/// instruments for them.
inline constexpr int kTabsUnseen = 256;
inline constexpr int kMostTabs = 1024;
inline constexpr int kMostInstruments = 4096;

/// Writes all but the lists. The document should be an empty one: nothing is taken out of it.
void WriteProfileLayout(const Profile& profile, IniFile& file);
/// Writes the lists into the sections that WriteProfileLayout made.
void WriteProfileInstruments(const Profile& profile, IniFile& file);

/// What a file says, the instruments by kind, tab and key. Any document is a Profile: what is missing has its
/// default, and counts are believed as far as the document has something for them. Counts that it has nothing
/// for, lists that end early and instruments that no tab shows are its damage.
Profile readProfile(const IniFile& file);

/// Whether a document has any of the sections that every Profile has.
bool isProfile(const IniFile& file);

} // namespace vistor
