// The properties window: shown and hidden by its command, hidden in play mode, fed with what the mouse is
// over.
#include "dashboard/frmInterface.h"
#include "instruments/Instrument.h"
#include "instruments/frmProperties.h"
#include "shell/frmMain.h"
#include "variables/GlobalVarsAndTypes.h"

namespace vistor {

void frmMain::mnuShowPropertiesWindow_Click() {
    showProperties(command(QStringLiteral("mnuShowPropertiesWindow"))->isChecked());
}

void frmMain::showProperties(bool shown) {
    PropertiesWindowShown = shown;
    if (!m_properties) {
        if (!shown) return;
        m_properties = new frmProperties(this);
        // Closing it is the same as unchecking the entry.
        connect(m_properties, &frmProperties::closed, this, [this] {
            command(QStringLiteral("mnuShowPropertiesWindow"))->setChecked(false);
            showProperties(false);
        });
    }
    m_properties->ClearAll();
    m_properties->setVisible(shown);
}

void frmMain::feedProperties(Instrument* instrument, const QStringList& labels, const QStringList& values) {
    if (!m_properties) return;
    const KindInfo& info = kindInfo(instrument->kind());
    const QString name = QLatin1String(info.title);
    const PinTable pins = instrument->curVarTable();
    if (info.kind == Kind::TextTag) return m_properties->DisplayTextData(labels, values, name);
    if (pins.columns() > 1) return m_properties->DisplayGraphData(labels, values, pins, name);
    m_properties->DisplayData(labels, values, pins, name);
}

} // namespace vistor
