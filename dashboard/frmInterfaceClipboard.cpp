// The dashboard's own clipboard, which holds one instrument's list while the program runs, and the commands
// on the instrument that was last clicked.
#include "dashboard/frmInterface.h"
#include "instruments/Instrument.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QKeyEvent>

namespace vistor {

void frmInterface::keepInClipboard(Instrument* source, const QStringList& list, bool isCopy) {
    ClipboardImage = list;
    ClipboardIsCopy = isCopy ? 1 : 0;
    enablePaste(true);
    ClipboardKind = static_cast<std::int16_t>(static_cast<int>(source->kind()) + 1);
    if (!isCopy) CutInstrument = source;
}

void frmInterface::mnuPaste_Click() {
    if (ClipboardKind < 1 || static_cast<std::size_t>(ClipboardKind) > kInstrumentKinds.size()) return;
    const Kind kind = kInstrumentKinds[static_cast<std::size_t>(ClipboardKind) - 1].kind;
    Instrument* pasted = newInstrument(kind, currentPage());
    pasted->Deserialise(ClipboardImage);
    pasted->moveTwips(PopupX, PopupY);
    pasted->setColour(CurBackColour, CurLabelColour);
    pasted->mode(!PlayMode);
    if (TagsVisible) TagsOn(1);
    if (ClipboardIsCopy == 0 && CutInstrument) instruments.remove(CutInstrument);
    pasted->show();
    pasted->setFocus();
    enablePaste(false); // one copy or cut gives one paste
    ProfileChanged = true;
}

void frmInterface::enablePaste(bool enabled) {
    m_pasteEnabled = enabled;
    Q_EMIT commandEnabled(QStringLiteral("mnuPaste"), enabled);
}

void frmInterface::keyPressEvent(QKeyEvent* event) {
    if (!PlayMode && m_pasteEnabled && event->matches(QKeySequence::Paste)) return mnuPaste_Click();
    QWidget::keyPressEvent(event);
}

Instrument* frmInterface::clickedInstrument() const {
    return m_clicked && pageOf(*m_clicked) == currentPage() ? m_clicked.data() : nullptr;
}

/// A right click on the page leaves the keyboard with the instrument on which the menu's entries act.
void frmInterface::enablePageCommands() {
    Instrument* clicked = clickedInstrument();
    if (clicked) clicked->setFocus();
    for (const char* name : {"mnuCut", "mnuCopy", "mnuDelete", "mnuProperties"})
        Q_EMIT commandEnabled(QLatin1String(name), clicked != nullptr);
}

void frmInterface::mnuCut_Click() {
    if (Instrument* clicked = clickedInstrument()) clicked->mnuCut_Click();
}

void frmInterface::mnuCopy_Click() {
    if (Instrument* clicked = clickedInstrument()) clicked->mnuCopy_Click();
}

void frmInterface::mnuDelete_Click() {
    if (Instrument* clicked = clickedInstrument()) clicked->mnuDelete_Click();
}

void frmInterface::mnuProperties_Click() {
    if (Instrument* clicked = clickedInstrument()) clicked->mnuProperties_Click();
}

} // namespace vistor
