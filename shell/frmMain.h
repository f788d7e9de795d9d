// The main window: menus, toolbar, the one timer, and the dashboard as its one child window. In: the person's
// commands. Out: start-up, ticks and shutdown in their order.
#pragma once

#include "acquisition/AcquisitionTick.h"

#include <QHash>
#include <QMainWindow>
#include <QPointer>
#include <QTimer>

class QLabel;
class QMenu;

namespace vistor {

class frmHelp;
enum class HelpCommand;
class frmInterface;
class Instrument;
class NoticeLine;
class frmProperties;

class frmMain : public QMainWindow {
    Q_OBJECT

public:
    frmMain();
    ~frmMain() override;

    /// Start-up, in its order, up to the painted window in edit mode with the layout that the person wants.
    /// A profile that is given is opened without a question. False when the program must end.
    bool MDIForm_Load(const QString& profile = {});

    frmInterface& dashboard() { return *m_dashboard; }
    /// The entry, menu or pop-up menu of that name; null where there is none.
    QAction* command(const QString& name) const { return m_commands.value(name); }
    QAction* button(int number) const { return m_buttons.value(number); }

    QPointer<Instrument> curObject; ///< on which the instruments' pop-up menu was opened
    QTimer Timer1;

    void Timer1_Timer();
    void mnuNew_Click();
    void mnuClearCurrentTab_Click();
    void mnuClearAllTabs_Click();
    void mnuCloseLastTab_Click();
    void mnuCloseAllTabs_Click();
    void mnuLoadVarInfo_Click();
    void mnuSaveVarInfo_Click();
    void mnuRestoreDefaultVar_Click();
    /// Lists the copies that were kept, and loads the one that the person opens.
    void recoverWork();
    void clearRecentFiles();
    void mnuVXHelp_Click();
    void mnuHelpContents_Click();
    void mnuAbout_Click();
    /// Opens the window of the car's numbers, modally.
    void editCar();
    /// Opens the list of the newest notices.
    void showNotices();
    /// Shows or hides the properties window, as the entry is checked now.
    void mnuShowPropertiesWindow_Click();

    /// Stores what there is to store and lets the source go, without a question: a signal ends the program.
    void endBySignal();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void makeMenus();
    void makeMenu(const struct MenuHead& head);
    void makeToolbar();
    void makeStatusBar();
    void connectDashboard();
    void showDashboard();
    bool shutDown();
    void replaceVariables(const QString& path);
    void recoverVariables(const struct RecoveryCopy& copy);
    void fillRecent(QMenu* menu);
    void showRecent(QMenu* menu);
    void openRecent(const QString& path);
    void keepRecent(const QStringList& files);

    void openHelp(HelpCommand command);
    void showProperties(bool shown);
    void feedProperties(Instrument* instrument, const QStringList& labels, const QStringList& values);

    void setCommandEnabled(const QString& name, bool enabled);
    void setButtonEnabled(int number, bool enabled);
    void openMenu(const QString& name, const QPoint& place);
    void openInstrumentMenu(Instrument* instrument, const QPoint& place);
    void setTimer(int milliseconds);
    void showStatus();
    void renewStatus();

    frmInterface* m_dashboard;
    NoticeLine* m_notices;
    frmHelp* m_help = nullptr; ///< made when it is first asked for
    QString m_helpFolder;
    frmProperties* m_properties = nullptr; ///< made when it is first wanted
    AcquisitionTick m_tick;
    RefreshFunction m_refresh;
    QHash<QString, QAction*> m_commands;
    QHash<QString, QMenu*> m_menus;
    QHash<int, QAction*> m_buttons;
    QLabel* m_source = nullptr;
    QLabel* m_time = nullptr;
    QLabel* m_rate = nullptr;
    QLabel* m_age = nullptr;
    QLabel* m_mode = nullptr;
    std::uint64_t m_samples = 0; ///< decoded when the status was last shown
    double m_statusTime = 0;     ///< steadySeconds() at that moment
    bool m_loading = false;      ///< start-up lets events run before it is done
    bool m_closeWanted = false;  ///< and the person closed the window in one of them
    bool m_loaded = false;
};

/// How the stream is doing in words for the status bar: when its last message came, or why none comes. `now`:
/// steadySeconds().
QString streamInWords(const StreamState& state, double now);

/// A data source's descriptor in words for the status bar.
QString sourceInWords(const QString& descriptor);

} // namespace vistor
