// The open profile: new, open, save, save as, and the layout's way into a file and out of one.
#include "dashboard/Hourglass.h"
#include "dashboard/ProfileReading.h"
#include "dashboard/Recovery.h"
#include "dashboard/frmInterface.h"
#include "instruments/Instrument.h"
#include "platform/Events.h"
#include "platform/Notices.h"
#include "platform/Twips.h"
#include "platform/WholeFile.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QScopedValueRollback>

namespace vistor {
namespace {

/// Tells a person what is wrong with a file. False when there is nothing to load.
bool isThere(const QString& path, const ProfileReading& reading) {
    if (!reading.problem.isEmpty())
        notify(QStringLiteral("%1 was not loaded: %2. Nothing has changed.").arg(path, reading.problem));
    else if (!reading.profile.damage.isEmpty())
        notify(QStringLiteral("%1 is damaged: %2. What is good is shown; saving asks for a name, so that the "
                              "file stays as it is.")
                   .arg(path, reading.profile.damage));
    return reading.problem.isEmpty();
}

} // namespace

bool frmInterface::askToSave() {
    if (m_loadingProfile) return false; // nobody could save half of it
    const Answer answer =
        MsgBox(QStringLiteral("Do you want to save changes ?"), Icon::Question, Buttons::YesNoCancel);
    return answer == Answer::Yes ? save() : answer == Answer::No;
}

void frmInterface::mnuNew_Click() {
    keepLayout(RecoveryReason::NewLayout);
    closeAllTabs();
    HasProfilePath = false;
    ProfilePath.clear();
    layoutSaved();
    setWindowTitle(QStringLiteral("Untitled"));
}

void frmInterface::mnuLoadConfig_Click() {
    if (m_loadingProfile) return;
    if (instruments.placedCount() == 0) return LoadVis();
    // The file first: without one that can be read, what stands must not be cleared.
    loadAskingFirst([this](bool clear) {
        if (const auto path = askForLoad()) ProfileChanged |= openProfile(*path, clear);
    });
}

void frmInterface::LoadVis() {
    const auto path = askForLoad();
    if (path) {
        ProfileChanged |= openProfile(*path, false);
    } else {
        HasProfilePath = false;
        setWindowTitle(QStringLiteral("Untitled"));
    }
}

void frmInterface::loadLastFile(const QString& path) {
    openProfile(path, false);
}

bool frmInterface::openProfile(const QString& path, bool clear) {
    const ProfileReading reading = readProfileFile(path);
    if (!isThere(path, reading)) return false;
    keepLayout(RecoveryReason::LoadOver);
    if (clear) mnuNew_Click();
    const bool wasEmpty = isLayoutEmpty();
    HasProfilePath = true;
    ProfilePath = path;
    takeProfile(reading.profile);
    if (!HasProfilePath) return false; // an event in the middle began a new one
    HasProfilePath = reading.profile.damage.isEmpty();
    setWindowTitle(HasProfilePath ? path : QStringLiteral("Untitled"));
    if (wasEmpty && HasProfilePath) layoutSaved();
    Q_EMIT profileOpened(path);
    return true;
}

void frmInterface::mnuSaveConfig_Click() {
    save();
}

bool frmInterface::save() {
    if (m_loadingProfile) return false; // half of what is being loaded is no profile
    if (HasProfilePath) return saveProfile(ProfilePath);
    const auto path = askForFile(SaveFile, "Save Profile...");
    if (!path) ProfilePath.clear();
    return path && saveProfile(*path);
}

void frmInterface::mnuSaveAs_Click() {
    if (m_loadingProfile) return;
    if (const auto path = askForFile(SaveFile, "Save Profile As...")) saveProfile(*path);
}

std::optional<QString> frmInterface::askForLoad() {
    m_fileDialog.extension = QStringLiteral("vis");
    return askForFile(OpenFile, "Load Profile...");
}

/// One dialog for all: the default extension that opening sets stays for saving.
std::optional<QString> frmInterface::askForFile(std::optional<QString> (*ask)(const FileRequest&),
                                                const char* title) {
    m_fileDialog.title = QLatin1String(title);
    m_fileDialog.filter = QStringLiteral("vis Files|*.vis");
    return ask(m_fileDialog);
}

bool frmInterface::saveProfile(const QString& path) {
    if (path.isEmpty()) return false;
    const Hourglass hourglass;
    IniFile file;
    const Profile profile = currentProfile();
    WriteProfileLayout(profile, file);
    WriteProfileInstruments(profile, file);
    const QString problem = writeWholeFile(path, file.toBytes());
    if (!problem.isEmpty()) {
        notify(QStringLiteral("The layout could not be saved to %1: %2. It is still unsaved; save it under "
                              "another name or in another folder.")
                   .arg(path, problem));
        return false;
    }
    HasProfilePath = true;
    ProfilePath = path;
    setWindowTitle(path);
    ProfileChanged = false;
    layoutSaved();
    Q_EMIT profileOpened(path);
    return true;
}

/// What is sized when the dashboard's size is asked for: its frame inside the main window.
QWidget& frmInterface::outerWindow() {
    return parentWidget() ? *parentWidget() : *this;
}

Profile frmInterface::currentProfile() {
    Profile profile;
    const QSize size = outerWindow().isMinimized() ? m_outerSize : outerWindow().size();
    profile.width = toTwips(size.width());
    profile.height = toTwips(size.height());
    profile.captions = mainTab->captions();
    profile.port = DataSourceDescriptor;
    for (const InstrumentElement& element : instruments.all()) {
        const Page* page = pageOf(*element.instrument);
        if (element.number == 0 || !page) continue;
        ProfileInstrument saved{element.kind,
                                page->number(),
                                element.number,
                                element.instrument->leftTwips(),
                                element.instrument->topTwips(),
                                0,
                                {}};
        saved.highest = element.instrument->Serialise(saved.list);
        profile.instruments.push_back(std::move(saved));
    }
    return profile;
}

void frmInterface::LoadProfileFile(const QString& path) {
    const ProfileReading reading = readProfileFile(path);
    if (isThere(path, reading)) takeProfile(reading.profile);
}

void frmInterface::takeProfile(const Profile& profile) {
    const Hourglass hourglass;
    const QScopedValueRollback loading(m_loadingProfile, true);
    takeSize(profile);
    takeCaptions(profile.captions);
    if (ShowGrid == 1 && !PlayMode) DrawGrid();
    DataSourceDescriptor = profile.port;
    Q_EMIT sourceChanged();
    if (placeInstruments(profile.instruments)) mainTab->Tab(0);
}

void frmInterface::takeSize(const Profile& profile) {
    QWidget& outer = outerWindow();
    if (outer.isMaximized() || outer.isMinimized()) return;
    const QSize wanted(profile.width ? toPixels(*profile.width) : outer.width(),
                       profile.height ? toPixels(*profile.height) : outer.height());
    outer.resize(wanted.expandedTo(outer.minimumSizeHint())); // a frame has no other limit
}

void frmInterface::takeCaptions(const QStringList& captions) {
    for (int tab = 0; tab < captions.size(); ++tab) {
        if (tab < mainTab->Tabs())
            mainTab->TabCaption(tab, captions.at(tab));
        else
            appendTab(captions.at(tab));
    }
}

/// False when the pages were cleared, or the window unloaded, by an event in between.
bool frmInterface::placeInstruments(const std::vector<ProfileInstrument>& saved) {
    const int clearings = m_clearings;
    const ProfileInstrument* before = nullptr;
    for (const ProfileInstrument& next : saved) {
        if (next.tab >= mainTab->Tabs()) continue;
        if (!before || before->kind != next.kind || before->tab != next.tab) mainTab->Tab(next.tab);
        before = &next;
        DoEvents();
        if (clearings != m_clearings) return false;
        placeInstrument(next);
    }
    return true;
}

void frmInterface::placeInstrument(const ProfileInstrument& saved) {
    if (static_cast<std::size_t>(CurrentTab) >= pic.size()) return;
    // The page in front takes it: a tab that is clicked in the middle of a load takes what is still to come.
    Instrument* placed = newInstrument(saved.kind, pic[static_cast<std::size_t>(CurrentTab)]);
    placed->moveTwips(saved.left, saved.top);
    placed->Deserialise(saved.list);
    giveState(*placed);
    placed->show();
}

} // namespace vistor
