#include "instruments/frmPinAssignment.h"

#include "instruments/Instrument.h"
#include "instruments/PinGrid.h"
#include "platform/Prompts.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace vistor {
namespace {

constexpr QSize kSmallest(420, 280);
constexpr int kVisibleChoices = 12;

} // namespace

frmPinAssignment::frmPinAssignment(const PinQuestion& question, QWidget* parent)
    : frmPinAssignment(question, parent, boundPins(question.table, question.pins), QString()) {}

frmPinAssignment::frmPinAssignment(const PinQuestion& question, QWidget* parent, std::vector<PinRow> rows,
                                   const QString& axisHeader)
    : QDialog(parent),
      grd(new QTableWidget),
      cmbPin(new QComboBox),
      m_rows(std::move(rows)),
      VXControl(question.VXControl),
      m_pinLabel(question.pinLabel),
      m_name(question.name),
      m_fields(new QGridLayout) {
    setWindowTitle(tr("Pin assignment"));
    cmbPin->setObjectName(QStringLiteral("cmbPin"));
    cmbPin->setMaxVisibleItems(kVisibleChoices);
    for (int pin = 1; pin <= question.pins; ++pin) cmbPin->addItem(QString::number(pin));
    cmbPin->setCurrentIndex(-1);
    auto* variable = new QLabel(m_name);
    variable->setTextFormat(Qt::PlainText);
    QFont bold = variable->font();
    bold.setBold(true);
    variable->setFont(bold);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Apply | QDialogButtonBox::Cancel);
    QPushButton* apply = buttons->button(QDialogButtonBox::Apply);
    connect(apply, &QPushButton::clicked, this, &frmPinAssignment::cmdApply_Click);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    m_fields->setColumnStretch(1, 1);
    addField(tr("Variable"), variable);
    addField(tr("&Put it on"), cmbPin);
    auto* column = new QVBoxLayout(this);
    column->addLayout(m_fields);
    column->addWidget(grd, 1);
    column->addWidget(buttons);
    fillGrid(axisHeader);
    apply->setDefault(true); // now that the window knows it
    setMinimumSize(kSmallest);
    cmbPin->setFocus();
}

void frmPinAssignment::addField(const QString& label, QWidget* field) {
    auto* text = new QLabel(label);
    text->setBuddy(field);
    const int row = m_fields->rowCount();
    m_fields->addWidget(text, row, 0);
    m_fields->addWidget(field, row, 1);
}

void frmPinAssignment::fillGrid(const QString& axisHeader) {
    makePinGrid(*grd);
    fillPinGrid(*grd, m_pinLabel, axisHeader, m_rows);
    connect(grd, &QTableWidget::itemSelectionChanged, this, [this] {
        const int row = grd->currentRow();
        if (row >= 0 && row < static_cast<int>(m_rows.size())) choose(m_rows[static_cast<std::size_t>(row)]);
    });
}

void frmPinAssignment::choose(const PinRow& row) {
    cmbPin->setCurrentIndex(row.pin - 1 < cmbPin->count() ? row.pin - 1 : -1);
}

int frmPinAssignment::chosenPin() const {
    return cmbPin->currentIndex() + 1;
}

void frmPinAssignment::assign(Instrument& instrument, int pin, const QString& name) {
    instrument.AssignPin(pin, name);
}

void frmPinAssignment::cmdApply_Click() {
    if (chosenPin() == 0) {
        MsgBox(QStringLiteral("Please select an input"));
        cmbPin->setFocus();
        return;
    }
    if (VXControl) assign(*VXControl, chosenPin(), m_name);
    accept();
}

} // namespace vistor
