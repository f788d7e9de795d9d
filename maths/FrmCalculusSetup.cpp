#include "maths/FrmCalculusSetup.h"

#include "variables/GlobalVarsAndTypes.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace vistor {
namespace {

constexpr int kWindowWidth = 340;

/// The items at the values of `Calculus`.
constexpr const char* kCalculusItems[] = {
    "None", "Integrate variable against time", "Differentiate variable against time",
    "Integrate variable against distance", "Differentiate variable against distance"};
/// The items at the values of `Misc`.
constexpr const char* kCorrectionStandards[] = {"None", "SAE J1349", "DIN 70020", "EEC 80/1269", "JIS D1001"};

} // namespace

ListChoice::ListChoice(const QString& label, std::span<const char* const> items, int index, QWidget* parent)
    : QDialog(parent), CalcCombo(new QComboBox) {
    CalcCombo->setObjectName(QStringLiteral("CalcCombo"));
    for (const char* item : items) CalcCombo->addItem(tr(item));
    CalcCombo->setCurrentIndex(index >= 0 && index < CalcCombo->count() ? index : -1);
    auto* words = new QLabel(label);
    words->setBuddy(CalcCombo);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    OkayCmd = buttons->button(QDialogButtonBox::Ok);
    OkayCmd->setObjectName(QStringLiteral("OkayCmd"));
    OkayCmd->setDefault(true);
    connect(OkayCmd, &QPushButton::clicked, this, [this] { OkayCmd_Click(); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(words);
    layout->addWidget(CalcCombo);
    layout->addSpacing(layout->spacing());
    layout->addStretch();
    layout->addWidget(buttons);
    setMinimumWidth(kWindowWidth);
}

int ListChoice::index() const {
    return CalcCombo->currentIndex();
}

FrmCalculusSetup::FrmCalculusSetup(VariableDefinition& row, QWidget* parent)
    : ListChoice(tr("Calc&ulus"), kCalculusItems, row.Calculus, parent), m_row(row) {
    setWindowTitle(tr("Calculus for %1").arg(row.BaseName));
}

void FrmCalculusSetup::OkayCmd_Click() {
    m_row.Calculus = index();
    accept();
}

CorrectionStandardChoice::CorrectionStandardChoice(VariableDefinition& row, QWidget* parent)
    : ListChoice(tr("Correction &standard"), kCorrectionStandards, row.Misc, parent), m_row(row) {
    setWindowTitle(tr("Correction standard for %1").arg(row.BaseName));
}

void CorrectionStandardChoice::OkayCmd_Click() {
    if (index() >= 0) m_row.Misc = static_cast<std::uint8_t>(index()); // a byte has no room for "none chosen"
    accept();
}

} // namespace vistor
