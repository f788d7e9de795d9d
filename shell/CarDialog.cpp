#include "shell/CarDialog.h"

#include "instruments/NumberBox.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace vistor {
namespace {

constexpr std::size_t kCarFrom = 1;       ///< of the settings: air drag, rolling resistance, mass
constexpr std::size_t kConstantsFrom = 4; ///< those for formulas
constexpr int kBoxWidth = 100;

QLabel* makeHint(const QString& words) {
    auto* hint = new QLabel(words);
    hint->setWordWrap(true);
    return hint;
}

} // namespace

CarDialog::CarDialog(QWidget* parent) : QDialog(parent), m_problem(new QLabel) {
    setWindowTitle(tr("Car"));
    m_problem->setObjectName(QStringLiteral("problem"));
    m_problem->setWordWrap(true);
    auto* column = new QVBoxLayout(this);
    column->addWidget(makeEngine());
    column->addWidget(makeCar());
    column->addWidget(makeConstants());
    column->addWidget(m_problem);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &CarDialog::takeEntries);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    const CarNumbers numbers = readCarNumbers();
    for (std::size_t i = 0; i < kCarSettings; ++i) m_boxes[i]->setNumber(numbers[i]);
    m_boxes.front()->setFocus();
    m_boxes.front()->selectAll();
}

void CarDialog::addBox(QGridLayout& grid, std::size_t setting, int row, int column) {
    const CarSetting& shown = carSettings()[setting];
    auto* box = new NumberBox;
    box->setObjectName(QLatin1String(shown.key));
    box->setBounds(shown.low, shown.high);
    box->letBeEmpty(setting > 0); // formulas take 0 then; for the pulses there is no such number
    if (setting > 0) box->setPlaceholderText(QStringLiteral("0"));
    box->setFixedWidth(kBoxWidth);
    connect(box, &QLineEdit::textChanged, m_problem, &QLabel::clear);
    m_boxes[setting] = box;
    const QString name = QLatin1String(shown.name);
    const QString caption = QString::fromUtf8(shown.caption);
    auto* label = new QLabel(name.isEmpty() ? caption : QStringLiteral("%1 (%2)").arg(caption, name));
    label->setBuddy(box);
    grid.addWidget(label, row, column);
    grid.addWidget(box, row, column + 1);
    grid.addWidget(new QLabel(QString::fromUtf8(shown.unit)), row, column + 2);
}

QWidget* CarDialog::makeEngine() {
    auto* group = new QGroupBox(tr("Engine"));
    auto* grid = new QGridLayout(group);
    addBox(*grid, 0, 0);
    grid->addWidget(
        makeHint(
            tr("What the logger counts in one turn of the engine. A four-stroke engine has half as many as "
               "cylinders: 2 with four of them.")),
        1, 0, 1, 3);
    grid->setColumnStretch(2, 1);
    return group;
}

QWidget* CarDialog::makeCar() {
    auto* group = new QGroupBox(tr("Car"));
    auto* grid = new QGridLayout(group);
    for (std::size_t setting = kCarFrom; setting < kConstantsFrom; ++setting)
        addBox(*grid, setting, static_cast<int>(setting));
    grid->addWidget(makeHint(tr("Air is taken at 30 °C (Temp), 101 kPa (Press) and 0 % humidity (Humid).")),
                    static_cast<int>(kConstantsFrom), 0, 1, 3);
    grid->setColumnStretch(2, 1);
    return group;
}

QWidget* CarDialog::makeConstants() {
    constexpr std::size_t kRows = 5;
    auto* group = new QGroupBox(tr("Your own numbers for formulas"));
    auto* grid = new QGridLayout(group);
    for (std::size_t setting = kConstantsFrom; setting < kCarSettings; ++setting) {
        const std::size_t place = setting - kConstantsFrom;
        addBox(*grid, setting, static_cast<int>(place % kRows), static_cast<int>(place / kRows) * 3);
    }
    grid->setColumnStretch(2, 1);
    return group;
}

void CarDialog::takeEntries() {
    if (stopsAtWrongNumber(*this, *m_problem)) return;
    CarNumbers numbers = readCarNumbers();
    for (std::size_t i = 0; i < kCarSettings; ++i) {
        const bool emptied = numbers[i] && m_boxes[i]->text().trimmed().isEmpty();
        const bool measured = i < kConstantsFrom;
        numbers[i] = m_boxes[i]->number();
        if (!numbers[i] && (emptied || measured)) numbers[i] = 0;
    }
    const QString problem = writeCarNumbers(numbers);
    if (!problem.isEmpty()) {
        m_problem->setText(tr("%1 cannot be written: %2.").arg(carFile(), problem));
        return;
    }
    takeCarNumbers();
    accept();
}

} // namespace vistor
