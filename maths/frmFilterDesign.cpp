#include "maths/frmFilterDesign.h"

#include "maths/QtThemedChart.h"
#include "maths/script/Conversions.h"
#include "variables/GlobalVarsAndTypes.h"
#include "variables/SetupVariables.h"

#include <QCursor>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QToolTip>
#include <QVBoxLayout>
#include <QtCharts/QCategoryAxis>
#include <QtCharts/QLineSeries>
#include <QtCharts/QValueAxis>

#include <cmath>

namespace vistor {
namespace {

constexpr QSize kWindowSize(840, 520);
constexpr QSize kSmallestChart(380, 280);
constexpr int kColumnWidth = 230;
constexpr int kSingleDigits = 7; ///< what a 32-bit number holds
constexpr double kHertzOfPlace = kFilterNyquist / 2;

struct Option {
    std::int32_t code;
    const char* words;
};
constexpr Option kModels[] = {
    {kButterworth, "Butterworth Filter"}, {kChebyshev, "Chebyshev Filter"}, {kNoFilter, "No Filter"}};
constexpr Option kTypes[] = {{kLowPass, "Low pass"}, {kHighPass, "High pass"}, {kBandPass, "Band pass"}};

struct Field {
    double FilterSettings::*value;
    const char* label;
};
constexpr Field kFields[] = {{&FilterSettings::highHz, "High corner  [Hz]"},
                             {&FilterSettings::lowHz, "Low corner  [Hz]"},
                             {&FilterSettings::order, "Filter order"},
                             {&FilterSettings::ripple, "Filter ripple  [dB]"}};
constexpr std::size_t kOrderBox = 2;

/// A number as the person's locale writes it.
QString boxText(double value) {
    QString text = QString::fromStdU16String(script::formatDouble(value, kSingleDigits));
    if (!DecimalSeparator.isEmpty()) text.replace(u'.', DecimalSeparator);
    return text;
}

QCategoryAxis* makeFrequencyAxis() {
    auto* axis = new QCategoryAxis;
    axis->setLabelsPosition(QCategoryAxis::AxisLabelsPositionOnValue);
    axis->setRange(0, 2);
    for (int hertz = 0; hertz <= kFilterNyquist; hertz += 10)
        axis->append(QString::number(hertz), hertz / kHertzOfPlace);
    return axis;
}

QValueAxis* makeHeightAxis() {
    auto* axis = new QValueAxis;
    axis->setRange(0, 1);
    axis->setTickCount(6);
    axis->setLabelFormat(QStringLiteral("%.1f"));
    return axis;
}

} // namespace

frmFilterDesign::frmFilterDesign(VariableDefinition& row, QWidget* parent) : QDialog(parent), m_row(row) {
    setWindowTitle(tr("Filter design for %1").arg(row.BaseName));
    auto* column = new QVBoxLayout;
    column->addWidget(makeModelFrame());
    column->addWidget(m_typeFrame = makeTypeFrame());
    column->addWidget(m_valuesFrame = makeValuesFrame());
    column->addStretch();
    auto* body = new QHBoxLayout;
    body->addLayout(column);
    body->addWidget(m_chartFrame = makeChartFrame(), 1);
    body->addWidget(m_noResponse = new QLabel(tr("Without a filter there is no response to show.")), 1);
    m_noResponse->setAlignment(Qt::AlignCenter);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    OkayButton = buttons->button(QDialogButtonBox::Ok);
    OkayButton->setObjectName(QStringLiteral("OkayButton"));
    OkayButton->setDefault(true);
    connect(OkayButton, &QPushButton::clicked, this, &frmFilterDesign::OkayButton_Click);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* note = new QLabel(
        tr("The filter is designed, drawn and kept with the variable. Samples do not pass through it."));
    note->setObjectName(QStringLiteral("note"));
    note->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(body, 1);
    layout->addWidget(note);
    layout->addWidget(buttons);
    resize(kWindowSize);
    Form_Load();
}

frmFilterDesign::~frmFilterDesign() {
    hide(); // a box that loses the focus now still finds its window whole
}

QGroupBox* frmFilterDesign::makeModelFrame() {
    auto* frame = new QGroupBox(tr("Filter model"));
    auto* layout = new QVBoxLayout(frame);
    for (std::size_t i = 0; i < std::size(kModels); ++i) {
        FilterModelOptions[i] = new QRadioButton(tr(kModels[i].words));
        FilterModelOptions[i]->setObjectName(QStringLiteral("FilterModelOptions%1").arg(i));
        layout->addWidget(FilterModelOptions[i]);
        connect(FilterModelOptions[i], &QRadioButton::clicked, this,
                [this, i] { FilterModelOptions_Click(kModels[i].code); });
    }
    return frame;
}

QGroupBox* frmFilterDesign::makeTypeFrame() {
    auto* frame = new QGroupBox(tr("Filter type"));
    auto* layout = new QVBoxLayout(frame);
    for (std::size_t i = 0; i < std::size(kTypes); ++i) {
        FilterTypeOptions[i] = new QRadioButton(tr(kTypes[i].words));
        FilterTypeOptions[i]->setObjectName(QStringLiteral("FilterTypeOptions%1").arg(i));
        layout->addWidget(FilterTypeOptions[i]);
        connect(FilterTypeOptions[i], &QRadioButton::clicked, this,
                [this, i] { FilterTypeOptions_Click(kTypes[i].code); });
    }
    return frame;
}

QGroupBox* frmFilterDesign::makeValuesFrame() {
    auto* frame = new QGroupBox(tr("Settings"));
    frame->setFixedWidth(kColumnWidth);
    auto* layout = new QFormLayout(frame);
    layout->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    for (std::size_t i = 0; i < std::size(kFields); ++i) {
        InputText[i] = new QLineEdit;
        InputText[i]->setObjectName(QStringLiteral("InputText%1").arg(i));
        InputText[i]->setAlignment(Qt::AlignRight);
        InputText[i]->installEventFilter(this);
        layout->addRow(tr(kFields[i].label), InputText[i]);
        connect(InputText[i], &QLineEdit::editingFinished, this, &frmFilterDesign::RegenScreen);
    }
    m_hint = new QLabel;
    m_hint->setObjectName(QStringLiteral("hint"));
    m_hint->setWordWrap(true);
    m_hint->setMinimumHeight(2 * m_hint->fontMetrics().lineSpacing());
    m_hint->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    layout->addRow(m_hint);
    return frame;
}

QGroupBox* frmFilterDesign::makeChartFrame() {
    auto* frame = new QGroupBox(tr("Response"));
    MSChart1 = new QtThemedChart;
    MSChart1->setObjectName(QStringLiteral("MSChart1"));
    MSChart1->setMinimumSize(kSmallestChart);
    m_response = new QLineSeries;
    MSChart1->addAxis(makeFrequencyAxis(), tr("Frequency (0Hz to 50Hz)"), Qt::AlignBottom);
    MSChart1->addAxis(makeHeightAxis(), tr("10 to the power of the response in dB"), Qt::AlignLeft);
    MSChart1->addSeries(m_response);
    connect(m_response, &QLineSeries::hovered, this, &frmFilterDesign::tellPoint);
    auto* layout = new QVBoxLayout(frame);
    layout->addWidget(MSChart1);
    return frame;
}

void frmFilterDesign::Form_Load() {
    m_settings = filterSettingsOf(m_row);
    for (std::size_t i = 0; i < std::size(kModels); ++i)
        if (kModels[i].code == m_settings.model) FilterModelOptions[i]->setChecked(true);
    for (std::size_t i = 0; i < std::size(kTypes); ++i)
        if (kTypes[i].code == m_settings.type) FilterTypeOptions[i]->setChecked(true);
    writeBoxes();
    ShowRelevantOptions();
    RegenScreen();
}

void frmFilterDesign::ShowRelevantOptions() {
    const bool filter = m_settings.model != kNoFilter;
    m_typeFrame->setVisible(filter);
    m_chartFrame->setVisible(filter);
    m_noResponse->setVisible(!filter);
    m_valuesFrame->setEnabled(filter);
}

void frmFilterDesign::RegenScreen() {
    readBoxes();
    clampFilterSettings(m_settings);
    InputText[kOrderBox]->setEnabled(!takesOrderTwoOnly(m_settings));
    writeBoxes();
    showHint();
    OkayButton->setEnabled(isDesigned());
    QList<QPointF> points;
    if (hasBand(m_settings))
        for (const ResponsePoint& point : responseTable(m_settings)) points += {point.place, point.height};
    m_response->replace(points);
}

bool frmFilterDesign::isDesigned() const {
    return m_settings.model == kNoFilter || hasBand(m_settings);
}

void frmFilterDesign::readBoxes() {
    for (std::size_t i = 0; i < std::size(kFields); ++i)
        m_settings.*kFields[i].value = ParseNumber(InputText[i]->text());
}

void frmFilterDesign::writeBoxes() {
    for (std::size_t i = 0; i < std::size(kFields); ++i)
        InputText[i]->setText(boxText(m_settings.*kFields[i].value));
}

void frmFilterDesign::showHint() {
    QString words;
    if (takesOrderTwoOnly(m_settings)) words = tr("A corner below 5 Hz takes order 2 only.");
    if (!isDesigned()) words = tr("The high corner has to lie above the low corner.");
    m_hint->setText(m_settings.model == kNoFilter ? QString() : words);
}

void frmFilterDesign::tellPoint(const QPointF& point, bool over) {
    if (!over || point.y() <= 0) return QToolTip::hideText();
    QToolTip::showText(
        QCursor::pos(),
        tr("%1 Hz: %2 dB").arg(point.x() * kHertzOfPlace, 0, 'f', 1).arg(std::log10(point.y()), 0, 'f', 2),
        MSChart1);
}

void frmFilterDesign::FilterModelOptions_Click(std::int32_t model) {
    m_settings.model = model;
    ShowRelevantOptions();
    RegenScreen();
}

void frmFilterDesign::FilterTypeOptions_Click(std::int32_t type) {
    m_settings.type = type;
    ShowRelevantOptions();
    RegenScreen();
}

bool frmFilterDesign::eventFilter(QObject* watched, QEvent* event) {
    auto* box = qobject_cast<QLineEdit*>(watched);
    if (!box || event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
    InputText_KeyPress(*box);
    return true; // it does not press the default button
}

void frmFilterDesign::InputText_KeyPress(QLineEdit& box) {
    RegenScreen();
    box.selectAll();
}

void frmFilterDesign::OkayButton_Click() {
    RegenScreen(); // what was typed last may not have been looked at yet
    if (!isDesigned()) return;
    storeFilterSettings(m_settings, m_row);
    accept();
}

} // namespace vistor
