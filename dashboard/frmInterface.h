// The dashboard window: pages with instruments, palette, variable tree, and the change between edit and play.
// In: the person's commands, the settings file, values from the tick. Out: values on instruments; to the main
// window signals only.
#pragma once

#include "dashboard/ControlManager.h"
#include "dashboard/InstrumentArrays.h"
#include "dashboard/Page.h"
#include "dashboard/PlacingRules.h"
#include "dashboard/SSTab.h"
#include "dashboard/Subscriptions.h"
#include "dashboard/VXSPLITTER.h"
#include "platform/Prompts.h"

#include <QPointer>
#include <QStringList>
#include <QTimer>

#include <functional>
#include <memory>

class QLineEdit;
class QListWidget;
class QTreeWidget;

namespace vistor {

class IniFile;
class Palette;
class RecoveryKeeper;
enum class RecoveryReason;
class VariableTreeView;
struct RecoveryCopy;
struct Profile;
struct ProfileInstrument;
struct TreeLine;

class frmInterface : public QWidget {
    Q_OBJECT

public:
    explicit frmInterface(QWidget* parent = nullptr);
    ~frmInterface() override;

    // The state of the open profile and of its editing.
    bool ProfileChanged = false;
    std::int16_t GridSize = 0; ///< twips
    std::uint8_t SnapToGrid = 0;
    std::uint8_t ShowGrid = 0;
    float PopupX = 0; ///< twips; where a page was last right-clicked
    float PopupY = 0;
    std::uint8_t ClipboardIsCopy = 0;   ///< 1 after a copy, 0 after a cut
    QPointer<Instrument> CutInstrument; ///< goes away with the paste of a cut
    std::int16_t ClipboardKind = 0;     ///< 1 to 9 in the order of the kinds, 0: empty
    QStringList ClipboardImage;         ///< the instrument's list
    bool HasProfilePath = false;
    QString ProfilePath;
    QString LastProfilePath; ///< of the run before; empty once this run has opened or saved a layout
    float SavedLeft = 0;     ///< twips; of an instrument while its picture is taken for the library
    float SavedTop = 0;
    std::int32_t CurBackColour = 0; ///< handed to every page and instrument
    std::int32_t CurLabelColour = 0;
    std::int16_t CurrentTab = 0; ///< follows the tab control's click
    SubscriptionTable Subscriptions = SubscriptionTable(1);
    QString DragVariableName; ///< PhysicalName of the variable that was last acted on in the tree

    // The children, by their names.
    SSTab* mainTab;
    std::vector<Page*> pic; ///< page n lies inside mainTab; page 0 is always there
    QWidget* VarPic;
    VariableTreeView* VarTree;
    vistor::VXSPLITTER* VXSPLITTER;
    QTreeWidget* trvControl;
    QListWidget* lvControl;
    ControlManager* ControlManager1;
    InstrumentArrays instruments;

    /// The window's load: reads the settings and brings everything up in edit mode.
    void Form_Load();
    /// The window's unload: asks about unsaved changes and stores the layout. False when the person
    /// cancelled, and then nothing happened. Once it is done, a further call does nothing.
    bool Form_Unload();
    /// Leaves out the panes that a hand-edited settings file hides. Once, when the window stands.
    void ArrangeSplitter();

    void UserControlChanged() { ProfileChanged = true; }
    /// Puts a new instrument on a page, in the state that the dashboard is in, hidden and at its default
    /// size.
    Instrument* addInstrument(Kind kind, Page* page);
    void setCurBackColour(std::int32_t back, std::int32_t label);
    void TagsOn(std::uint8_t on);
    void initGrid(std::int16_t size, std::uint8_t show, std::uint8_t snap);
    void DrawGrid();
    void ClearGrid();
    /// To the grid line on the left of and above the point, in twips of the current page.
    void SnapPoint(float& x, float& y) const;

    // A new instrument on the page in front, x and y in twips.
    Instrument* NewVXAGAUGE(float x, float y);
    Instrument* NewVXALPHANUME(float x, float y);
    Instrument* NewVXLED(float x, float y);
    Instrument* NewVXLGAUGE(float x, float y);
    Instrument* NewVXODO(float x, float y);
    Instrument* NewVXPCTBAR(float x, float y);
    Instrument* NewVXSTRIP(float x, float y);
    Instrument* NewVXXYGRAPH(float x, float y);
    Instrument* NewVXTEXTTAG(float x, float y);
    // The same at the page's top left corner.
    void mnuVXAGAUGE_Click();
    void mnuVXAlphaNume_Click();
    void mnuVXLED_Click();
    void mnuVXLGAUGE_Click();
    void mnuVXODO_Click();
    void mnuVXPCTBAR_Click();
    void mnuVXSTRIP_Click();
    void mnuVXXYGRAPH_Click();
    void mnuVXTEXTTAG_Click();
    // And where a page was last right-clicked.
    void mnuDDVXAgauge_Click();
    void mnuDDVXAlphaNume_Click();
    void mnuDDVXLED_Click();
    void mnuDDVXLGAUGE_Click();
    void mnuDDVXODO_Click();
    void mnuDDVXPCTBAR_Click();
    void mnuDDVXSTRIP_Click();
    void mnuDDVXXYGRAPH_Click();
    void mnuDDVXTEXTTAG_Click();
    /// The drop of a palette entry on a page, x and y in twips. Another source does nothing.
    void pic_DragDrop(Page* page, const QObject* source, float x, float y);

    /// The instrument that was last clicked on the page in front, until the page itself is; null for none.
    Instrument* clickedInstrument() const;
    void mnuCut_Click();
    void mnuCopy_Click();
    void mnuPaste_Click();
    void mnuDelete_Click();
    void mnuProperties_Click();
    void mnuOptions_Click();

    /// Makes the bitmaps of the palette's types anew and shows them.
    void GenerateIcons();

    void RebuildSubscriptions();
    /// Hands a variable's new value to the instruments of the page in front. Only the tick calls it.
    void refreshControls(const QString& name, float value);

    /// Fills the variable tree from the working copy of the table; after a load, a restore or an edit.
    void RegenerateVariableTree();
    /// The same after taking the working copy anew from the table.
    void takeVariableTable();

    void mnuPlayMode_Click();
    void mnuEditMode_Click();
    void mnuSelectDataSource_Click();
    void mnuExit_Click();
    void Toolbar_ButtonClick(int button);

    /// Asks whether to save changes, and saves on yes. False when the person cancelled, here or in the file
    /// dialog, or the file could not be written: what asked must then stop.
    bool askToSave();
    void mnuNew_Click();
    void mnuLoadConfig_Click();
    void mnuSaveConfig_Click();
    void mnuSaveAs_Click();
    /// Asks for a file and loads it. Cancelled, it detaches what is open from its file.
    void LoadVis();
    /// Opens a file on top of what stands. One that cannot be read is told and changes nothing; of a damaged
    /// one what is good is shown, and the next save asks for a name.
    void loadLastFile(const QString& path);
    /// Reads a file on top of what stands and leaves the open profile's path alone. When an event in the
    /// middle clears the pages or unloads the window, the rest is left out.
    void LoadProfileFile(const QString& path);
    /// Loads a file as LoadVis does once it is chosen, after asking what is to come of the layout that
    /// stands.
    void openRecent(const QString& path);

    // What is kept in case it is wanted again (dashboard/Recovery.h).
    /// Keeps the layout if it is changed, and the table if it was changed since the last copy. The minute's
    /// timer calls it; in play mode it does nothing.
    void keepEveryMinute();
    /// Keeps the variable table, unless it is the delivered one.
    void keepTable(RecoveryReason reason);
    /// Tells a person who begins that an earlier run left work behind.
    void tellOfLostWork();
    /// Loads a copy as an unsaved layout without a file, after the same question.
    void openRecovered(const RecoveryCopy& copy);
    /// Stores the settings, and a copy of what is not saved of which the next start tells: somebody ends the
    /// program. Nothing is asked; the program may go on.
    void storeForEnd();

    void mnuNewTab_Click();
    void mnuNewPane_Click();
    void mnuRename_Click();
    void mnuClearCurrentTab_Click();
    void mnuClearPane_Click();
    void mnuClearAllTabs_Click();
    void mnuCloseLastTab_Click();
    void mnuClosePane_Click();
    void mnuCloseAllTabs_Click();

Q_SIGNALS:
    /// A menu, menu entry or toolbar button of the main window is to be enabled or disabled.
    void commandEnabled(const QString& name, bool enabled);
    void buttonEnabled(int number, bool enabled);
    /// A layout was read from this file or written to it.
    void profileOpened(const QString& path);
    /// A toolbar button stands for this menu entry of the main window.
    void commandWanted(const QString& name);
    /// A pop-up menu of the main window is wanted at a place of the screen.
    void menuWanted(const QString& menu, const QPoint& place);
    void instrumentMenuWanted(Instrument* instrument, const QPoint& place);
    /// The mouse is over an instrument in edit mode: what the properties window shows.
    void propertiesShown(Instrument* instrument, const QStringList& labels, const QStringList& values);
    /// It is over a page, beside all of them.
    void propertiesReleased();
    /// The properties window goes for play mode and comes back afterwards, where the person has it at all.
    void propertiesWindowWanted(bool shown);
    /// The tick's timer gets this interval in milliseconds; 0 stops it.
    void timerWanted(int milliseconds);
    /// Another data source may have been chosen, or the mode has changed.
    void sourceChanged();
    /// The window has unloaded by a command of its own: the main window follows.
    void unloaded();

protected:
    /// Closing this window is leaving the program.
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    /// What Escape puts back, and what a handle's drag starts from.
    struct DragStart {
        QPointer<Instrument> instrument;
        PlacedBox box;
        TwipsPoint press; ///< in its own coordinates
        bool profileChanged = false;
    };

    void makePanes();
    void connectPanes();
    void applySettings();
    void storeSettings();
    void paneResized();
    void paneResizing();
    void mainTab_Click();
    void mainTab_MouseDown(Qt::MouseButton button, const QPoint& place);
    void pic_MouseDown(Page* page, const QPoint& place);
    void pic_MouseMove();

    static QFont treeFont(); ///< of the variable tree and the palette
    void connectLibrary(Instrument* added);
    void beginSnapshot(Instrument& instrument);
    void endSnapshot(Instrument& instrument);
    void defineCustom(const Instrument& instrument, const QString& fileName);

    void makeVariablePane();
    void placeVariablePane();
    void editLine(const TreeLine& line);

    Page* addPage();
    void fitPage(Page* page, int highest);
    void showPageInFront();
    void interruptHidden();
    void clearPage(std::size_t number);
    bool isPageEmpty(std::size_t number) const;
    void clearCurrentTab();
    void closeLastTab();
    void closeAllTabs();
    /// A new tab at the end with its page, in front.
    void appendTab(const QString& caption);
    void makeTabKeys();

    std::optional<QString> askForFile(std::optional<QString> (*ask)(const FileRequest&), const char* title);
    std::optional<QString> askForLoad();
    /// Opens a file in place of what stands (`clear`) or on top of it. False when it gave nothing, or an
    /// event in the middle began a new profile.
    bool openProfile(const QString& path, bool clear);
    void takeProfile(const Profile& profile);
    /// Saves where the profile lies, or where the person says. True when a whole file holds what stands;
    /// else nothing has changed but for the path that a cancel empties.
    bool save();
    bool saveProfile(const QString& path);
    Profile currentProfile();
    QWidget& outerWindow();
    void allowMinimising(bool allowed);
    void takeSize(const Profile& profile);
    void takeCaptions(const QStringList& captions);
    bool placeInstruments(const std::vector<ProfileInstrument>& saved);
    void placeInstrument(const ProfileInstrument& saved);

    void beginRecovery();
    void endRecovery();
    QString layoutHash();
    bool isLayoutEmpty() const;
    /// What stands now is what a file holds, or nothing: there is nothing to lose.
    void layoutSaved();
    void keepLayout(RecoveryReason reason);
    /// The same of a layout that is saved too: the next save would write over its file.
    void keepBeforeClearing(RecoveryReason reason);
    void keepLayoutNow(RecoveryReason reason, bool evenSaved);
    void loadAskingFirst(const std::function<void(bool clear)>& load);
    void loadRecovered(const RecoveryCopy& copy, const IniFile& document, bool clear);

    Instrument* newInstrument(Kind kind, Page* page);
    void giveState(Instrument& instrument);
    Page* currentPage() const;
    SnapGrid snapGrid() const;

    Instrument* placeNew(Kind kind, float x, float y, const QStringList& list = {});
    void connectEditing(Instrument* added);
    void beginDrag(Instrument* dragged, TwipsPoint press);
    void cancelDrag(Instrument* dragged);
    void endDrag();
    void moveInstrument(Instrument* moved, TwipsPoint start, TwipsPoint mouse);
    void sizeInstrument(Instrument* sized, std::uint8_t handle, TwipsPoint mouse);
    void stepInstrument(Instrument* moved, int columns, int rows, bool fine);
    void deleteInstrument(Instrument* deleted);
    void takeDrop(Instrument* target, const QObject* source);
    void keepInClipboard(Instrument* source, const QStringList& list, bool isCopy);
    void enablePaste(bool enabled);
    void enablePageCommands();

    void setCommandsForMode();
    void setViewsForMode();
    void setInstrumentMode(bool edit);

    QLineEdit* m_filter;
    Palette* m_palette;
    FileRequest m_fileDialog;      ///< of all profile commands: what one sets stays for the next
    int m_clearings = 0;           ///< how often all pages were cleared, or the window unloaded
    bool m_loadingProfile = false; ///< lets events run, in which nobody may save, load or play
    DragStart m_drag;
    // The window with its frame when it last was not minimised.
    QSize m_outerSize;
    bool m_outerMaximised = false;
    QPointer<Instrument> m_clicked;
    std::unique_ptr<RecoveryKeeper> m_recovery; ///< from load to unload
    QTimer m_minute;
    QString m_savedHash;              ///< of the layout as its file has it
    std::uint64_t m_keptRevision = 0; ///< of the table, when it was loaded or kept
    bool m_pasteEnabled = false;
    bool m_loaded = false;
};

} // namespace vistor
