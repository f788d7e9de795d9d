// The window in which a variable's conversion is set: one of the conversions that the variable allows, or a
// formula with a unit of its own. In and out: the conversion fields of a row, which OK writes and Cancel
// leaves as they were.
#pragma once

#include "maths/Transformation.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QTableWidget;

namespace vistor {

/// Modal: `frmVariableTransformation(row, number, parent).exec()` is QDialog::Accepted when the row was
/// written. The row must outlive the window.
class frmVariableTransformation final : public QDialog {
    Q_OBJECT

public:
    frmVariableTransformation(VariableDefinition& row, int number, QWidget* parent = nullptr);

    /// Lets pending events of windows run.
    void DoLocalEvents();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* makeOptions();
    QWidget* makeFormula();
    QWidget* makeGrids();
    QWidget* makeVariables();
    QTableWidget* makeGrid(const char* name, const char* widest);
    QWidget* makeButtons();
    void connectFields();
    void Form_Load();
    void showOption();
    void showLines();
    void narrowVariables();
    void goToVariables();
    void insertItem(const QString& text);
    void showHelp(const QTableWidget& grid);
    void StandardTransCombo_Change();
    void UserFunctionTxt_Change();
    void EnterAsTableBtn_Click();
    void OkCmd_Click();
    TransformationDraft draft() const;

    VariableDefinition& m_row;
    const int m_number;
    const TransformationDraft m_before;
    std::vector<OfferedVariable> m_offered;

    QRadioButton* Option1[2] = {}; ///< 0 standard, 1 custom
    QComboBox* StandardTransCombo = nullptr;
    QLabel* m_unit = nullptr;
    QPlainTextEdit* UserFunctionTxt = nullptr;
    QCheckBox* ShowMultiLinesChk = nullptr;
    QPushButton* EnterAsTableBtn = nullptr;
    QLineEdit* UserUnits = nullptr;
    QLineEdit* m_words = nullptr;
    QComboBox* m_group = nullptr;
    QTableWidget* MSFlexGridVarNames = nullptr;
    QTableWidget* MSFlexGridConstants = nullptr;
    QTableWidget* MathFunctGrid = nullptr;
    QLabel* m_help = nullptr;
    QPushButton* OkCmd = nullptr;
    QString m_shown; ///< the formula as its box gave it back at first
    int m_lineCount = 1;
};

} // namespace vistor
