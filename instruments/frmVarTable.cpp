#include "instruments/frmVarTable.h"

#include "instruments/Instrument.h"
#include "instruments/PinGrid.h"
#include "platform/Prompts.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>

namespace vistor {
namespace {

constexpr QSize kNewSize(460, 420);
constexpr int kVisibleChoices = 16;

} // namespace

frmVarTable::frmVarTable(QWidget* parent)
    : QDialog(parent),
      grd(new QTableWidget),
      cmbPin(new QComboBox),
      cmbGroup(new QComboBox),
      cmbVariable(new QComboBox),
      m_fields(new QFormLayout) {
    auto* column = new QVBoxLayout(this);
    makeGrid();
    column->addWidget(grd, 1);
    column->addLayout(m_fields);
    makeFields();
    makeButtons();
    resize(kNewSize);
    cmbPin->setFocus();
}

void frmVarTable::makeGrid() {
    makePinGrid(*grd);
    connect(grd, &QTableWidget::itemSelectionChanged, this, &frmVarTable::chooseRow);
}

void frmVarTable::makeFields() {
    const struct {
        QComboBox* box;
        const char* name;
        QString label;
    } fields[] = {{cmbPin, "cmbPin", tr("&Pin")},
                  {cmbGroup, "cmbGroup", tr("&Group")},
                  {cmbVariable, "cmbVariable", tr("&Variable")}};
    for (const auto& field : fields) insertField(m_fields->rowCount(), field.label, field.name, field.box);
    m_fields->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    cmbGroup->addItems(pinGroups());
    cmbGroup->setCurrentIndex(-1);
    connect(cmbGroup, &QComboBox::currentIndexChanged, this, &frmVarTable::cmbGroup_Click);
    connect(cmbPin, &QComboBox::currentIndexChanged, this, &frmVarTable::renewButtons);
}

void frmVarTable::insertField(int row, const QString& label, const char* name, QComboBox* box) {
    box->setObjectName(QLatin1String(name));
    box->setMaxVisibleItems(kVisibleChoices);
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_fields->insertRow(row, label, box);
}

void frmVarTable::addFieldBelowPin(const QString& label, const char* name, QComboBox* box) {
    insertField(1, label, name, box);
    setTabOrder(cmbPin, box);
    setTabOrder(box, cmbGroup);
}

void frmVarTable::makeButtons() {
    const struct {
        const char* name;
        QString words;
        void (frmVarTable::*clicked)();
        QPushButton** made;
    } buttons[] = {{"cmdApply", tr("&Apply"), &frmVarTable::cmdApply_Click, &cmdApply},
                   {"cmdRemove", tr("&Remove"), &frmVarTable::cmdRemove_Click, &cmdRemove},
                   {"cmdExit", tr("E&xit"), &frmVarTable::accept, nullptr}};
    auto* line = new QHBoxLayout;
    line->addStretch();
    static_cast<QVBoxLayout*>(layout())->addLayout(line);
    for (const auto& button : buttons) {
        auto* made = new QPushButton(button.words);
        made->setObjectName(QLatin1String(button.name));
        connect(made, &QPushButton::clicked, this, button.clicked);
        line->addWidget(made);
        if (button.made) *button.made = made;
    }
    cmdApply->setDefault(true);
}

void frmVarTable::VXVariable(const QString& pinLabel, int pins, Instrument& instrument,
                             const PinTable& table) {
    m_instrument = &instrument;
    m_pinLabel = pinLabel;
    m_pins = pins;
    cmbPin->clear();
    showTable(table);
}

std::vector<PinRow> frmVarTable::rowsOf(const PinTable& table) const {
    return everyPin(table, m_pins);
}

PinTable frmVarTable::assign(Instrument& instrument, int pin, const QString& name) {
    return instrument.AssignPin(pin, name);
}

PinTable frmVarTable::remove(Instrument& instrument, int pin) {
    return instrument.RemovePin(pin);
}

QString frmVarTable::boundTo(const PinTable& table, int pin) const {
    return table.at(pin);
}

void frmVarTable::showTable(const PinTable& table) {
    m_table = table;
    m_rows = rowsOf(table);
    fillPinGrid(*grd, m_pinLabel, m_showsAxis ? QStringLiteral("AXIS") : QString(), m_rows);
    fillPins();
    renewButtons();
}

/// The pins to choose from: those that there are, and those left over, which can only be removed.
void frmVarTable::fillPins() {
    const int chosen = chosenPin();
    const QSignalBlocker quiet(cmbPin);
    cmbPin->clear();
    for (int pin = 1; pin <= m_pins; ++pin) cmbPin->addItem(QString::number(pin), pin);
    for (const PinRow& row : m_rows)
        if (row.leftOver && cmbPin->findData(row.pin) < 0)
            cmbPin->addItem(pinText(row.pin, true, m_pinLabel), row.pin);
    cmbPin->setCurrentIndex(cmbPin->findData(chosen));
}

int frmVarTable::chosenPin() const {
    return cmbPin->currentData().toInt();
}

void frmVarTable::renewButtons() {
    const int pin = chosenPin();
    const bool removable = pin == 0 || !boundTo(m_table, pin).isEmpty(); // without a pin it asks for one
    if (!removable && focusWidget() == cmdRemove) cmbPin->setFocus();    // not on to the button that closes
    cmdRemove->setEnabled(removable);
    cmdApply->setEnabled(pin <= m_pins);
}

void frmVarTable::chooseRow() {
    const int row = grd->currentRow();
    if (row >= 0 && row < static_cast<int>(m_rows.size())) choose(m_rows[static_cast<std::size_t>(row)]);
}

void frmVarTable::choose(const PinRow& row) {
    cmbPin->setCurrentIndex(cmbPin->findData(row.pin));
    if (row.variable.isEmpty()) return; // what was chosen before may be meant for this pin
    cmbGroup->setCurrentIndex(cmbGroup->findText(row.group));
    cmbVariable->setCurrentIndex(cmbVariable->findText(row.variable));
}

void frmVarTable::cmbGroup_Click() {
    cmbVariable->clear();
    cmbVariable->addItems(variablesOfGroup(cmbGroup->currentText()));
    cmbVariable->setCurrentIndex(-1);
}

void frmVarTable::cmdApply_Click() {
    const bool full = chosenPin() > 0 && cmbGroup->currentIndex() >= 0 && cmbVariable->currentIndex() >= 0;
    if (!full) {
        MsgBox(QStringLiteral("Please fill all fields"));
        return;
    }
    if (m_instrument) showTable(assign(*m_instrument, chosenPin(), cmbVariable->currentText()));
}

void frmVarTable::cmdRemove_Click() {
    if (chosenPin() == 0) {
        MsgBox(QStringLiteral("Select an input and try again"));
        return;
    }
    if (m_instrument) showTable(remove(*m_instrument, chosenPin()));
}

} // namespace vistor
