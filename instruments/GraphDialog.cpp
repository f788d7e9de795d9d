#include "instruments/GraphDialog.h"

#include "instruments/ColourBox.h"
#include "instruments/NumberBox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace vistor {

GraphDialog::GraphDialog(const QString& title, QWidget* parent)
    : QDialog(parent), m_columns(new QHBoxLayout), m_problem(new QLabel) {
    setWindowTitle(title);
    (new QVBoxLayout(this))->addLayout(m_columns);
    addColumn();
}

void GraphDialog::addColumn() {
    m_columns->addLayout(new QVBoxLayout);
}

QFormLayout* GraphDialog::addGroup(const QString& title) {
    auto* box = new QGroupBox(title);
    m_columns->itemAt(m_columns->count() - 1)->layout()->addWidget(box);
    return new QFormLayout(box);
}

NumberBox* GraphDialog::addNumber(QFormLayout* group, const char* name, const QString& label, double value) {
    auto* box = new NumberBox;
    box->setNumber(value);
    connect(box, &QLineEdit::textChanged, m_problem, &QLabel::clear);
    box->setObjectName(QLatin1String(name));
    group->addRow(label, box);
    return box;
}

QComboBox* GraphDialog::addWords(QFormLayout* group, const char* name, const QString& label,
                                 std::span<const char* const> words, int value) {
    auto* list = new QComboBox;
    list->setObjectName(QLatin1String(name));
    for (const char* word : words) list->addItem(QLatin1String(word));
    list->setCurrentIndex(value >= 0 && value < list->count() ? value : -1);
    group->addRow(label, list);
    return list;
}

QCheckBox* GraphDialog::addCheck(QFormLayout* group, const char* name, const QString& label, bool value) {
    auto* check = new QCheckBox(label);
    check->setObjectName(QLatin1String(name));
    check->setChecked(value);
    group->addRow(check);
    return check;
}

ColourBox* GraphDialog::addColour(QFormLayout* group, const char* name, const QString& label,
                                  std::int32_t value) {
    auto* box = new ColourBox;
    box->setObjectName(QLatin1String(name));
    box->setColour(value);
    group->addRow(label, box);
    return box;
}

void GraphDialog::finish(const GraphColours& colours) {
    QFormLayout* group = addGroup(tr("Colours"));
    picBackCol = addColour(group, "picBackCol", tr("Background"), colours.back);
    picForeCol = addColour(group, "picForeCol", tr("Numbers"), colours.fore);
    picTraceCol = addColour(group, "picTraceCol", tr("Trace"), colours.trace);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Apply | QDialogButtonBox::Cancel);
    QPushButton* all = buttons->addButton(tr("All Properties..."), QDialogButtonBox::ActionRole);
    QPushButton* apply = buttons->button(QDialogButtonBox::Apply);
    apply->setObjectName(QStringLiteral("cmdApply"));
    connect(apply, &QPushButton::clicked, this, [this] { this->apply(Accepted); });
    connect(all, &QPushButton::clicked, this, [this] { this->apply(kAllProperties); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    m_problem->setObjectName(QStringLiteral("problem"));
    layout()->addWidget(m_problem);
    layout()->addWidget(buttons);
    apply->setDefault(true); // now that the window knows it
}

void GraphDialog::apply(int result) {
    if (stopsAtWrongNumber(*this, *m_problem)) return;
    cmdApply_Click();
    done(result);
}

GraphColours GraphDialog::colours() const {
    return {picBackCol->colour(), picForeCol->colour(), picTraceCol->colour()};
}

void GraphDialog::lockWhileChecked(QCheckBox* check, std::span<NumberBox* const> boxes) {
    for (NumberBox* box : boxes) {
        box->setDisabled(check->isChecked());
        connect(check, &QCheckBox::toggled, box, &QWidget::setDisabled);
    }
}

int wordIn(const QComboBox* list, int before) {
    return list->currentIndex() < 0 ? before : list->currentIndex();
}

double numberIn(const NumberBox* box, double before) {
    return box->number().value_or(before);
}

} // namespace vistor
