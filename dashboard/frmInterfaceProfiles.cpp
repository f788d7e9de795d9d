// The open profile: new, open, save, save as, and the layout's way into a file and out of one.
#include "dashboard/Hourglass.h"
#include "dashboard/ProfileFile.h"
#include "dashboard/Recovery.h"
#include "dashboard/frmInterface.h"
#include "instruments/Instrument.h"
#include "platform/Events.h"
#include "platform/Twips.h"
#include "platform/WholeFile.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QScopedValueRollback>

namespace vistor {

bool frmInterface::askToSave() {
    if (m_loadingProfile) return false; // nobody could save half of it
    const Answer answer =
        MsgBox(QStringLiteral("Do you want to save changes ?"), Icon::Question, Buttons::YesNoCancel);
    if (answer == Answer::Yes) mnuSaveConfig_Click();
    return answer != Answer::Cancel;
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
    loadAskingFirst([this] { LoadVis(); });
}

void frmInterface::LoadVis() {
    m_fileDialog.extension = QStringLiteral("vis");
    const auto path = askForFile(OpenFile, "Load Profile...");
    HasProfilePath = path.has_value();
    if (!path) return setWindowTitle(QStringLiteral("Untitled"));
    openProfile(*path);
}

void frmInterface::openProfile(const QString& path) {
    loadLastFile(path);
    if (HasProfilePath) ProfileChanged = true;
}

void frmInterface::loadLastFile(const QString& path) {
    HasProfilePath = true;
    ProfilePath = path;
    const bool wasEmpty = isLayoutEmpty();
    LoadProfileFile(path);
    if (!HasProfilePath) return; // an event in the middle began a new one
    setWindowTitle(path);
    if (wasEmpty) layoutSaved();
    Q_EMIT profileOpened(path);
}

void frmInterface::mnuSaveConfig_Click() {
    if (m_loadingProfile) return; // half of what is being loaded is no profile
    if (!HasProfilePath) ProfilePath = askForFile(SaveFile, "Save Profile...").value_or(QString());
    saveProfile(ProfilePath);
}

void frmInterface::mnuSaveAs_Click() {
    if (m_loadingProfile) return;
    const auto path = askForFile(SaveFile, "Save Profile As...");
    if (!path || path->isEmpty()) return;
    ProfilePath = *path;
    saveProfile(*path);
}

/// One dialog for all: the default extension that opening sets stays for saving.
std::optional<QString> frmInterface::askForFile(std::optional<QString> (*ask)(const FileRequest&),
                                                const char* title) {
    m_fileDialog.title = QLatin1String(title);
    m_fileDialog.filter = QStringLiteral("vis Files|*.vis");
    return ask(m_fileDialog);
}

/// A file that cannot be written is passed over; then the old one stands.
void frmInterface::saveProfile(const QString& path) {
    if (path.isEmpty()) return;
    const Hourglass hourglass;
    IniFile file;
    const Profile profile = currentProfile();
    WriteProfileLayout(profile, file);
    WriteProfileInstruments(profile, file);
    writeWholeFile(path, file.toBytes());
    HasProfilePath = true;
    setWindowTitle(path);
    ProfileChanged = false;
    layoutSaved();
    Q_EMIT profileOpened(path);
}

/// What is sized when the dashboard's size is asked for: its frame inside the main window.
QWidget& frmInterface::outerWindow() {
    return parentWidget() ? *parentWidget() : *this;
}

Profile frmInterface::currentProfile() {
    Profile profile;
    profile.width = toTwips(outerWindow().width());
    profile.height = toTwips(outerWindow().height());
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
    const Hourglass hourglass;
    placeProfile(readProfile(IniFile::load(path)));
}

/// On top of what stands.
void frmInterface::placeProfile(const Profile& profile) {
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
    if (outer.isMaximized()) return;
    outer.resize(profile.width ? toPixels(*profile.width) : outer.width(),
                 profile.height ? toPixels(*profile.height) : outer.height());
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
