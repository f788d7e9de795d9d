// The windows in which one of a few modes of a variable is chosen: its calculus, and the standard by which
// power is corrected. In and out: one field of a row, which OK writes and Cancel leaves as it was.
#pragma once

#include <QDialog>

#include <span>

class QComboBox;
class QPushButton;

namespace vistor {

struct VariableDefinition;

/// A list of words under a label. Nothing is selected when the index lies outside the list.
class ListChoice : public QDialog {
    Q_OBJECT

public:
    /// The item chosen, -1: none.
    int index() const;

protected:
    ListChoice(const QString& label, std::span<const char* const> items, int index, QWidget* parent);
    virtual void OkayCmd_Click() = 0; ///< stores what is chosen and closes

    QComboBox* CalcCombo = nullptr;
    QPushButton* OkayCmd = nullptr;
};

/// Modal: `FrmCalculusSetup(row, parent).exec()` is QDialog::Accepted when `Calculus` of the row was written.
/// The row must outlive the window.
class FrmCalculusSetup final : public ListChoice {
    Q_OBJECT

public:
    explicit FrmCalculusSetup(VariableDefinition& row, QWidget* parent = nullptr);

private:
    void OkayCmd_Click() override;

    VariableDefinition& m_row;
};

/// The same for the correction standard in `Misc`, 0 to 4. It has no effect on samples.
class CorrectionStandardChoice final : public ListChoice {
    Q_OBJECT

public:
    explicit CorrectionStandardChoice(VariableDefinition& row, QWidget* parent = nullptr);

private:
    void OkayCmd_Click() override;

    VariableDefinition& m_row;
};

} // namespace vistor
