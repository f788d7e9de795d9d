// The window that turns a table of measured points into the formula of a polynomial. In: what is typed and
// pasted into its grid. Out: the formula's text, for the window that opened it.
#pragma once

#include "maths/CurveFit.h"

#include <QDialog>

class QAction;
class QLabel;
class QPushButton;
class QLineSeries;
class QScatterSeries;
class QValueAxis;

namespace vistor {

class QtPointGrid;
class QtThemedChart;

/// Modal, a new one for each opening: `frmCurveFit window(parent); window.exec();`, then formulaText() is
/// what to take over, if it is not empty.
class frmCurveFit final : public QDialog {
    Q_OBJECT

public:
    explicit frmCurveFit(QWidget* parent = nullptr);
    ~frmCurveFit() override;

    /// The formula that was last built, in "x"; empty when there was none or the window was cancelled.
    const QString& formulaText() const { return m_formula; }

    void reject() override;

private:
    void stopListening();
    void makeMenu();
    QWidget* makeChart();
    QAction* addEntry(const QString& name, const QString& words, const QKeySequence& keys,
                      void (frmCurveFit::*slot)());
    void recalculate();
    void DrawGraph(std::span<const FitPoint> points, const CurveFit& fit);
    void mnuCut_Click();
    void mnuCopy_Click();
    void mnuDelete_Click();
    void mnuPaste_Click();

    QtPointGrid* grdInput = nullptr;
    QtThemedChart* chtPolyFit = nullptr;
    QLabel* lblEquationLabel = nullptr;
    QAction* mnuCut = nullptr;
    QAction* mnuCopy = nullptr;
    QAction* mnuDelete = nullptr;
    QAction* mnuPaste = nullptr;
    QScatterSeries* m_points = nullptr;
    QLineSeries* m_curve = nullptr;
    QValueAxis* m_axisX = nullptr;
    QValueAxis* m_axisY = nullptr;
    QString m_formula;
};

} // namespace vistor
