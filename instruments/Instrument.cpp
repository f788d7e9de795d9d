#include "instruments/Instrument.h"

#include "instruments/Colours.h"
#include "instruments/Snapshot.h"
#include "instruments/displays/InnerDisplay.h"
#include "instruments/displays/PropertyList.h"
#include "instruments/frmPinAssignmentGraph.h"
#include "instruments/frmVarTableGraph.h"
#include "platform/Events.h"
#include "platform/Scratch.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QLabel>
#include <QPointer>

#include <cmath>

namespace vistor {
namespace {

constexpr double kLargestTwips = 8192.0 * kTwipsPerPixel;
constexpr int kTagFontPixels = 11;

/// The size that an item of a list asks for; `before` for an unusable one.
double listSize(const QStringList& list, qsizetype position, double before) {
    if (position >= list.size()) return before;
    const double wanted = numberOfText(list.at(position));
    return wanted > 0 ? std::min(wanted, kLargestTwips) : before;
}

} // namespace

Instrument::Instrument(Kind kind, InnerDisplay* display, QWidget* parent)
    : QWidget(parent),
      m_kind(kind),
      m_display(display),
      lblTag(new QLabel(this)),
      pins(display->properties().table().parts().pins == PinForm::Graph ? PinTable::kGraphColumns : 1) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setAcceptDrops(true);
    setFocusPolicy(Qt::StrongFocus);
    hide();
    m_display->setParent(this);
    m_display->show();
    connect(m_display, &InnerDisplay::pressed, this, &Instrument::displayPressed);
    connect(m_display, &InnerDisplay::moved, this, &Instrument::displayMoved);
    connect(m_display, &InnerDisplay::edited, this, &Instrument::layoutChanged);
    lblTag->setTextFormat(Qt::PlainText);
    lblTag->setAutoFillBackground(true);
    lblTag->setAttribute(Qt::WA_NoMousePropagation);
    QFont tagFont = lblTag->font();
    tagFont.setPixelSize(kTagFontPixels);
    lblTag->setFont(tagFont);
    lblTag->hide();
    resize(kindInfo(kind).width, kindInfo(kind).height);
    Instrument::UserControl_Initialize();
}

void Instrument::UserControl_Initialize() {
    pins = PinTable(pins.columns());
    UserControl_Resize();
    m_framePainted = false;
}

QString Instrument::tagText() const {
    return lblTag->text();
}

int Instrument::pinCount() const {
    const KindTable::Parts& parts = m_display->properties().table().parts();
    if (parts.pins == PinForm::None) return 0;
    return parts.pinCountProperty == kNoNumber ? 1 : m_display->properties().integer(parts.pinCountProperty);
}

void Instrument::setColour(std::int32_t back, std::int32_t fore) {
    m_backColour = back;
    QPalette palette = lblTag->palette();
    palette.setColor(QPalette::Window, colourOf(back));
    palette.setColor(QPalette::WindowText, colourOf(fore));
    lblTag->setPalette(palette);
    m_display->setPalette(palette); // a display without a ground of its own lies on the page
    update();
}

void Instrument::mode(bool edit) {
    m_framePainted = edit;
    setFocusPolicy(edit ? Qt::StrongFocus : Qt::NoFocus);
    if (!edit) clearFocus();
    m_dragging = m_dragging && edit;
    m_sizing = m_sizing && edit;
    m_display->setEnabled(edit || m_display->properties().table().parts().staysEnabled);
    update();
}

PinTable Instrument::curVarTable() const {
    return pins;
}

void Instrument::refreshValue(std::int16_t pin, float value) {
    PropertyStore& properties = m_display->properties();
    const KindTable::Parts& parts = properties.table().parts();
    if (parts.values.selector != kNoNumber) {
        if (!hasPin(pin)) return; // the selector would wrap round to another's needle
        properties.setNumber(parts.values.selector, pin);
    }
    properties.setNumber(parts.values.value, value);
    m_display->call(parts.methods.redraw);
}

void Instrument::refreshValue(std::int16_t pin, std::uint8_t, float value) {
    refreshValue(pin, value);
}

void Instrument::ClearCurrentData() {}

void Instrument::interruptData() {}

void Instrument::TagOn(bool on) {
    if (on != m_tagOn) mnuTag_Click();
}

void Instrument::mnuTag_Click() {
    if (m_display->properties().table().parts().pins == PinForm::None) return; // it would have nothing to say
    m_tagOn = !m_tagOn;
    if (m_tagOn) refreshCaption();
    lblTag->setVisible(m_tagOn);
    UserControl_Resize();
}

void Instrument::refreshCaption() {
    lblTag->setText(tagCaption(pins));
}

void Instrument::mnuCopy_Click() {
    QStringList list;
    Serialise(list);
    Q_EMIT ControlCopy(list);
}

void Instrument::mnuCut_Click() {
    QStringList list;
    Serialise(list);
    Q_EMIT ControlCut(list);
}

void Instrument::mnuDelete_Click() {
    Q_EMIT ControlDelete();
}

void Instrument::mnuDefineCustom_Click() {
    const QPointer<Instrument> alive(this);
    Q_EMIT SnapshotBegin();
    const QSizeF before(widthTwips(), heightTwips());
    const QString fileName = freeSnapshotName(scratchFolder(WorkingFolder));
    setSizeTwips(kSnapshotPixels * kTwipsPerPixel, kSnapshotPixels * kTwipsPerPixel);
    pumpEvents(); // so that the display is seen at that size
    if (!alive) return;
    saveSnapshot(fileName);
    setSizeTwips(before.width(), before.height());
    Q_EMIT SnapshotEnd();
    if (alive) Q_EMIT CustomDefined(fileName);
}

void Instrument::saveSnapshot(const QString& fileName) {
    const QString folder = scratchFolder(WorkingFolder);
    if (!folder.isEmpty()) snapshotInside(*this).save(folder + fileName, "BMP");
}

void Instrument::mnuVariables_Click() {
    if (m_display->properties().table().parts().pins == PinForm::None) return;
    const QPointer<Instrument> alive(this);
    const KindInfo& info = kindInfo(m_kind);
    const auto edit = [&](frmVarTable&& window) {
        window.setWindowTitle(QStringLiteral("Variable Table : ") + QLatin1String(info.title));
        window.VXVariable(QLatin1String(info.pinLabel), pinCount(), *this, curVarTable());
        window.exec();
    };
    if (pins.columns() > 1)
        edit(frmVarTableGraph(window()));
    else
        edit(frmVarTable(window()));
    if (alive) refreshCaption();
}

void Instrument::mnuProperties_Click() {
    const QPointer<Instrument> alive(this);
    Q_EMIT layoutChanged();
    if (alive) m_display->openPropertySheet();
}

int Instrument::Serialise(QStringList& list) const {
    list = {textOfNumber(widthTwips()), textOfNumber(heightTwips())};
    writeProperties(m_display->properties(), list);
    return writePins(pins, m_display->properties().table().parts().pins, list);
}

void Instrument::Deserialise(const QStringList& list) {
    setSizeTwips(listSize(list, 0, widthTwips()), listSize(list, 1, heightTwips()));
    PropertyStore& properties = m_display->properties();
    const qsizetype pinBlock = readProperties(properties, list);
    pins = readPins(properties.table().parts().pins, list, pinBlock);
    m_display->redraw();
}

void Instrument::FunctionDrop(const QString& name) {
    if (m_display->properties().table().parts().pins == PinForm::None) return;
    if (pinCount() > 1 || pins.columns() > 1) return choosePin(name);
    pins.resize(1);
    pins.setCount(1);
    pins.set(1, name);
    pinsChanged();
    Q_EMIT layoutChanged();
    refreshCaption();
}

void Instrument::choosePin(const QString& name) {
    const PinQuestion question{QLatin1String(kindInfo(m_kind).pinLabel),  pinCount(), this,
                               QLatin1String(kindInfo(m_kind).className), name,       curVarTable()};
    const QPointer<Instrument> alive(this);
    if (pins.columns() > 1)
        frmPinAssignmentGraph(question, window()).exec();
    else
        frmPinAssignment(question, window()).exec();
    if (alive) refreshCaption();
}

PinTable Instrument::AssignPin(int pin, const QString& name) {
    return AssignPin(pin, std::uint8_t{0}, name);
}

PinTable Instrument::AssignPin(int pin, std::uint8_t axis, const QString& name) {
    const int column = pins.columns() > 1 && axis != 0 ? 1 : 0;
    pins.assign(pin, name, column);
    constexpr int kFirstFlag = 4;
    if (pins.columns() > 1) pins.set(pin, QStringLiteral("0"), kFirstFlag + column);
    pinsChanged();
    Q_EMIT layoutChanged();
    return pins;
}

PinTable Instrument::RemovePin(int pin, const QString&) {
    return RemovePin(pin, std::uint8_t{0});
}

PinTable Instrument::RemovePin(int pin, std::uint8_t axis) {
    pins.remove(pin, pins.columns() > 1 && axis != 0 ? 1 : 0);
    pinsChanged();
    Q_EMIT layoutChanged();
    refreshCaption();
    return pins;
}

} // namespace vistor
