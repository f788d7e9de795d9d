#include "instruments/frmProperties.h"

#include "instruments/InstrumentFrame.h"
#include "platform/IniFile.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScreen>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace vistor {
namespace {

const QString kSection = QStringLiteral("VXVISTOR");
const QString kLeft = QStringLiteral("PROPERTYWINDOWLEFT");
const QString kTop = QStringLiteral("PROPERTYWINDOWTOP");
const QString kWidth = QStringLiteral("PROPERTYWINDOWWIDTH");
const QString kHeight = QStringLiteral("PROPERTYWINDOWHEIGHT");
constexpr int kBuffer = 20;
constexpr int kAway = 40; ///< logical pixels from the screen's corner
constexpr QSize kSmallest(120, 80);

/// A key in twips, as logical pixels.
int pixelsIn(const IniFile& file, const QString& key, int fallbackPixels) {
    const QString fallback = QString::number(fallbackPixels * kTwipsPerPixel);
    return toPixels(leadingNumber(file.value(kSection, key, fallback, kBuffer)));
}

/// Inside the screen that holds most of it, or else the first one.
QRect onScreen(const QRect& wanted) {
    const QScreen* screen = QGuiApplication::screenAt(wanted.center());
    if (screen == nullptr) screen = QGuiApplication::primaryScreen();
    const QRect room = screen->availableGeometry();
    QRect place(wanted.topLeft(), wanted.size().expandedTo(kSmallest).boundedTo(room.size()));
    place.moveLeft(std::clamp(place.left(), room.left(), room.right() + 1 - place.width()));
    place.moveTop(std::clamp(place.top(), room.top(), room.bottom() + 1 - place.height()));
    return place;
}

QTableWidgetItem* cell(const QString& text) {
    auto* item = new QTableWidgetItem(text);
    item->setToolTip(text);
    return item;
}

} // namespace

PropertyRows variableRows(const PinTable& pins) {
    PropertyRows rows{{QStringLiteral("Variable(s)"), QString()}};
    for (int pin = 1; pin <= pins.upperBound(); ++pin) {
        for (int column = 0; column < pins.nameColumns(); ++column) {
            const QString name = pins.at(pin, column);
            if (name.isEmpty()) continue;
            const QString axis = column == 0 ? QStringLiteral(" X") : QStringLiteral(" Y");
            rows.emplace_back(QString::number(pin) + (pins.nameColumns() > 1 ? axis : QString()), name);
        }
    }
    if (rows.size() == 1) rows.front().second = QStringLiteral("-");
    return rows;
}

frmProperties::frmProperties(QWidget* owner)
    : QWidget(owner, Qt::Tool | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      grdProperties(new QTableWidget(0, 2)) {
    setObjectName(QStringLiteral("frmProperties"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    grdProperties->setObjectName(QStringLiteral("grdProperties"));
    grdProperties->horizontalHeader()->hide();
    grdProperties->horizontalHeader()->setStretchLastSection(true);
    grdProperties->verticalHeader()->hide();
    grdProperties->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    grdProperties->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grdProperties->setSelectionMode(QAbstractItemView::NoSelection);
    grdProperties->setFocusPolicy(Qt::NoFocus);
    grdProperties->setAlternatingRowColors(true);
    grdProperties->setShowGrid(false);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(grdProperties);
    ClearAll();
    Form_Load();
}

void frmProperties::Form_Load() {
    constexpr int kNewWidth = 3255 / kTwipsPerPixel;
    constexpr int kNewHeight = 2775 / kTwipsPerPixel;
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const IniFile file = IniFile::load(SettingsPath);
    const QSize size(pixelsIn(file, kWidth, kNewWidth), pixelsIn(file, kHeight, kNewHeight));
    const QPoint corner(pixelsIn(file, kLeft, screen.right() - size.width() - kAway),
                        pixelsIn(file, kTop, screen.bottom() - size.height() - kAway));
    const QRect place = onScreen(QRect(corner, size));
    resize(place.size());
    move(place.topLeft());
}

void frmProperties::Form_Unload() const {
    IniFile file = IniFile::load(SettingsPath);
    const std::pair<const QString&, int> keys[] = {
        {kWidth, width()}, {kHeight, height()}, {kLeft, x()}, {kTop, y()}};
    for (const auto& [key, pixels] : keys)
        file.setValue(kSection, key, QString::number(pixels * kTwipsPerPixel));
    file.saveOrTell(SettingsPath, QStringLiteral("The settings"));
}

void frmProperties::closeEvent(QCloseEvent* event) {
    Form_Unload();
    QWidget::closeEvent(event);
    Q_EMIT closed();
}

void frmProperties::DisplayData(const QStringList& labels, const QStringList& values, const PinTable& pins,
                                const QString& name) {
    display(variableRows(pins), labels, values, name);
}

void frmProperties::DisplayGraphData(const QStringList& labels, const QStringList& values,
                                     const PinTable& pins, const QString& name) {
    display(variableRows(pins), labels, values, name);
}

void frmProperties::DisplayTextData(const QStringList& labels, const QStringList& values,
                                    const QString& name) {
    display({}, labels, values, name);
}

void frmProperties::ClearAll() {
    setWindowTitle(QStringLiteral("Properties"));
    fill({});
}

void frmProperties::display(PropertyRows rows, const QStringList& labels, const QStringList& values,
                            const QString& name) {
    setWindowTitle(QStringLiteral("Properties - ") + name);
    const qsizetype count = std::min(labels.size(), values.size());
    for (qsizetype i = 0; i < count; ++i) rows.emplace_back(labels.at(i), values.at(i));
    fill(std::move(rows));
}

/// Every move of the mouse tells the same again: only news are written.
void frmProperties::fill(PropertyRows rows) {
    if (rows == m_rows) return;
    m_rows = std::move(rows);
    grdProperties->setRowCount(static_cast<int>(m_rows.size()));
    for (int row = 0; row < grdProperties->rowCount(); ++row) {
        const auto& [label, value] = m_rows[static_cast<std::size_t>(row)];
        grdProperties->setItem(row, 0, cell(label));
        grdProperties->setItem(row, 1, cell(value));
    }
    grdProperties->resizeColumnToContents(0);
}

} // namespace vistor
