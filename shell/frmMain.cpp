#include "shell/frmMain.h"

#include "acquisition/DataSource.h"
#include "dashboard/Hourglass.h"
#include "dashboard/frmInterface.h"
#include "instruments/Instrument.h"
#include "instruments/frmProperties.h"
#include "maths/ConvertUnits.h"
#include "maths/FileSupportFunctions.h"
#include "platform/Events.h"
#include "platform/Folders.h"
#include "platform/Prompts.h"
#include "platform/Scratch.h"
#include "platform/WholeFile.h"
#include "shell/CarDialog.h"
#include "shell/NoticeLine.h"
#include "shell/RecentFiles.h"
#include "shell/Startup.h"
#include "shell/frmHelp.h"
#include "shell/frmStartSplash.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QScopedValueRollback>
#include <QStatusBar>

namespace vistor {
namespace {

constexpr qint64 kLargestIcon = 16 << 20; ///< bytes
constexpr QSize kRestoredSize(1000, 560); ///< of the dashboard's window where it is not maximised

bool isYes(const char* question) {
    return MsgBox(QLatin1String(question), Icon::Notice, Buttons::YesNo) == Answer::Yes;
}

} // namespace

frmMain::frmMain() : m_dashboard(new frmInterface), m_notices(new NoticeLine(this)) {
    setObjectName(QStringLiteral("frmMain"));
    makeMenus();
    makeToolbar();
    makeStatusBar();
    connectDashboard();
    Timer1.setTimerType(Qt::PreciseTimer);
    connect(&Timer1, &QTimer::timeout, this, &frmMain::Timer1_Timer);
    m_refresh = [this](const QString& name, float value) { m_dashboard->refreshControls(name, value); };
}

frmMain::~frmMain() = default;

void frmMain::connectDashboard() {
    auto* area = new QMdiArea(this);
    area->setBackground(palette().color(QPalette::Window));
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setCentralWidget(area);
    // Without a button to close it: only the main window's end unloads the dashboard.
    area->addSubWindow(m_dashboard, Qt::SubWindow | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                        Qt::WindowMinMaxButtonsHint);
    connect(m_dashboard, &frmInterface::commandEnabled, this, &frmMain::setCommandEnabled);
    connect(m_dashboard, &frmInterface::buttonEnabled, this, &frmMain::setButtonEnabled);
    connect(m_dashboard, &frmInterface::commandWanted, this,
            [this](const QString& name) { command(name)->trigger(); });
    connect(m_dashboard, &frmInterface::menuWanted, this, &frmMain::openMenu);
    connect(m_dashboard, &frmInterface::instrumentMenuWanted, this, &frmMain::openInstrumentMenu);
    connect(m_dashboard, &frmInterface::propertiesShown, this, &frmMain::feedProperties);
    connect(m_dashboard, &frmInterface::propertiesReleased, this, [this] {
        if (m_properties) m_properties->ClearAll();
    });
    connect(m_dashboard, &frmInterface::propertiesWindowWanted, this, [this](bool shown) {
        if (command(QStringLiteral("mnuShowPropertiesWindow"))->isChecked()) showProperties(shown);
    });
    connect(m_dashboard, &frmInterface::timerWanted, this, &frmMain::setTimer);
    connect(m_dashboard, &frmInterface::sourceChanged, this, &frmMain::renewStatus);
    connect(m_dashboard, &frmInterface::unloaded, this, &frmMain::close);
    connect(m_dashboard, &frmInterface::profileOpened, this, [this](const QString& path) {
        m_dashboard->LastProfilePath.clear();
        keepRecent(withRecentFile(readRecentFiles(SettingsPath), path));
    });
}

bool frmMain::MDIForm_Load(const QString& profile) {
    const Hourglass hourglass;
    const QScopedValueRollback loading(m_loading, true);
    findWorkingFolder();
    QPixmap icon;
    icon.loadFromData(readWholeFile(programFolder() + QStringLiteral("User.ico"), kLargestIcon).bytes);
    if (!icon.isNull()) setWindowIcon(icon);
    setWindowTitle(mainWindowTitle());
    if (!findDefinitionFile()) return false;
    loadDefinitions();
    readDecimalSeparator(); // before any text is read as a number
    readIgnitionPulses();
    frmStartSplash splash;
    m_helpFolder = deliveredFolder() + QStringLiteral("help/");
    splash.show();
    splash.raise();
    DoEvents();
    showDashboard();
    const QString last = lastLayout();
    m_dashboard->LastProfilePath = last;
    setTimer(kTickMilliseconds);
    deleteForsakenScratch(WorkingFolder);
    splash.close();
    pumpEvents();
    m_dashboard->GenerateIcons();
    show();
    pumpEvents();
    const QString wanted = profile.isEmpty() ? offerLayout(last) : profile;
    if (!wanted.isEmpty()) m_dashboard->loadLastFile(wanted);
    readCarConstants();
    createFormulaEvaluators();
    tellMissingCarNumbers();
    m_dashboard->tellOfLostWork();
    m_loaded = true;
    if (m_closeWanted) QTimer::singleShot(0, this, &QWidget::close);
    return true;
}

void frmMain::showDashboard() {
    m_dashboard->Form_Load();
    m_dashboard->parentWidget()->resize(kRestoredSize);
    m_dashboard->parentWidget()->showMaximized();
    m_dashboard->ArrangeSplitter();
    showStatus();
}

void frmMain::Timer1_Timer() {
    m_tick.run(m_refresh);
    showStatus();
}

void frmMain::setTimer(int milliseconds) {
    Timer1.setInterval(milliseconds);
    if (milliseconds > 0)
        Timer1.start();
    else
        Timer1.stop();
    m_statusTime = 0;
    showStatus();
}

void frmMain::closeEvent(QCloseEvent* event) {
    m_closeWanted = m_loading;
    event->setAccepted(!m_loading && shutDown());
}

bool frmMain::shutDown() {
    if (!m_loaded) return true;
    const bool wasPlaying = PlayMode;
    PlayMode = false;
    setTimer(0);
    CloseDataSource();
    if (!m_dashboard->Form_Unload()) {
        // The person stays: the commands must be those of the mode that the program is in now.
        if (wasPlaying) m_dashboard->mnuEditMode_Click();
        return false;
    }
    if (m_properties) m_properties->Form_Unload();
    showProperties(false);
    deleteScratchFolder();
    m_loaded = false;
    return true;
}

void frmMain::mnuNew_Click() {
    if (m_dashboard->askToSave()) m_dashboard->mnuNew_Click();
}

void frmMain::mnuClearCurrentTab_Click() {
    m_dashboard->mnuClearPane_Click(); // asks the same
}

void frmMain::mnuClearAllTabs_Click() {
    if (isYes("Do you want to clear all tab(s) ?")) m_dashboard->mnuClearAllTabs_Click();
}

void frmMain::mnuCloseLastTab_Click() {
    m_dashboard->mnuClosePane_Click(); // asks the same
}

void frmMain::mnuCloseAllTabs_Click() {
    if (isYes("Do you want to close all tab(s) ?")) m_dashboard->mnuCloseAllTabs_Click();
}

void frmMain::openHelp(HelpCommand command) {
    if (!m_help) m_help = new frmHelp(this);
    m_help->open(m_helpFolder, command);
}

void frmMain::editCar() {
    CarDialog(this).exec();
}

void frmMain::mnuVXHelp_Click() {
    openHelp(HelpCommand::Index);
}

void frmMain::mnuHelpContents_Click() {
    openHelp(HelpCommand::Contents);
}

void frmMain::mnuAbout_Click() {
    auto* about = new frmStartSplash(this);
    about->setAttribute(Qt::WA_DeleteOnClose);
    about->open(); // without a loop of its own, which would hold up whatever is under way
}

void frmMain::showNotices() {
    m_notices->openList();
}

void frmMain::openMenu(const QString& name, const QPoint& place) {
    if (QMenu* menu = m_menus.value(name)) menu->popup(place);
}

void frmMain::openInstrumentMenu(Instrument* instrument, const QPoint& place) {
    curObject = instrument;
    const bool hasPins = instrument->kind() != Kind::TextTag;
    command(QStringLiteral("mnuTag_C"))->setChecked(instrument->tagIsOn());
    for (const char* name : {"mnuTag_C", "mnuVariables_C"}) command(QLatin1String(name))->setVisible(hasPins);
    openMenu(QStringLiteral("mnuDropDown3"), place);
}

void frmMain::setCommandEnabled(const QString& name, bool enabled) {
    if (QAction* action = command(name)) action->setEnabled(enabled);
}

} // namespace vistor
