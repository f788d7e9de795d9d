#include "maths/frmCurveFit.h"

#include "maths/QtPointGrid.h"
#include "maths/QtThemedChart.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <QtCharts/QLineSeries>
#include <QtCharts/QScatterSeries>
#include <QtCharts/QValueAxis>

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

constexpr QSize kWindowSize(860, 540);
constexpr QSize kSmallestChart(380, 260);
constexpr int kGridWidth = 300;
constexpr double kMargin = 0.05; ///< of an axis, left free on either side

QList<QPointF> drawable(std::span<const FitPoint> points) {
    QList<QPointF> result;
    for (const FitPoint& point : points)
        if (isDrawable(point)) result += {point.x, point.y};
    return result;
}

/// Makes an axis hold all values, with round numbers at its tics.
void fitAxis(QValueAxis& axis, const QList<QPointF>& points, double (QPointF::*coordinate)() const) {
    if (points.isEmpty()) return axis.setRange(0, 1);
    double least = (points.first().*coordinate)();
    double most = least;
    for (const QPointF& point : points) {
        least = std::min(least, (point.*coordinate)());
        most = std::max(most, (point.*coordinate)());
    }
    double margin = (most - least) * kMargin;
    const double size = std::max(std::abs(least), std::abs(most));
    if (margin <= size * 1e-6) margin = size > 0 ? size * 0.1 : 1;
    axis.setRange(least - margin, most + margin);
    axis.applyNiceNumbers();
}

} // namespace

frmCurveFit::frmCurveFit(QWidget* parent)
    : QDialog(parent), grdInput(new QtPointGrid({tr("Input X (Volts)"), tr("Output Y")})) {
    setWindowTitle(tr("Curve fit"));
    grdInput->setObjectName(QStringLiteral("grdInput"));
    grdInput->setFixedWidth(kGridWidth);
    lblEquationLabel = new QLabel;
    lblEquationLabel->setObjectName(QStringLiteral("lblEquationLabel"));
    lblEquationLabel->setWordWrap(true);
    lblEquationLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lblEquationLabel->setMinimumHeight(2 * fontMetrics().lineSpacing());
    auto* body = new QHBoxLayout;
    body->addWidget(grdInput);
    body->addWidget(makeChart(), 1);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &frmCurveFit::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(body, 1);
    layout->addWidget(lblEquationLabel);
    layout->addWidget(buttons);
    resize(kWindowSize);
    makeMenu();
    connect(grdInput, &QtPointGrid::cellsChanged, this, &frmCurveFit::recalculate);
    grdInput->setFocus();
    recalculate();
}

QWidget* frmCurveFit::makeChart() {
    chtPolyFit = new QtThemedChart;
    chtPolyFit->setObjectName(QStringLiteral("chtPolyFit"));
    chtPolyFit->setMinimumSize(kSmallestChart);
    m_axisX = new QValueAxis;
    m_axisY = new QValueAxis;
    for (QValueAxis* axis : {m_axisX, m_axisY}) axis->setLabelFormat(QStringLiteral("%.6g"));
    m_curve = new QLineSeries;
    m_points = new QScatterSeries;
    chtPolyFit->addAxis(m_axisX, tr("Input X (Volts)"), Qt::AlignBottom);
    chtPolyFit->addAxis(m_axisY, tr("Output Y"), Qt::AlignLeft);
    chtPolyFit->addSeries(m_curve);
    chtPolyFit->addSeries(m_points);
    return chtPolyFit;
}

QAction* frmCurveFit::addEntry(const QString& name, const QString& words, const QKeySequence& keys,
                               void (frmCurveFit::*slot)()) {
    auto* entry = new QAction(words, this);
    entry->setObjectName(name);
    entry->setShortcut(keys);
    entry->setShortcutContext(Qt::WidgetShortcut);
    connect(entry, &QAction::triggered, this, slot);
    grdInput->addAction(entry);
    return entry;
}

void frmCurveFit::makeMenu() {
    grdInput->setContextMenuPolicy(Qt::ActionsContextMenu);
    mnuCut = addEntry(QStringLiteral("mnuCut"), tr("Cu&t"), QKeySequence::Cut, &frmCurveFit::mnuCut_Click);
    mnuCopy =
        addEntry(QStringLiteral("mnuCopy"), tr("&Copy"), QKeySequence::Copy, &frmCurveFit::mnuCopy_Click);
    mnuDelete = addEntry(QStringLiteral("mnuDelete"), tr("&Delete"), QKeySequence::Delete,
                         &frmCurveFit::mnuDelete_Click);
    mnuPaste =
        addEntry(QStringLiteral("mnuPaste"), tr("&Paste"), QKeySequence::Paste, &frmCurveFit::mnuPaste_Click);
}

void frmCurveFit::recalculate() {
    const std::vector<FitPoint> points = pointsOf(grdInput->cells());
    const CurveFit fit = fitCurve(points);
    lblEquationLabel->setText(fit.label);
    if (!fit.formula.isEmpty()) m_formula = fit.formula; // the last one stands while a table has none
    DrawGraph(points, fit);
}

void frmCurveFit::DrawGraph(std::span<const FitPoint> points, const CurveFit& fit) {
    const QList<QPointF> measured = points.size() > kMostPoints ? QList<QPointF>() : drawable(points);
    const QList<QPointF> curve = drawable(curvePoints(points, fit));
    fitAxis(*m_axisX, measured + curve, &QPointF::x);
    fitAxis(*m_axisY, measured + curve, &QPointF::y);
    m_points->replace(measured);
    m_curve->replace(curve);
}

frmCurveFit::~frmCurveFit() {
    stopListening();
}

/// From here on an entry box that is still open and commits when it is hidden changes nothing any more.
void frmCurveFit::stopListening() {
    disconnect(grdInput, nullptr, this, nullptr);
}

void frmCurveFit::reject() {
    stopListening();
    m_formula.clear();
    QDialog::reject();
}

void frmCurveFit::mnuCut_Click() {
    grdInput->copySelection();
    grdInput->deleteSelection();
}

void frmCurveFit::mnuCopy_Click() {
    grdInput->copySelection();
}

void frmCurveFit::mnuDelete_Click() {
    grdInput->deleteSelection();
}

void frmCurveFit::mnuPaste_Click() {
    grdInput->pasteAtCurrent();
}

} // namespace vistor
