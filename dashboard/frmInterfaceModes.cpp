// The change between edit mode and play mode, the dispatch of values, and what all instruments share:
// colours, labels, grid.
#include "acquisition/AcquisitionTick.h"
#include "acquisition/DataSource.h"
#include "acquisition/FrmSelectInput.h"
#include "dashboard/ModeCommands.h"
#include "dashboard/frmInterface.h"
#include "instruments/Colours.h"
#include "instruments/Instrument.h"
#include "variables/GlobalVarsAndTypes.h"
#include "variables/VariableTreeView.h"

#include <QLineEdit>
#include <QListWidget>
#include <QTreeWidget>

namespace vistor {
namespace {

void setBackground(QWidget* view, const QColor& colour) {
    QPalette colours = view->palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        colours.setColor(group, QPalette::Base, colour);
    view->setPalette(colours);
}

} // namespace

void frmInterface::mnuPlayMode_Click() {
    if (m_loadingProfile) return;
    keepEveryMinute(); // nothing is kept while it plays
    Q_EMIT propertiesWindowWanted(false);
    if (!OpenDataSource()) {
        CloseDataSource();
        PlayMode = false;
        Q_EMIT propertiesWindowWanted(true);
        return;
    }
    startPlayClock();
    PlayMode = true;
    RebuildSubscriptions();
    Q_EMIT timerWanted(kTickMilliseconds);
    setCommandsForMode();
    setInstrumentMode(false);
    setFocus(); // what had the keyboard is disabled now, and the keys of the tabs need it in here
    SampleTime.fill(0);
    LastValue.fill(0);
    SampleDistance.fill(0);
}

void frmInterface::mnuEditMode_Click() {
    Q_EMIT propertiesWindowWanted(true);
    PlayMode = false;
    Q_EMIT timerWanted(0);
    CloseDataSource();
    setCommandsForMode();
    setInstrumentMode(true);
}

void frmInterface::mnuSelectDataSource_Click() {
    FrmSelectInput(this).exec();
    Q_EMIT sourceChanged();
}

void frmInterface::setCommandsForMode() {
    Q_EMIT sourceChanged();
    for (const ModeCommand& command : kModeCommands)
        Q_EMIT commandEnabled(QLatin1String(command.name),
                              PlayMode ? command.inPlayMode : command.inEditMode);
    for (const ModeButton& button : kModeButtons)
        Q_EMIT buttonEnabled(button.number, PlayMode ? button.inPlayMode : button.inEditMode);
    setViewsForMode();
    allowMinimising(!PlayMode);
    // A grid that was turned off may still stand on other pages than the first.
    if (PlayMode || ShowGrid != 1)
        ClearGrid();
    else
        DrawGrid();
}

/// Only of the window inside the main one: in play mode a dashboard that is not seen gets values for nothing.
void frmInterface::allowMinimising(bool allowed) {
    QWidget* frame = parentWidget();
    if (!frame) return;
    if (!allowed && frame->isMinimized())
        frame->setWindowState(m_outerMaximised ? Qt::WindowMaximized : Qt::WindowNoState);
    frame->setWindowFlag(Qt::WindowMinimizeButtonHint, allowed);
}

void frmInterface::setViewsForMode() {
    const QColor background = PlayMode ? colourOf(kButtonFaceColour) : QColor(Qt::white);
    for (QWidget* view : {static_cast<QWidget*>(trvControl), static_cast<QWidget*>(lvControl),
                          static_cast<QWidget*>(VarTree)}) {
        view->setEnabled(!PlayMode);
        setBackground(view, background);
    }
    m_filter->setEnabled(!PlayMode);
}

void frmInterface::setInstrumentMode(bool edit) {
    for (const InstrumentElement& element : instruments.all()) {
        if (element.number != 0) element.instrument->mode(edit);
    }
}

void frmInterface::RebuildSubscriptions() {
    Subscriptions = subscriptionsOf(instruments);
}

void frmInterface::refreshControls(const QString& name, float value) {
    dispatchValue(Subscriptions, mainTab->Tab(), name, value);
}

Instrument* frmInterface::newInstrument(Kind kind, Page* page) {
    Instrument* added = instruments.add(kind, page);
    connect(added, &Instrument::layoutChanged, this, &frmInterface::UserControlChanged);
    connect(added, &Instrument::menuWanted, this,
            [this, added](const QPoint& place) { Q_EMIT instrumentMenuWanted(added, place); });
    connectEditing(added);
    connectLibrary(added);
    connect(added, &Instrument::propertiesShown, this,
            [this, added](const QString&, const QStringList& labels, const QStringList& values) {
                Q_EMIT propertiesShown(added, labels, values);
            });
    return added;
}

void frmInterface::giveState(Instrument& instrument) {
    instrument.setColour(CurBackColour, CurLabelColour);
    instrument.mode(!PlayMode);
    if (instrument.kind() != Kind::TextTag) instrument.TagOn(TagsVisible);
}

Instrument* frmInterface::addInstrument(Kind kind, Page* page) {
    Instrument* added = newInstrument(kind, page);
    if (added) giveState(*added);
    return added;
}

void frmInterface::setCurBackColour(std::int32_t back, std::int32_t label) {
    CurBackColour = back;
    CurLabelColour = label;
    for (Page* page : pic) page->setBackColour(colourOf(back));
    for (const InstrumentElement& element : instruments.all()) {
        element.instrument->setColour(back, label);
        if (!PlayMode) element.instrument->mode(true);
    }
    if (ShowGrid == 1) DrawGrid();
}

void frmInterface::TagsOn(std::uint8_t on) {
    TagsVisible = on == 1;
    for (const InstrumentElement& element : instruments.all()) {
        if (element.kind != Kind::TextTag) element.instrument->TagOn(TagsVisible);
    }
}

void frmInterface::initGrid(std::int16_t size, std::uint8_t show, std::uint8_t snap) {
    pic.front()->clearDrawing();
    GridSize = size;
    if (show == 1 && !PlayMode) DrawGrid();
    ShowGrid = show;
    SnapToGrid = snap;
}

void frmInterface::DrawGrid() {
    for (Page* page : pic) page->drawGrid(GridSize);
}

void frmInterface::ClearGrid() {
    for (Page* page : pic) page->clearDrawing();
}

void frmInterface::Toolbar_ButtonClick(int button) {
    switch (button) {
    case 2:
        if (askToSave()) mnuNew_Click();
        return;
    case 3:
        return mnuLoadConfig_Click();
    case 4:
        return mnuSaveConfig_Click();
    case 6:
        return mnuPlayMode_Click();
    case 7:
        return mnuEditMode_Click();
    case 9:
        return commandWanted(QStringLiteral("mnuShowPropertiesWindow"));
    case 11:
        return mnuNewTab_Click();
    case 12:
        return mnuClearPane_Click(); // asks first
    case 14:
        return TagsOn(1);
    case 15:
        return TagsOn(0);
    case 17:
        return commandWanted(QStringLiteral("mnuVXHelp"));
    default:
        return; // separators, and buttons without an action
    }
}

} // namespace vistor
