// The main window's bars: menus and toolbar from their tables, and the status bar.
#include "dashboard/Pictures.h"
#include "dashboard/frmInterface.h"
#include "platform/Clock.h"
#include "platform/QtPrompts.h"
#include "shell/Commands.h"
#include "shell/frmMain.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>

#include <cmath>

namespace vistor {
namespace {

constexpr double kStatusSeconds = 0.5;

const ToolButton* toolButton(int number) {
    for (const ToolButton& button : toolButtons()) {
        if (button.number == number) return &button;
    }
    return nullptr;
}

QLabel* statusPart(QStatusBar* bar, const char* name, int stretch) {
    auto* label = new QLabel;
    label->setObjectName(QLatin1String(name));
    label->setContentsMargins(6, 0, 6, 0);
    bar->addPermanentWidget(label, stretch);
    return label;
}

} // namespace

void frmMain::makeMenus() {
    for (const MenuHead& head : menuHeads()) makeMenu(head);
}

void frmMain::makeMenu(const MenuHead& head) {
    auto* menu = new QMenu(QLatin1String(head.caption), this);
    menu->menuAction()->setObjectName(QLatin1String(head.name));
    m_menus.insert(QLatin1String(head.name), menu);
    m_commands.insert(QLatin1String(head.name), menu->menuAction());
    if (head.parent && *head.parent) {
        QMenu* parent = m_menus.value(QLatin1String(head.parent));
        const QString before = QLatin1String(head.before ? head.before : "");
        QAction* const first = head.before ? parent->actions().value(0) : nullptr;
        parent->insertMenu(before.isEmpty() ? first : m_commands.value(before), menu);
    } else if (head.parent)
        menuBar()->addMenu(menu);
    for (const MenuEntry& entry : menuEntries()) {
        if (QLatin1String(entry.menu) != QLatin1String(head.name)) continue;
        if (!entry.name) {
            menu->addSeparator();
            continue;
        }
        QAction* action =
            menu->addAction(picture(entry.picture ? entry.picture : ""), QLatin1String(entry.caption));
        action->setObjectName(QLatin1String(entry.name));
        action->setShortcut(QKeySequence(QLatin1String(entry.keys)));
        action->setCheckable(entry.checkable);
        action->setProperty(kUnderMessages, entry.underMessages);
        connect(action, &QAction::triggered, this, [this, run = entry.run] { run(*this); });
        m_commands.insert(action->objectName(), action);
    }
    if (QLatin1String(head.name) == QLatin1String("recentFiles")) fillRecent(menu);
}

void frmMain::makeToolbar() {
    QToolBar* bar = addToolBar(QStringLiteral("Toolbar"));
    bar->setObjectName(QStringLiteral("Toolbar"));
    bar->setMovable(false);
    bar->setIconSize({22, 22});
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    for (int number = 1; number <= kToolButtons; ++number) {
        const ToolButton* button = toolButton(number);
        if (!button) {
            bar->addSeparator()->setVisible(number > 1);
            continue;
        }
        QAction* action = bar->addAction(picture(button->picture), QLatin1String(button->tip));
        action->setObjectName(QStringLiteral("button%1").arg(number));
        action->setToolTip(QLatin1String(button->tip));
        connect(action, &QAction::triggered, this,
                [this, number] { m_dashboard->Toolbar_ButtonClick(number); });
        m_buttons.insert(number, action);
    }
}

void frmMain::setButtonEnabled(int number, bool enabled) {
    if (QAction* action = button(number)) action->setEnabled(enabled);
}

void frmMain::makeStatusBar() {
    statusBar()->setSizeGripEnabled(false);
    m_source = statusPart(statusBar(), "source", 1);
    m_time = statusPart(statusBar(), "time", 0);
    m_rate = statusPart(statusBar(), "rate", 0);
    m_age = statusPart(statusBar(), "age", 0);
    m_mode = statusPart(statusBar(), "mode", 0);
}

void frmMain::showStatus() {
    const double now = steadySeconds();
    const double passed = std::abs(now - m_statusTime);
    if (passed < kStatusSeconds) return;
    m_source->setText(sourceInWords(DataSourceDescriptor));
    m_mode->setText(PlayMode ? QStringLiteral("Play mode") : QStringLiteral("Edit mode"));
    for (QLabel* part : {m_time, m_rate, m_age}) part->setVisible(PlayMode);
    const std::uint64_t samples = streamCounts().samples;
    if (PlayMode && m_statusTime > 0) {
        m_time->setText(QStringLiteral("Logger time %1 s").arg(double(LastValue[kTimeVariable]), 0, 'f', 1));
        m_rate->setText(QStringLiteral("%1 samples/s")
                            .arg(std::lround(static_cast<double>(samples - m_samples) / passed)));
        m_age->setText(streamInWords(m_tick.state(), now));
    }
    m_samples = samples;
    m_statusTime = now;
}

void frmMain::renewStatus() {
    m_statusTime = 0; // not waiting for its turn
    showStatus();
}

QString streamInWords(const StreamState& state, double now) {
    if (state.waits) return QStringLiteral("Waits for an answer");
    if (state.messages == 0)
        return state.ended ? QStringLiteral("No message in this file") : QStringLiteral("No message yet");
    if (state.ended) return QStringLiteral("Recording ended");
    const double age = now - state.lastMessage;
    if (age < 1) return QStringLiteral("Last message just now");
    return age < 120 ? QStringLiteral("Last message %1 s ago").arg(static_cast<int>(age))
                     : QStringLiteral("Last message %1 min ago").arg(static_cast<int>(age / 60));
}

QString sourceInWords(const QString& descriptor) {
    const QStringList fields = descriptor.split(u',');
    const QString kind = fields.front();
    if (kind == QLatin1String("FIL"))
        return QStringLiteral("Run file ") + QFileInfo(fields.value(1)).fileName();
    if (kind == QLatin1String("SER"))
        return QStringLiteral("Port %1 at %2 bits/s").arg(fields.value(1), fields.value(2));
    if (kind == QLatin1String("GSM")) return QStringLiteral("GSM ") + fields.value(3);
    return QStringLiteral("No data source");
}

} // namespace vistor
