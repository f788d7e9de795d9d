#include "instruments/frmPinAssignment.h"

#include "instruments/Instrument.h"
#include "platform/Prompts.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace vistor {
namespace {

constexpr QSize kSmallest(420, 280);
constexpr int kVisibleChoices = 12;
constexpr int kLeastNameWidth = 150;

void addCell(QTableWidget& grid, int row, int column, const QString& text) {
    auto* cell = new QTableWidgetItem(text);
    cell->setToolTip(text);
    grid.setItem(row, column, cell);
}

} // namespace

frmPinAssignment::frmPinAssignment(const PinQuestion& question, QWidget* parent)
    : frmPinAssignment(question, parent, boundPins(question.table), QString()) {}

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
    grd->setObjectName(QStringLiteral("grd"));
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
    QStringList headers = {m_pinLabel, QStringLiteral("VARIABLE"), QStringLiteral("VARIABLE TYPE")};
    if (!axisHeader.isEmpty()) headers.insert(1, axisHeader);
    grd->setColumnCount(static_cast<int>(headers.size()));
    grd->setHorizontalHeaderLabels(headers);
    grd->setRowCount(static_cast<int>(m_rows.size()));
    for (int row = 0; row < grd->rowCount(); ++row) {
        const PinRow& shown = m_rows[static_cast<std::size_t>(row)];
        QStringList cells = {QString::number(shown.pin), shown.variable, shown.group};
        if (!axisHeader.isEmpty()) cells.insert(1, axisName(shown.axis));
        for (int column = 0; column < cells.size(); ++column) addCell(*grd, row, column, cells.at(column));
    }
    grd->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grd->setSelectionBehavior(QAbstractItemView::SelectRows);
    grd->setSelectionMode(QAbstractItemView::SingleSelection);
    grd->setTabKeyNavigation(false);
    grd->setAlternatingRowColors(true);
    grd->setShowGrid(false);
    grd->verticalHeader()->hide();
    grd->horizontalHeader()->setHighlightSections(false);
    grd->horizontalHeader()->setStretchLastSection(true);
    grd->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    grd->resizeColumnsToContents();
    const int names = axisHeader.isEmpty() ? 1 : 2;
    grd->setColumnWidth(names, qMax(grd->columnWidth(names), kLeastNameWidth));
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
