// The window in which a variable's filter is designed and its response seen. In and out: the five filter
// fields of a row, which OK writes and Cancel leaves as they were.
#pragma once

#include "maths/FilterSettings.h"

#include <QDialog>

class QGroupBox;
class QLabel;
class QLineEdit;
class QLineSeries;
class QPushButton;
class QRadioButton;

namespace vistor {

class QtThemedChart;

/// Modal: `frmFilterDesign(row, parent).exec()` is QDialog::Accepted when the row was written. The row must
/// outlive the window.
class frmFilterDesign final : public QDialog {
    Q_OBJECT

public:
    explicit frmFilterDesign(VariableDefinition& row, QWidget* parent = nullptr);
    ~frmFilterDesign() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QGroupBox* makeModelFrame();
    QGroupBox* makeTypeFrame();
    QGroupBox* makeValuesFrame();
    QGroupBox* makeChartFrame();
    void Form_Load();
    void ShowRelevantOptions();
    void RegenScreen();
    void FilterModelOptions_Click(std::int32_t model);
    void FilterTypeOptions_Click(std::int32_t type);
    void InputText_KeyPress(QLineEdit& box);
    void OkayButton_Click();
    bool isDesigned() const; ///< without a filter always
    void readBoxes();
    void writeBoxes();
    void showHint();
    void tellPoint(const QPointF& point, bool over);

    VariableDefinition& m_row;
    FilterSettings m_settings;
    QRadioButton* FilterModelOptions[3] = {};
    QRadioButton* FilterTypeOptions[3] = {};
    QLineEdit* InputText[4] = {}; ///< 0 high corner, 1 low corner, 2 order, 3 ripple
    QtThemedChart* MSChart1 = nullptr;
    QPushButton* OkayButton = nullptr;
    QGroupBox* m_typeFrame = nullptr;
    QGroupBox* m_valuesFrame = nullptr;
    QGroupBox* m_chartFrame = nullptr;
    QLabel* m_noResponse = nullptr; ///< stands where the chart does when there is no filter
    QLabel* m_hint = nullptr;
    QLineSeries* m_response = nullptr;
};

} // namespace vistor
