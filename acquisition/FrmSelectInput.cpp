#include "acquisition/FrmSelectInput.h"

#include "acquisition/Serial_API.h"
#include "acquisition/SourceChoice.h"
#include "platform/Events.h"
#include "platform/Prompts.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QShowEvent>
#include <QTimer>
#include <QVBoxLayout>

namespace vistor {
namespace {

constexpr int kSerial = 0;
constexpr int kFile = 1;

template <typename Widget>
Widget* named(Widget* widget, const char* name) {
    widget->setObjectName(QLatin1String(name));
    return widget;
}

void addField(QGridLayout& grid, int row, const QString& label, QWidget* field) {
    auto* text = new QLabel(label);
    text->setBuddy(field);
    text->setContentsMargins(0, 0, 4, 0); // the hint of a text with an access key is a little short
    grid.addWidget(text, row, 1);
    grid.addWidget(field, row, 2);
}

} // namespace

FrmSelectInput::FrmSelectInput(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("Select data source"));
    auto* grid = new QGridLayout;
    grid->setColumnMinimumWidth(0, 18);
    grid->setHorizontalSpacing(12);
    grid->setColumnStretch(2, 1);
    buildSerialFields(*grid);
    buildFileFields(*grid);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    OkCmd = named(buttons->button(QDialogButtonBox::Ok), "OkCmd");
    connect(OkCmd, &QPushButton::clicked, this, &FrmSelectInput::OkCmd_Click);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* column = new QVBoxLayout(this);
    column->addLayout(grid);
    column->addStretch();
    column->addWidget(buttons);
    setMinimumWidth(460);
    enableFields();
}

void FrmSelectInput::buildSerialFields(QGridLayout& grid) {
    InputSelectorOption[kSerial] = named(new QRadioButton(tr("&Serial line")), "InputSelectorOption0");
    PortNumberCombo = named(new QComboBox, "PortNumberCombo");
    SerialSpeedCmbo = named(new QComboBox, "SerialSpeedCmbo");
    UseGsmCheck = named(new QCheckBox(tr("&GSM modem")), "UseGsmCheck");
    GsmTelephoneNumber = named(new QLineEdit, "GsmTelephoneNumber");
    for (const std::int32_t speed : kLineSpeeds) SerialSpeedCmbo->addItem(QString::number(speed));
    InputSelectorOption[kSerial]->setChecked(true);

    grid.addWidget(InputSelectorOption[kSerial], 0, 0, 1, 3);
    addField(grid, 1, tr("&Port"), PortNumberCombo);
    addField(grid, 2, tr("S&peed"), SerialSpeedCmbo);
    grid.addWidget(UseGsmCheck, 3, 2);
    addField(grid, 4, tr("&Telephone number"), GsmTelephoneNumber);

    const auto serial = [this] { selectOption(kSerial); };
    connect(InputSelectorOption[kSerial], &QRadioButton::toggled, this, &FrmSelectInput::enableFields);
    connect(PortNumberCombo, &QComboBox::activated, this, serial);
    connect(SerialSpeedCmbo, &QComboBox::activated, this, serial);
    connect(UseGsmCheck, &QCheckBox::toggled, this, &FrmSelectInput::enableFields);
    connect(GsmTelephoneNumber, &QLineEdit::textEdited, this, serial);
}

void FrmSelectInput::buildFileFields(QGridLayout& grid) {
    InputSelectorOption[kFile] = named(new QRadioButton(tr("Recorded run &file")), "InputSelectorOption1");
    FileNameTxt = named(new QLineEdit, "FileNameTxt");
    SetNewFileCmd = named(new QPushButton(tr("&Browse...")), "SetNewFileCmd");
    auto* line = new QHBoxLayout;
    line->addWidget(FileNameTxt, 1);
    line->addWidget(SetNewFileCmd);
    auto* label = new QLabel(tr("File &name"));
    label->setBuddy(FileNameTxt);

    grid.setRowMinimumHeight(5, 10);
    grid.addWidget(InputSelectorOption[kFile], 6, 0, 1, 3);
    grid.addWidget(label, 7, 1);
    grid.addLayout(line, 7, 2);

    connect(FileNameTxt, &QLineEdit::textEdited, this, [this] { selectOption(kFile); });
    connect(SetNewFileCmd, &QPushButton::clicked, this, &FrmSelectInput::SetNewFileCmd_Click);
}

void FrmSelectInput::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (event->spontaneous() || m_shown) return;
    m_shown = true;
    QTimer::singleShot(0, this, &FrmSelectInput::activated); // the window stands before the ports are tried
}

void FrmSelectInput::activated() {
    pumpEvents();
    setEnabled(false);
    setWindowTitle(tr("Detecting Ports"));
    repaint();
    listPorts();
    setEnabled(true);
    if (PortNumberCombo->count() == 0) MsgBox(tr("Cannot find any accessible serial ports!"));
    setWindowTitle(tr("Select data source"));
    showChoice(choiceOf(DataSourceDescriptor));
}

void FrmSelectInput::listPorts() {
    PortNumberCombo->clear();
    const std::int32_t chosen = portOf(DataSourceDescriptor);
    for (const std::int32_t port : detectPorts()) {
        const int item = PortNumberCombo->count();
        PortNumberCombo->addItem(QStringLiteral("Port ") + QString::number(port));
        PortNumberCombo->setItemData(item, portDevice(port), Qt::ToolTipRole);
        if (port == chosen) PortNumberCombo->setCurrentIndex(item);
    }
}

void FrmSelectInput::showChoice(const SourceChoice& choice) {
    SerialSpeedCmbo->setCurrentText(choice.speed);
    UseGsmCheck->setChecked(choice.gsm);
    GsmTelephoneNumber->setText(choice.telephone);
    FileNameTxt->setText(choice.fileName);
    selectOption(choice.file ? kFile : kSerial);
}

SourceChoice FrmSelectInput::choice() const {
    return {
        InputSelectorOption[kFile]->isChecked(), UseGsmCheck->isChecked(),   PortNumberCombo->currentText(),
        SerialSpeedCmbo->currentText(),          GsmTelephoneNumber->text(), FileNameTxt->text()};
}

void FrmSelectInput::selectOption(int option) {
    InputSelectorOption[option]->setChecked(true);
}

void FrmSelectInput::enableFields() {
    const bool serial = InputSelectorOption[kSerial]->isChecked();
    for (QWidget* field : {static_cast<QWidget*>(PortNumberCombo), static_cast<QWidget*>(SerialSpeedCmbo),
                           static_cast<QWidget*>(UseGsmCheck)})
        field->setEnabled(serial);
    GsmTelephoneNumber->setEnabled(serial && UseGsmCheck->isChecked());
    FileNameTxt->setEnabled(!serial);
    SetNewFileCmd->setEnabled(!serial);
}

void FrmSelectInput::SetNewFileCmd_Click() {
    const auto path = OpenFile({QStringLiteral("Import file as data source"),
                                QStringLiteral("Run analysis files (*.run )|*.run|Show All Files (*.*)|*.*"),
                                {},
                                FileNameTxt->text()});
    if (path) FileNameTxt->setText(*path);
}

void FrmSelectInput::OkCmd_Click() {
    DataSourceDescriptor = descriptorOf(choice());
    accept();
}

} // namespace vistor
