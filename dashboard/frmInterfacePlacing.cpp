// Placing and editing: new instruments, the palette's drops, and the answers to what instruments ask for
// while they are moved, sized, deleted and bound.
#include "dashboard/CustomLibrary.h"
#include "dashboard/Palette.h"
#include "dashboard/frmInterface.h"
#include "dashboard/frmOptions.h"
#include "instruments/Instrument.h"
#include "instruments/VXSTRIP.h"
#include "platform/Twips.h"
#include "variables/GlobalVarsAndTypes.h"
#include "variables/VariableTreeView.h"

#include <QTimer>

namespace vistor {
namespace {

PlacedBox boxOf(const Instrument& instrument) {
    return {static_cast<float>(instrument.leftTwips()), static_cast<float>(instrument.topTwips()),
            static_cast<float>(instrument.widthTwips()), static_cast<float>(instrument.heightTwips())};
}

/// Of the page on which an instrument stands.
TwipsPoint roomOf(const QWidget& page) {
    return {toTwips(page.width()), toTwips(page.height())};
}

void place(Instrument& instrument, const PlacedBox& box) {
    instrument.placeTwips(QRectF(box.left, box.top, box.width, box.height));
}

} // namespace

Page* frmInterface::currentPage() const {
    const auto number = static_cast<std::size_t>(CurrentTab);
    return number < pic.size() ? pic[number] : pic.front();
}

SnapGrid frmInterface::snapGrid() const {
    return {SnapToGrid == 1, GridSize, 0, 0}; // a page's inner area begins at its corner
}

void frmInterface::SnapPoint(float& x, float& y) const {
    const TwipsPoint snapped = snappedPoint(snapGrid(), {x, y});
    x = snapped.x;
    y = snapped.y;
}

Instrument* frmInterface::placeNew(Kind kind, float x, float y, const QStringList& list) {
    Instrument* placed = newInstrument(kind, currentPage());
    placed->moveTwips(x, y);
    if (!list.isEmpty()) placed->Deserialise(list);
    bindPlaced(*placed); // before its tag comes on, which tells the binding
    giveState(*placed);
    placed->show();
    placed->setFocus();
    ProfileChanged = true;
    return placed;
}

/// A custom entry brings its list with it. It comes to stand like one that was dragged to there.
void frmInterface::pic_DragDrop(Page* page, const QObject* source, float x, float y) {
    const QString key = m_palette->draggedKey(source);
    const PaletteEntry* entry = paletteEntryOf(key);
    if (!entry) return;
    QStringList list;
    if (isCustomKey(key)) {
        const IniFile library = IniFile::load(LibraryPath);
        list = customList(library, entry->kind, customNumber(library, entry->kind, key));
    }
    const PlacedBox corner = movedBox({x, y, 0, 0}, {}, {}, roomOf(*page), snapGrid());
    placeNew(entry->kind, corner.left, corner.top, list);
}

void frmInterface::connectEditing(Instrument* added) {
    connect(added, &Instrument::dragBegun, this, [this, added](float startX, float startY) {
        beginDrag(added, {startX, startY});
    });
    connect(added, &Instrument::dragCancelled, this, [this, added] { cancelDrag(added); });
    const auto move = [this, added](float startX, float startY, float x, float y) {
        moveInstrument(added, {startX, startY}, {x, y});
    };
    const auto size = [this, added](std::uint8_t handle, float x, float y) {
        sizeInstrument(added, handle, {x, y});
    };
    connect(added, &Instrument::ControlMoving, this, move);
    connect(added, &Instrument::ControlMoved, this, move);
    connect(added, &Instrument::ControlMoved, this, &frmInterface::endDrag);
    connect(added, &Instrument::ControlSizing, this, size);
    connect(added, &Instrument::ControlSized, this, size);
    connect(added, &Instrument::ControlSized, this, &frmInterface::endDrag);
    connect(added, &Instrument::ControlDelete, this, [this, added] { deleteInstrument(added); });
    connect(added, &Instrument::ControlCopy, this,
            [this, added](const QStringList& list) { keepInClipboard(added, list, true); });
    connect(added, &Instrument::ControlCut, this,
            [this, added](const QStringList& list) { keepInClipboard(added, list, false); });
    connect(added, &Instrument::stepWanted, this,
            [this, added](int columns, int rows, bool fine) { stepInstrument(added, columns, rows, fine); });
    connect(added, &Instrument::focused, this, [this, added] { m_clicked = added; });
    connect(added, &Instrument::variableDropped, this,
            [this, added](QObject* source) { takeDrop(added, source); });
}

void frmInterface::beginDrag(Instrument* dragged, TwipsPoint press) {
    m_drag = {dragged, boxOf(*dragged), press, ProfileChanged};
}

void frmInterface::cancelDrag(Instrument* dragged) {
    if (m_drag.instrument != dragged) return;
    place(*dragged, m_drag.box);
    ProfileChanged = m_drag.profileChanged;
    endDrag();
}

void frmInterface::endDrag() {
    m_drag = {};
}

void frmInterface::moveInstrument(Instrument* moved, TwipsPoint start, TwipsPoint mouse) {
    const PlacedBox box = movedBox(boxOf(*moved), start, mouse, roomOf(*moved->parentWidget()), snapGrid());
    moved->moveTwips(box.left, box.top);
    ProfileChanged = true;
}

/// Reckoned from the size at which the drag began: the corner that stays is then the same for the whole of
/// it, also after the box has turned over or come down to its least size.
void frmInterface::sizeInstrument(Instrument* sized, std::uint8_t handle, TwipsPoint mouse) {
    const PlacedBox now = boxOf(*sized);
    const bool dragged = m_drag.instrument == sized;
    const PlacedBox from = dragged ? m_drag.box : now;
    const TwipsPoint press = dragged ? m_drag.press : handleCorner(now, handle);
    const TwipsPoint onStart = {mouse.x + now.left - from.left, mouse.y + now.top - from.top};
    place(*sized, sizedBox(from, handle, press, onStart, roomOf(*sized->parentWidget()), snapGrid()));
    ProfileChanged = true;
}

void frmInterface::stepInstrument(Instrument* moved, int columns, int rows, bool fine) {
    const PlacedBox box =
        steppedBox(boxOf(*moved), columns, rows, fine, roomOf(*moved->parentWidget()), snapGrid());
    moved->moveTwips(box.left, box.top);
    ProfileChanged = true;
}

void frmInterface::deleteInstrument(Instrument* deleted) {
    instruments.remove(deleted);
    ProfileChanged = true;
}

void frmInterface::mnuOptions_Click() {
    frmOptions(*this, window()).exec();
}

/// The answer may be a window that asks for the pin: it opens when the drag is over. The next keys are meant
/// for what the variable fell on, no longer for the tree.
void frmInterface::takeDrop(Instrument* target, const QObject* source) {
    if (source != VarTree) return;
    target->setFocus();
    QTimer::singleShot(0, target, [target, name = DragVariableName] { target->FunctionDrop(name); });
}

} // namespace vistor
