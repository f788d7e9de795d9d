// A main window on a fresh account, worked as a person works it: menus opened with the mouse, entries chosen
// with the keyboard, buttons clicked. In: answers written beforehand. Out: what came of it.
#pragma once

#include "acquisition/StreamEncoder.h"
#include "dashboard/frmInterface.h"
#include "instruments/Instrument.h"
#include "instruments/displays/InnerDisplay.h"
#include "platform/Events.h"
#include "shell/frmMain.h"
#include "tests/shell/FreshAccount.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

#include <memory>

namespace vistor {

/// Closes whatever modal window comes up, and keeps its class.
class ModalCloser final : public QObject {
public:
    ModalCloser() { startTimer(2); }
    QStringList seen;
    bool rests = false; ///< while a test works the window itself

protected:
    void timerEvent(QTimerEvent*) override {
        if (rests) return;
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal) return;
        seen += QString::fromLatin1(modal->metaObject()->className()).remove(QStringLiteral("vistor::"));
        modal->close();
    }
};

struct Asked {
    const char* text;
    Icon icon = Icon::Notice;
    Buttons buttons = Buttons::YesNo;
};

/// Edit mode, one page with one readout on it that was clicked last, an empty clipboard, a run file.
class CommandSession {
public:
    CommandSession(ScriptedPrompts& scripted, QString folder) : prompts(scripted), root(std::move(folder)) {
        window.resize(1300, 850);
        if (!window.MDIForm_Load()) return;
        DataSourceDescriptor = "FIL," + file("a.run");
        page.TagsOn(0);
        readout = page.addInstrument(Kind::Alphanumeric, page.pic[0]);
        readout->AssignPin(1, QStringLiteral("LapTime"));
        readout->setGeometry(40, 40, 200, 90);
        readout->show();
        pumpEvents();
        click(&readout->inCTRL(), Qt::LeftButton);
        QObject::connect(&page, &frmInterface::timerWanted, &closer,
                         [this](int milliseconds) { ++(milliseconds > 0 ? starts : stops); });
    }
    ~CommandSession() {
        closePopups();
        if (PlayMode) page.mnuEditMode_Click();
        page.TagsOn(0);
        page.ProfileChanged = false;
        window.close();
    }

    static QByteArray read(const QString& path) {
        QFile bytes(path);
        return bytes.open(QIODevice::ReadOnly) ? bytes.readAll() : QByteArray();
    }
    QString file(const char* name) const { return root + u'/' + QLatin1String(name); }
    QAction* command(const char* name) const { return window.command(QLatin1String(name)); }
    int placed() const { return page.instruments.placedCount(); }
    const InstrumentElement& newest() const { return page.instruments.all().back(); }
    QStringList captions() const { return page.mainTab->captions(); }
    bool opened(const char* dialog) const { return closer.seen == QStringList(QLatin1String(dialog)); }
    bool asked(const Asked& question) const {
        if (prompts.messages.empty()) return false;
        const MessageRequest& last = prompts.messages.back();
        return last.text == QLatin1String(question.text) && last.icon == question.icon &&
               last.buttons == question.buttons;
    }
    /// No answer that was written beforehand is left over.
    bool hasAskedAll() const {
        return prompts.answers.empty() && prompts.inputs.empty() && prompts.files.empty();
    }
    void takeAnswers() {
        prompts.answers.clear();
        prompts.inputs.clear();
        prompts.files.clear();
    }
    void addTab(const char* caption) {
        prompts.inputs = {QLatin1String(caption)};
        page.mnuNewTab_Click();
    }

    /// A click at a widget's place on the window, so that whatever lies above it gets it.
    void click(QWidget* widget, Qt::MouseButton button, QPoint place = {}) {
        if (place.isNull()) place = widget->rect().center();
        QTest::mouseClick(window.windowHandle(), button, {}, widget->mapTo(&window, place));
        pumpEvents();
    }
    void closePopups() {
        while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
    }
    /// A press of the right button where a pop-up menu belongs.
    void clickRight(const QString& menu) {
        if (menu == QLatin1String("mnuDropDown"))
            click(page.pic[std::size_t(page.CurrentTab)], Qt::RightButton, freePlace);
        else if (menu == QLatin1String("mnuDropDown2"))
            clickTabInFront();
        else
            click(&readout->inCTRL(), Qt::RightButton);
    }
    /// Opens a menu from where a person finds it; null where it does not open.
    QMenu* open(const QString& name) {
        if (name == QLatin1String("mnuTabControl")) return openInside("mnuWindow", name);
        if (name == QLatin1String("recentFiles")) return openInside("mnuFile", name);
        if (name == QLatin1String("mnuDDAddControl")) return openInside("mnuDropDown", name);
        if (name.startsWith(QLatin1String("mnuDropDown")))
            clickRight(name);
        else
            click(window.menuBar(), Qt::LeftButton,
                  window.menuBar()->actionGeometry(window.command(name)).center());
        return shownMenu(name);
    }
    /// Chooses an entry of an open menu with the keyboard. The menus are closed afterwards.
    void choose(QMenu* menu, QAction* entry) {
        menu->setActiveAction(entry);
        QTest::keyClick(menu, Qt::Key_Return);
        closePopups();
        pumpEvents();
    }
    void type(const QKeySequence& keys) {
        QTest::keySequence(window.windowHandle(), keys);
        pumpEvents();
    }
    /// Clicks a button of the toolbar; false where none is to be seen.
    bool press(int number) {
        QWidget* button = window.findChild<QToolBar*>("Toolbar")->widgetForAction(window.button(number));
        if (!button || !button->isVisible()) return false;
        click(button, Qt::LeftButton);
        return true;
    }

    ScriptedPrompts& prompts;
    QString root;
    frmMain window;
    frmInterface& page = window.dashboard();
    Instrument* readout = nullptr;
    ModalCloser closer;
    int starts = 0; ///< of the tick's timer
    int stops = 0;
    static constexpr QPoint freePlace{330, 210}; ///< on the page, beside the readout

private:
    static QMenu* shownMenu(const QString& name) {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        return menu && menu->menuAction()->objectName() == name ? menu : nullptr;
    }
    void clickTabInFront() {
        auto* strip = page.mainTab->findChild<QTabBar*>("strip");
        click(strip, Qt::RightButton, strip->tabRect(page.mainTab->Tab()).center());
    }
    QMenu* openInside(const char* outer, const QString& name) {
        QMenu* menu = open(QLatin1String(outer));
        if (!menu) return nullptr;
        menu->setActiveAction(window.command(name));
        return shownMenu(name);
    }
};

/// The files that such a session needs.
class CommandAccount : public FreshAccount {
protected:
    CommandAccount() {
        deliver();
        write(root.filePath("OtherFiles/help/README.md"), "- [One](one.md)\n");
        write(root.filePath("OtherFiles/help/one.md"), "# One\n");
        std::vector<std::uint8_t> run = runFileHead();
        const ChannelValue time{1, 10};
        appendMessage(run, 1, {&time, 1});
        write(root.filePath("a.run"),
              QByteArray(reinterpret_cast<const char*>(run.data()), qsizetype(run.size())));
    }
    /// Takes away what a session before has left.
    void startAfresh() {
        QFile::remove(root.filePath("chosen.vis"));
        QDir(root.filePath("person")).removeRecursively();
    }
};

} // namespace vistor
