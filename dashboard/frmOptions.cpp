#include "dashboard/frmOptions.h"

#include "dashboard/frmInterface.h"
#include "instruments/ColourBox.h"
#include "instruments/Colours.h"
#include "maths/QtNumberKeys.h"
#include "platform/Prompts.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace vistor {
namespace {

constexpr int kSizeFieldWidth = 80;

template <typename Widget>
Widget* named(Widget* widget, const char* name) {
    widget->setObjectName(QLatin1String(name));
    return widget;
}

} // namespace

frmOptions::frmOptions(frmInterface& dashboard, QWidget* parent)
    : QDialog(parent),
      m_dashboard(dashboard),
      txtGridSize(named(new QLineEdit, "txtGridSize")),
      chkShowGrid(named(new QCheckBox(tr("S&how grid in edit mode")), "chkShowGrid")),
      chkSnapToGrid(named(new QCheckBox(tr("S&nap to grid")), "chkSnapToGrid")),
      picBackColour(named(new ColourBox, "picBackColour")),
      picLabelColour(named(new ColourBox, "picLabelColour")),
      cmdResetBackColour(named(new QPushButton(tr("Reset")), "cmdResetBackColour")),
      cmdResetLabelColour(named(new QPushButton(tr("Reset")), "cmdResetLabelColour")) {
    setWindowTitle(tr("Options"));
    auto* column = new QVBoxLayout(this);
    buildGridFields(*column);
    buildColourFields(*column);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QPushButton* cmdOk = named(buttons->button(QDialogButtonBox::Ok), "cmdOk");
    named(buttons->button(QDialogButtonBox::Cancel), "cmdCancel");
    connect(cmdOk, &QPushButton::clicked, this, &frmOptions::cmdOk_Click);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addStretch();
    column->addWidget(buttons);
    cmdOk->setDefault(true); // now that the window knows it
    column->setSizeConstraint(QLayout::SetFixedSize);
    Form_Load();
    txtGridSize->setFocus();
    txtGridSize->selectAll();
}

void frmOptions::buildGridFields(QVBoxLayout& column) {
    auto* group = new QGroupBox(tr("Grid"));
    auto* fields = new QGridLayout(group);
    auto* label = new QLabel(tr("Grid &size"));
    label->setBuddy(txtGridSize);
    txtGridSize->setFixedWidth(kSizeFieldWidth);
    txtGridSize->installEventFilter(this);
    fields->addWidget(label, 0, 0);
    fields->addWidget(txtGridSize, 0, 1);
    fields->addWidget(new QLabel(tr("twips (15 are one pixel)")), 0, 2);
    fields->addWidget(chkShowGrid, 1, 0, 1, 3);
    fields->addWidget(chkSnapToGrid, 2, 0, 1, 3);
    fields->setColumnStretch(2, 1);
    column.addWidget(group);
}

void frmOptions::buildColourFields(QVBoxLayout& column) {
    auto* group = new QGroupBox(tr("Colours"));
    auto* fields = new QGridLayout(group);
    const auto add = [fields](int row, const QString& text, QWidget* box, QPushButton* reset) {
        auto* label = new QLabel(text);
        label->setBuddy(box);
        reset->setAutoDefault(false);
        fields->addWidget(label, row, 0);
        fields->addWidget(box, row, 1);
        fields->addWidget(reset, row, 2);
    };
    add(0, tr("&Background"), picBackColour, cmdResetBackColour);
    add(1, tr("&Labels"), picLabelColour, cmdResetLabelColour);
    fields->setColumnStretch(1, 1);
    column.addWidget(group);
    connect(cmdResetBackColour, &QPushButton::clicked, this, &frmOptions::cmdResetBackColour_Click);
    connect(cmdResetLabelColour, &QPushButton::clicked, this, &frmOptions::cmdResetLabelColour_Click);
}

void frmOptions::Form_Load() {
    const OptionsDraft stored = readOptionsDraft(IniFile::load(SettingsPath));
    txtGridSize->setText(stored.gridSize);
    chkShowGrid->setChecked(stored.showGrid);
    chkSnapToGrid->setChecked(stored.snapToGrid);
    picBackColour->setColour(stored.backColour);
    picLabelColour->setColour(stored.labelColour);
}

OptionsDraft frmOptions::draft() const {
    return {txtGridSize->text(), chkShowGrid->isChecked(), chkSnapToGrid->isChecked(),
            picBackColour->colour(), picLabelColour->colour()};
}

bool frmOptions::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
    return refusesKey(*static_cast<QKeyEvent*>(event));
}

void frmOptions::cmdOk_Click() {
    const OptionsDraft chosen = draft();
    const auto pitch = gridPitchOf(chosen.gridSize);
    if (!pitch) {
        MsgBox(QStringLiteral("Please enter valid grid size"), Icon::Notice);
        txtGridSize->setFocus();
        txtGridSize->selectAll();
        return;
    }
    m_dashboard.initGrid(*pitch, chosen.showGrid ? 1 : 0, chosen.snapToGrid ? 1 : 0);
    IniFile file = IniFile::load(SettingsPath);
    writeOptionsDraft(file, chosen);
    file.saveOrTell(SettingsPath, QStringLiteral("The settings"));
    m_dashboard.setCurBackColour(chosen.backColour, chosen.labelColour);
    accept();
}

void frmOptions::cmdResetBackColour_Click() {
    picBackColour->setColour(kButtonFaceColour);
}

void frmOptions::cmdResetLabelColour_Click() {
    picLabelColour->setColour(0);
}

} // namespace vistor
