// The variable tree of the dashboard: filled from the working copy of the table, its lines edited. In: the
// person's clicks. Out: prompts and windows, the table, its file.
#include "dashboard/Pictures.h"
#include "dashboard/frmInterface.h"
#include "maths/FrmCalculusSetup.h"
#include "maths/frmFilterDesign.h"
#include "maths/frmVariableTransformation.h"
#include "variables/GlobalVarsAndTypes.h"
#include "variables/VariableEdits.h"
#include "variables/VariableTreeView.h"

#include <QLineEdit>
#include <QShortcut>

#include <algorithm>
#include <iterator>

namespace vistor {
namespace {

/// Opens a window on a row; true when the person agreed and the row was written.
using RowDialog = bool (*)(VariableDefinition& row, int number, QWidget* parent);

bool openTransformation(VariableDefinition& row, int number, QWidget* parent) {
    return frmVariableTransformation(row, number, parent).exec() == QDialog::Accepted;
}

/// The windows that know nothing but their row.
template <typename Window>
bool openOnRow(VariableDefinition& row, int, QWidget* parent) {
    return Window(row, parent).exec() == QDialog::Accepted;
}

/// The lines that open a window of their own. All others ask for a name or a number.
struct LineDialog {
    LineKind kind;
    RowDialog open;
};
constexpr LineDialog kLineDialogs[] = {
    {LineKind::Variable, openTransformation},
    {LineKind::Units, openTransformation},
    {LineKind::Filtering, openOnRow<frmFilterDesign>},
    {LineKind::Calculus, openOnRow<FrmCalculusSetup>},
    {LineKind::CorrectionStandard, openOnRow<CorrectionStandardChoice>},
};

/// Hands a copy of the row to the window, since events run while it is open.
std::optional<LineEdit> editByDialog(const LineDialog& dialog, int row, QWidget* parent) {
    if (!hasEditRow(row)) return std::nullopt;
    const auto place = static_cast<std::size_t>(row);
    VariableDefinition draft = VariableTableEdit[place];
    if (!dialog.open(draft, row, parent) || !hasEditRow(row)) return std::nullopt;
    const bool changed = draft != VariableTableEdit[place];
    VariableTableEdit[place] = std::move(draft);
    return LineEdit{changed, lineText(dialog.kind, VariableTableEdit[place])};
}

std::optional<LineEdit> edit(const TreeLine& line, QWidget* parent) {
    const auto* dialog = std::find_if(std::begin(kLineDialogs), std::end(kLineDialogs),
                                      [&](const LineDialog& d) { return d.kind == line.kind; });
    return dialog == std::end(kLineDialogs) ? editByPrompt(line.kind, line.row)
                                            : editByDialog(*dialog, line.row, parent);
}

} // namespace

void frmInterface::makeVariablePane() {
    VarTree->pictureOf = picture;
    connect(VarTree, &VariableTreeView::lineActivated, this, &frmInterface::editLine);
    connect(VarTree, &VariableTreeView::variableTouched, this,
            [this](const QString& variable) { DragVariableName = variable; });

    m_filter->setPlaceholderText(tr("Filter variables"));
    m_filter->setClearButtonEnabled(true);
    m_filter->addAction(picture("filter"), QLineEdit::LeadingPosition);
    connect(m_filter, &QLineEdit::textChanged, VarTree, &VariableTreeView::setFilter);
    const auto shortcut = [](QWidget* owner, const QKeySequence& keys, auto&& action) {
        QObject::connect(new QShortcut(keys, owner, nullptr, nullptr, Qt::WidgetWithChildrenShortcut),
                         &QShortcut::activated, owner, action);
    };
    shortcut(this, QKeySequence::Find, [this] {
        m_filter->setFocus(Qt::ShortcutFocusReason);
        m_filter->selectAll();
    });
    shortcut(m_filter, Qt::Key_Escape, [this] { m_filter->clear(); });
    shortcut(m_filter, Qt::Key_Down, [this] { VarTree->setFocus(Qt::TabFocusReason); });
    setTabOrder(m_filter, VarTree);
}

void frmInterface::placeVariablePane() {
    const QRect inner = VarPic->rect();
    const int height = qMin(m_filter->sizeHint().height(), inner.height());
    m_filter->setGeometry(inner.left(), inner.top(), inner.width(), height);
    VarTree->setGeometry(inner.adjusted(0, height, 0, 0));
}

void frmInterface::RegenerateVariableTree() {
    VarTree->setFont(treeFont());
    VarTree->showLines(variableTreeLines(VariableTableEdit), VariableTableEdit);
}

void frmInterface::takeVariableTable() {
    VariableTableEdit = VariableTable;
    m_keptRevision = tableRevision;
    RegenerateVariableTree();
}

void frmInterface::editLine(const TreeLine& line) {
    if (PlayMode) return;
    const auto result = edit(line, this);
    if (!result) return;
    if (!result->text.isEmpty()) VarTree->setLineText(line.key, result->text);
    if (!result->changed) return;
    commitVariableEdits();
    RegenerateVariableTree();
}

} // namespace vistor
