#include "dashboard/frmInterface.h"

#include "dashboard/Palette.h"
#include "dashboard/RecoveryKeeper.h"
#include "instruments/Instrument.h"
#include "platform/Events.h"
#include "platform/Twips.h"
#include "variables/GlobalVarsAndTypes.h"
#include "variables/VariableTreeView.h"

#include <QCloseEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QTreeWidget>

namespace vistor {
namespace {

constexpr int kPageInset = 2;       ///< pixels; left and top of a page inside the tab control
constexpr int kNarrowest = 60;      ///< twips that a page is narrower than the tab control
constexpr int kLowest = 360;        ///< and lower
constexpr int kHighestDrag = 12200; ///< twips; beyond it a page does not follow while a border is dragged
constexpr int kNoLimit = 1 << 24;
constexpr QSize kLeastSize(480, 320); ///< pixels; room for all panes

template <class View>
View* named(View* view, const char* name) {
    view->setObjectName(QLatin1String(name));
    return view;
}

} // namespace

frmInterface::frmInterface(QWidget* parent)
    : QWidget(parent),
      mainTab(named(new SSTab(this), "mainTab")),
      VarPic(named(new QWidget(this), "VarPic")),
      VarTree(named(new VariableTreeView(VarPic), "VarTree")),
      VXSPLITTER(named(new vistor::VXSPLITTER(this), "VXSPLITTER")),
      trvControl(named(new QTreeWidget, "trvControl")),
      lvControl(named(new QListWidget, "lvControl")),
      ControlManager1(new ControlManager(this)),
      m_filter(named(new QLineEdit(VarPic), "VarFilter")),
      m_palette(new Palette(trvControl, lvControl)) {
    setObjectName(QStringLiteral("frmInterface"));
    setWindowTitle(QStringLiteral("Untitled"));
    setMinimumSize(kLeastSize);
    makePanes();
    addPage();
    mainTab->TabCaption(0, QStringLiteral("VX"));
    instruments.makeTemplates(pic.front());
    connectPanes();
    makeTabKeys();
}

frmInterface::~frmInterface() = default;

void frmInterface::makePanes() {
    makeVariablePane();
    VXSPLITTER->setSplitterOrientation(kVerticalBar);
    VXSPLITTER->fillPane(0, trvControl);
    VXSPLITTER->fillPane(1, lvControl);
    ControlManager1->addPane(kPagesPane, mainTab, QStringLiteral("Pages"));
    ControlManager1->addPane(kVariablePane, VarPic, QStringLiteral("Variables"));
    ControlManager1->addPane(kPalettePane, VXSPLITTER, QStringLiteral("Instruments"));
}

void frmInterface::connectPanes() {
    connect(ControlManager1, &ControlManager::ControlResizeComplete, this, &frmInterface::paneResized);
    connect(ControlManager1, &ControlManager::paneMoved, this, &frmInterface::paneResized);
    connect(ControlManager1, &ControlManager::paneDocked, this, &frmInterface::paneResized);
    connect(ControlManager1, &ControlManager::paneResizing, this, &frmInterface::paneResizing);
    connect(mainTab, &SSTab::Click, this, &frmInterface::mainTab_Click);
    connect(mainTab, &SSTab::MouseDown, this, &frmInterface::mainTab_MouseDown);
}

QFont frmInterface::treeFont() {
    return {QStringLiteral("VX Sans Serif"), 8};
}

void frmInterface::Form_Load() {
    m_loaded = true;
    applySettings();
    PlayMode = false;
    for (const InstrumentElement& element : instruments.all()) {
        if (element.number == 0 && element.kind != Kind::TextTag) element.instrument->mode(false);
    }
    m_palette->FillPalette();
    ProfileChanged = false;
    trvControl->setFont(treeFont());
    lvControl->setFont(treeFont());
    takeVariableTable();
    setCommandsForMode();
    enablePaste(m_pasteEnabled);
    beginRecovery();
}

void frmInterface::applySettings() {
    const WindowSettings settings = readWindowSettings(IniFile::load(SettingsPath));
    GridSize = settings.gridSize;
    ShowGrid = settings.showGrid;
    SnapToGrid = settings.snapToGrid;
    ControlManager1->placePane(kPalettePane, settings.box(LayoutBox::Palette));
    const TwipsBox& bar = settings.box(LayoutBox::PaletteBar);
    VXSPLITTER->setSplitterLeft(static_cast<int>(bar.left));
    VXSPLITTER->setSplitterTop(static_cast<int>(bar.top));
    VXSPLITTER->setSplitterWidth(static_cast<int>(bar.width));
    VXSPLITTER->setSplitterHeight(static_cast<int>(bar.height));
    ControlManager1->placePane(kVariablePane, settings.box(LayoutBox::VariableFrame));
    ControlManager1->placePane(kPagesPane, settings.box(LayoutBox::Pages));
    paneResized();
    setCurBackColour(settings.backColour, settings.labelColour);
}

bool frmInterface::Form_Unload() {
    if (!m_loaded) return true;
    if (ProfileChanged && !askToSave()) return false;
    keepLayout(RecoveryReason::NotSaved);
    m_loaded = false;
    ++m_clearings;
    storeSettings();
    endRecovery();
    return true;
}

void frmInterface::storeSettings() {
    IniFile file = IniFile::load(SettingsPath);
    const auto twips = [](int value) { return static_cast<float>(value); };
    const TwipsBox bar = {twips(VXSPLITTER->SplitterLeft()), twips(VXSPLITTER->SplitterTop()),
                          twips(VXSPLITTER->SplitterWidth()), twips(VXSPLITTER->SplitterHeight())};
    writeWindowGeometry(file,
                        {ControlManager1->paneBox(kPalettePane), bar, ControlManager1->paneBox(kVariablePane),
                         ControlManager1->paneBox(kPagesPane)});
    file.setValue(QStringLiteral("VXVISTOR"), QStringLiteral("LASTFILE"),
                  ProfilePath.isEmpty() ? LastProfilePath : ProfilePath);
    file.saveOrTell(SettingsPath, QStringLiteral("The settings"));
}

void frmInterface::mnuExit_Click() {
    if (Form_Unload()) Q_EMIT unloaded();
}

void frmInterface::closeEvent(QCloseEvent* event) {
    const bool wasLoaded = m_loaded;
    event->setAccepted(Form_Unload());
    if (wasLoaded && event->isAccepted()) Q_EMIT unloaded();
}

void frmInterface::resizeEvent(QResizeEvent*) {
    if (outerWindow().isMinimized()) return;
    m_outerSize = outerWindow().size();
    m_outerMaximised = outerWindow().isMaximized();
}

void frmInterface::ArrangeSplitter() {
    const IniFile file = IniFile::load(SettingsPath);
    for (int pane = 0; pane < kPaneCount; ++pane) {
        if (!isPaneVisible(file, pane)) ControlManager1->removePane(pane);
    }
    paneResized();
}

void frmInterface::paneResized() {
    for (Page* page : pic) fitPage(page, kNoLimit);
    if (ShowGrid == 1 && !PlayMode) DrawGrid();
    placeVariablePane();
    DoEvents();
}

void frmInterface::paneResizing() {
    if (CurrentTab < static_cast<int>(pic.size()))
        fitPage(pic[static_cast<std::size_t>(CurrentTab)], kHighestDrag);
    placeVariablePane();
}

/// Each side follows the tab control where that is larger than what the page leaves of it.
void frmInterface::fitPage(Page* page, int highest) {
    QSize size = page->size();
    const float width = toTwips(mainTab->width());
    const float height = toTwips(mainTab->height());
    if (width > kNarrowest) size.setWidth(toPixels(width - kNarrowest));
    if (height > kLowest && height < static_cast<float>(highest)) size.setHeight(toPixels(height - kLowest));
    page->resize(size);
}

Page* frmInterface::addPage() {
    auto* page = new Page(static_cast<int>(pic.size()), mainTab);
    page->move(kPageInset, kPageInset);
    if (!pic.empty()) page->resize(pic.front()->size());
    connect(page, &Page::rightPressed, this,
            [this, page](const QPoint& place) { pic_MouseDown(page, place); });
    connect(page, &Page::moved, this, &frmInterface::pic_MouseMove);
    connect(page, &Page::leftPressed, this, [this] { m_clicked = nullptr; });
    connect(page, &Page::dropped, this, [this, page](QObject* source, const QPointF& place) {
        pic_DragDrop(page, source, toTwips(place.x()), toTwips(place.y()));
    });
    pic.push_back(page);
    return page;
}

void frmInterface::showPageInFront() {
    for (Page* page : pic) page->setVisible(page->number() == CurrentTab);
}

/// What stands behind gets no values until it comes to the front.
void frmInterface::interruptHidden() {
    for (const InstrumentElement& element : instruments.all()) {
        const Page* page = pageOf(*element.instrument);
        if (page && page->number() != CurrentTab) element.instrument->interruptData();
    }
}

void frmInterface::mainTab_Click() {
    CurrentTab = static_cast<std::int16_t>(mainTab->Tab());
    showPageInFront();
    interruptHidden();
}

void frmInterface::mainTab_MouseDown(Qt::MouseButton button, const QPoint& place) {
    if (PlayMode || button != Qt::RightButton) return;
    mainTab->Tab(mainTab->tabAt(place)); // the menu's entries act on the one in front
    Q_EMIT commandEnabled(QStringLiteral("mnuClosePane"), mainTab->Tab() == mainTab->Tabs() - 1);
    Q_EMIT menuWanted(QStringLiteral("mnuDropDown2"), place);
}

void frmInterface::pic_MouseMove() {
    if (PropertiesWindowShown) Q_EMIT propertiesReleased();
}

void frmInterface::pic_MouseDown(Page* page, const QPoint& place) {
    if (PlayMode) return;
    PopupX = toTwips(place.x());
    PopupY = toTwips(place.y());
    enablePageCommands();
    Q_EMIT menuWanted(QStringLiteral("mnuDropDown"), page->mapToGlobal(place));
}

} // namespace vistor
