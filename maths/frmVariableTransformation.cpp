#include "maths/frmVariableTransformation.h"

#include "maths/ConvertUnits.h"
#include "maths/frmCurveFit.h"
#include "platform/Events.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTextDocument>
#include <QVBoxLayout>

namespace vistor {
namespace {

constexpr int kStandard = 0;
constexpr int kCustom = 1;
constexpr int kIndent = 22;             ///< pixels that the fields of an option stand in
constexpr int kTextRole = Qt::UserRole; ///< what a grid's row inserts
constexpr int kLinesShown = 9;          ///< of a formula over several lines

template <typename Widget>
Widget* named(Widget* widget, const char* name) {
    widget->setObjectName(QLatin1String(name));
    return widget;
}

QTableWidgetItem* cell(const QString& text, const QString& inserted) {
    auto* item = new QTableWidgetItem(text);
    item->setData(kTextRole, inserted);
    item->setToolTip(text.trimmed());
    return item;
}

void addRow(QTableWidget* grid, const QString& token, const QString& help, const QString& inserted) {
    const int row = grid->rowCount();
    grid->insertRow(row);
    grid->setItem(row, 0, cell(token, inserted));
    grid->setItem(row, 1, cell(help, inserted));
}

bool isEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

QVBoxLayout* columnOf(const QString& title, QWidget* buddy) {
    auto* column = new QVBoxLayout;
    auto* label = new QLabel(title);
    label->setBuddy(buddy);
    column->addWidget(label);
    return column;
}

} // namespace

frmVariableTransformation::frmVariableTransformation(VariableDefinition& row, int number, QWidget* parent)
    : QDialog(parent), m_row(row), m_number(number), m_before(draftOf(row)), m_offered(offeredVariables()) {
    setObjectName(QStringLiteral("frmVariableTransformation"));
    auto* column = new QVBoxLayout(this);
    column->addWidget(makeOptions());
    column->addWidget(makeFormula());
    column->addWidget(makeGrids(), 1);
    column->addWidget(makeButtons());
    Form_Load();
    connectFields();
    showOption();
    showLines();
    resize(960, 640);
}

QWidget* frmVariableTransformation::makeOptions() {
    auto* box = new QWidget;
    Option1[kStandard] = named(new QRadioButton(tr("&Standard conversion")), "Option10");
    Option1[kCustom] = named(new QRadioButton(tr("Cus&tom formula")), "Option11");
    StandardTransCombo = named(new QComboBox, "StandardTransCombo");
    StandardTransCombo->setMinimumContentsLength(24);
    m_unit = named(new QLabel, "UnitLabel");
    m_unit->setTextFormat(Qt::PlainText);
    auto* grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(Option1[kStandard], 0, 0);
    grid->addWidget(StandardTransCombo, 0, 1);
    grid->addWidget(m_unit, 0, 2);
    grid->addWidget(Option1[kCustom], 1, 0);
    grid->setColumnStretch(3, 1);
    grid->setHorizontalSpacing(12);
    return box;
}

QWidget* frmVariableTransformation::makeFormula() {
    auto* box = new QWidget;
    UserFunctionTxt = named(new QPlainTextEdit, "UserFunctionTxt");
    UserFunctionTxt->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    UserFunctionTxt->setTabChangesFocus(true);
    UserFunctionTxt->installEventFilter(this);
    ShowMultiLinesChk = named(new QCheckBox(tr("Show &multiple lines")), "ShowMultiLinesChk");
    EnterAsTableBtn = named(new QPushButton(tr("Enter as ta&ble...")), "EnterAsTableBtn");
    EnterAsTableBtn->setAutoDefault(false);
    UserUnits = named(new QLineEdit, "UserUnits");
    UserUnits->setMaximumWidth(140);
    auto* unitsLabel = new QLabel(tr("&Units"));
    unitsLabel->setBuddy(UserUnits);

    auto* line = new QHBoxLayout;
    line->addWidget(unitsLabel);
    line->addWidget(UserUnits);
    line->addWidget(ShowMultiLinesChk);
    line->addWidget(EnterAsTableBtn);
    line->addStretch();
    line->addWidget(new QLabel(tr("Note: must use \".\" as decimal seperator")));
    auto* column = new QVBoxLayout(box);
    column->setContentsMargins(kIndent, 0, 0, 6);
    column->addWidget(UserFunctionTxt);
    column->addLayout(line);
    return box;
}

QTableWidget* frmVariableTransformation::makeGrid(const char* name, const char* widest) {
    auto* grid = named(new QTableWidget(0, 2), name);
    grid->horizontalHeader()->hide();
    grid->horizontalHeader()->setStretchLastSection(true);
    grid->verticalHeader()->hide();
    grid->verticalHeader()->setDefaultSectionSize(grid->fontMetrics().height() + 6);
    grid->setShowGrid(false);
    grid->setAlternatingRowColors(true);
    grid->setWordWrap(false);
    grid->setTabKeyNavigation(false);
    grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    grid->setSelectionMode(QAbstractItemView::SingleSelection);
    grid->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    grid->setColumnWidth(0, grid->fontMetrics().horizontalAdvance(QLatin1String(widest)) + 20);
    grid->installEventFilter(this);
    connect(grid, &QTableWidget::cellDoubleClicked, this,
            [this, grid](int row, int) { insertItem(grid->item(row, 0)->data(kTextRole).toString()); });
    connect(grid, &QTableWidget::currentItemChanged, this, [this, grid] { showHelp(*grid); });
    return grid;
}

QWidget* frmVariableTransformation::makeVariables() {
    auto* box = new QWidget;
    MSFlexGridVarNames = makeGrid("MSFlexGridVarNames", "VAR_0000");
    m_words = named(new QLineEdit, "VariableFilter");
    m_words->setPlaceholderText(tr("Find a variable"));
    m_words->setClearButtonEnabled(true);
    m_words->installEventFilter(this);
    m_group = named(new QComboBox, "VariableGroup");
    m_group->addItems(groupEntries());
    auto* line = new QHBoxLayout;
    line->addWidget(m_words, 1);
    line->addWidget(m_group);
    QVBoxLayout* column = columnOf(tr("&Variables"), m_words);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(line);
    column->addWidget(MSFlexGridVarNames, 1);
    box->setLayout(column);
    return box;
}

QWidget* frmVariableTransformation::makeGrids() {
    auto* box = new QWidget;
    m_help = named(new QLabel, "HelpLabel");
    m_help->setTextFormat(Qt::PlainText);
    QWidget* variables = makeVariables();
    MSFlexGridConstants = makeGrid("MSFlexGridConstants", "CAR_10");
    MathFunctGrid = makeGrid("MathFunctGrid", "INTPOW");
    QVBoxLayout* constants = columnOf(tr("Co&nstants"), MSFlexGridConstants);
    constants->addWidget(MSFlexGridConstants, 1);
    QVBoxLayout* functions = columnOf(tr("Operators and &functions"), MathFunctGrid);
    functions->addWidget(MathFunctGrid, 1);
    auto* row = new QHBoxLayout;
    row->addWidget(variables, 5);
    row->addLayout(constants, 4);
    row->addLayout(functions, 5);
    auto* column = new QVBoxLayout(box);
    column->setContentsMargins(kIndent, 0, 0, 0);
    column->addLayout(row, 1);
    column->addWidget(m_help);
    return box;
}

QWidget* frmVariableTransformation::makeButtons() {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    OkCmd = named(buttons->button(QDialogButtonBox::Ok), "OkCmd");
    connect(OkCmd, &QPushButton::clicked, this, &frmVariableTransformation::OkCmd_Click);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return buttons;
}

void frmVariableTransformation::Form_Load() {
    Option1[m_before.custom ? kCustom : kStandard]->setChecked(true);
    for (const QString& key : standardConversions(m_row)) StandardTransCombo->addItem(key, key);
    StandardTransCombo->setCurrentIndex(m_before.standard);
    UserFunctionTxt->setPlainText(m_before.formula);
    UserFunctionTxt->moveCursor(QTextCursor::End);
    m_shown = UserFunctionTxt->toPlainText();
    UserUnits->setText(m_before.units);
    m_lineCount = UserFunctionTxt->blockCount();
    ShowMultiLinesChk->setChecked(m_lineCount > 1 || formOf(m_before.formula) == FormulaForm::Script);
    for (const OfferedVariable& variable : m_offered)
        addRow(MSFlexGridVarNames, variable.token, variable.name, variable.token);
    for (const FormulaItem& item : formulaConstants())
        addRow(MSFlexGridConstants, QLatin1String(item.token), QLatin1String(item.help),
               QLatin1String(item.token));
    for (const FormulaItem& item : formulaFunctions())
        addRow(MathFunctGrid, QLatin1String(item.token), QLatin1String(item.help),
               insertedText(QLatin1String(item.token)));
    (m_before.custom ? static_cast<QWidget*>(UserFunctionTxt) : StandardTransCombo)->setFocus();
}

void frmVariableTransformation::connectFields() {
    connect(Option1[kCustom], &QRadioButton::toggled, this, &frmVariableTransformation::showOption);
    connect(StandardTransCombo, &QComboBox::currentIndexChanged, this,
            &frmVariableTransformation::StandardTransCombo_Change);
    connect(StandardTransCombo, &QComboBox::activated, this,
            [this] { Option1[kStandard]->setChecked(true); });
    connect(UserFunctionTxt, &QPlainTextEdit::textChanged, this,
            &frmVariableTransformation::UserFunctionTxt_Change);
    connect(UserUnits, &QLineEdit::textChanged, this, [this] { Option1[kCustom]->setChecked(true); });
    connect(ShowMultiLinesChk, &QCheckBox::toggled, this, &frmVariableTransformation::showLines);
    connect(EnterAsTableBtn, &QPushButton::clicked, this, &frmVariableTransformation::EnterAsTableBtn_Click);
    connect(m_words, &QLineEdit::textChanged, this, &frmVariableTransformation::narrowVariables);
    connect(m_group, &QComboBox::currentIndexChanged, this, &frmVariableTransformation::narrowVariables);
}

void frmVariableTransformation::showOption() {
    setWindowTitle(transformationTitle(m_row, Option1[kCustom]->isChecked()));
    StandardTransCombo_Change();
}

void frmVariableTransformation::StandardTransCombo_Change() {
    const int chosen = StandardTransCombo->currentIndex();
    const bool custom = Option1[kCustom]->isChecked();
    for (int i = 0; i < StandardTransCombo->count(); ++i) {
        const QString key = StandardTransCombo->itemData(i).toString();
        StandardTransCombo->setItemText(i, custom && i == chosen ? notApplied(key) : key);
    }
    m_unit->setText(chosen < 0 ? QString() : unitCaption(StandardTransCombo->itemData(chosen).toString()));
}

/// One line, or as many as a script needs to be read.
void frmVariableTransformation::showLines() {
    const bool several = ShowMultiLinesChk->isChecked();
    const int lines = several ? kLinesShown : 1;
    const int margins =
        2 * (UserFunctionTxt->frameWidth() + static_cast<int>(UserFunctionTxt->document()->documentMargin()));
    UserFunctionTxt->setFixedHeight(lines * UserFunctionTxt->fontMetrics().lineSpacing() + margins + 2);
    UserFunctionTxt->setLineWrapMode(several ? QPlainTextEdit::WidgetWidth : QPlainTextEdit::NoWrap);
    const auto bars = several ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff;
    UserFunctionTxt->setVerticalScrollBarPolicy(bars);
    UserFunctionTxt->setHorizontalScrollBarPolicy(bars);
    UserFunctionTxt->ensureCursorVisible();
}

void frmVariableTransformation::narrowVariables() {
    for (std::size_t i = 0; i < m_offered.size(); ++i)
        MSFlexGridVarNames->setRowHidden(static_cast<int>(i),
                                         !isOffered(m_offered[i], m_group->currentIndex(), m_words->text()));
}

/// Onto the first variable that is left, since a hidden one could be current.
void frmVariableTransformation::goToVariables() {
    int row = 0;
    while (row < MSFlexGridVarNames->rowCount() && MSFlexGridVarNames->isRowHidden(row)) ++row;
    if (row == MSFlexGridVarNames->rowCount()) return;
    MSFlexGridVarNames->setCurrentCell(row, 0);
    MSFlexGridVarNames->setFocus();
}

void frmVariableTransformation::insertItem(const QString& text) {
    UserFunctionTxt->insertPlainText(text);
    UserFunctionTxt->setFocus();
}

void frmVariableTransformation::showHelp(const QTableWidget& grid) {
    const QTableWidgetItem* help = grid.item(grid.currentRow(), 1);
    m_help->setText(help ? help->text() : QString());
}

void frmVariableTransformation::UserFunctionTxt_Change() {
    Option1[kCustom]->setChecked(true);
    const int lines = UserFunctionTxt->blockCount();
    if (m_lineCount == 1 && lines > 1) ShowMultiLinesChk->setChecked(true);
    m_lineCount = lines;
}

void frmVariableTransformation::EnterAsTableBtn_Click() {
    frmCurveFit window(this);
    window.exec();
    if (window.formulaText().isEmpty()) return;
    UserFunctionTxt->selectAll();
    insertItem(window.formulaText());
}

TransformationDraft frmVariableTransformation::draft() const {
    // A text that nobody touched goes back as it came; the lines of another end as files have them.
    const QString text = UserFunctionTxt->toPlainText();
    return {Option1[kCustom]->isChecked(), StandardTransCombo->currentIndex(),
            text == m_shown ? m_before.formula : QString(text).replace(u'\n', QStringLiteral("\r\n")),
            UserUnits->text()};
}

void frmVariableTransformation::OkCmd_Click() {
    const bool shown = isVisible();
    DoLocalEvents();
    if (shown && !isVisible()) return; // cancelled in one of them
    if (storeTransformation(draft(), m_number, m_row)) return accept();
    UserFunctionTxt->setFocus();
}

void frmVariableTransformation::DoLocalEvents() {
    DoEvents();
}

bool frmVariableTransformation::eventFilter(QObject* watched, QEvent* event) {
    auto* grid = qobject_cast<QTableWidget*>(watched);
    if (grid && event->type() == QEvent::FocusIn) showHelp(*grid);
    if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (watched == m_words) {
        if (key.key() != Qt::Key_Down && !isEnter(key)) return false;
        goToVariables();
        return true;
    }
    if (!isEnter(key)) return QDialog::eventFilter(watched, event);
    if (watched == UserFunctionTxt) {
        if (ShowMultiLinesChk->isChecked() && !(key.modifiers() & Qt::ControlModifier)) return false;
        OkCmd->click();
        return true;
    }
    if (!grid) return QDialog::eventFilter(watched, event);
    const QTableWidgetItem* item = grid->currentItem();
    if (item && !grid->isRowHidden(item->row())) insertItem(item->data(kTextRole).toString());
    return true;
}

} // namespace vistor
