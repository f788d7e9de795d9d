#include "platform/QtPrompts.h"

#include "platform/Events.h"
#include "platform/Notices.h"

#include <QApplication>
#include <QColorDialog>
#include <QEventLoop>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>

#include <algorithm>
#include <iterator>
#include <utility>

namespace vistor {
namespace {

QWidget* mainWindow() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto main = std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
        return window->isVisible() && window->inherits("QMainWindow");
    });
    return main == windows.end() ? nullptr : *main;
}

/// What a dialog stands over. While another program has the focus no window is active, and a dialog without
/// one could come up behind the main window and stop everything unseen.
QWidget* parentWindow() {
    if (QWidget* active = QApplication::activeWindow()) return active;
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    return mainWindow();
}

QMessageBox::Icon toolkitIcon(Icon icon) {
    switch (icon) {
    case Icon::Stop:
        return QMessageBox::Critical;
    case Icon::Question:
        return QMessageBox::Question;
    case Icon::Notice:
        return QMessageBox::Warning;
    case Icon::Information:
        return QMessageBox::Information;
    case Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons toolkitButtons(Buttons buttons) {
    switch (buttons) {
    case Buttons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case Buttons::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case Buttons::Ok:
        break;
    }
    return QMessageBox::Ok;
}

/// By the button that was pressed, not by the box's result: a box can go without any.
Answer answerOf(const QMessageBox& box, Buttons buttons) {
    switch (box.standardButton(box.clickedButton())) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    default:
        return unanswered(buttons);
    }
}

QFont toolkitFont(const FontChoice& choice) {
    QFont font(choice.family);
    font.setPointSizeF(choice.size);
    font.setBold(choice.bold);
    font.setItalic(choice.italic);
    font.setUnderline(choice.underline);
    font.setStrikeOut(choice.strikeout);
    return font;
}

/// The arrow instead of a busy program's hourglass, for as long as a dialog waits for the person.
struct Arrow {
    InputReleased released; // also when the question comes out of work that holds the person's input
    Arrow() { QApplication::setOverrideCursor(Qt::ArrowCursor); }
    ~Arrow() { QApplication::restoreOverrideCursor(); }
};

bool isInput(QEvent::Type type) {
    constexpr QEvent::Type kInput[] = {QEvent::MouseButtonPress,
                                       QEvent::MouseButtonRelease,
                                       QEvent::MouseButtonDblClick,
                                       QEvent::MouseMove,
                                       QEvent::Wheel,
                                       QEvent::KeyPress,
                                       QEvent::KeyRelease,
                                       QEvent::Shortcut,
                                       QEvent::ShortcutOverride,
                                       QEvent::ContextMenu,
                                       QEvent::DragEnter,
                                       QEvent::Drop,
                                       QEvent::TouchBegin};
    return std::find(std::begin(kInput), std::end(kInput), type) != std::end(kInput);
}

/// Runs a message box that keeps all input to itself, as a modal one does, but lets the main window be
/// closed: a message in the path of samples comes back at the next one, and a modal box would leave no moment
/// without it.
class MessageGate final : public QObject {
public:
    MessageGate(QMessageBox& box, QWidget& main) : m_box(box), m_main(&main) {}

    /// Until the person has answered; false when the main window was closed instead.
    bool run() {
        const MessageGate* const before = std::exchange(newest, this);
        qApp->installEventFilter(this);
        QEventLoop loop;
        connect(&m_box, &QDialog::finished, &loop, &QEventLoop::quit);
        m_box.setModal(false);
        for (QAction* way : m_main->findChildren<QAction*>())
            if (way->property(kUnderMessages).toBool()) m_box.addAction(way);
        m_box.show();
        m_box.activateWindow();
        loop.exec();
        newest = before;
        return m_main && m_main->isVisible();
    }

    bool eventFilter(QObject* object, QEvent* event) override {
        // Back from the task bar the main window is the active one, and the keys would reach nothing.
        if (object == m_main && event->type() == QEvent::WindowActivate && newest == this)
            QTimer::singleShot(0, &m_box, [this] { m_box.activateWindow(); });
        // A spontaneous one tells that the window was minimised, and the question with it: it still stands.
        if (object == m_main && event->type() == QEvent::Hide && !event->spontaneous()) m_box.reject();
        if (newest != this || !isInput(event->type()) || QApplication::activeModalWidget()) return false;
        // Commands get their keys as events of their own; other input comes to widgets in the end.
        if (!object->isWidgetType())
            return event->type() == QEvent::Shortcut && !object->property(kUnderMessages).toBool();
        return static_cast<QWidget*>(object)->window() != &m_box;
    }

private:
    inline static const MessageGate* newest = nullptr; ///< a question at closing stands over a message
    QMessageBox& m_box;
    QPointer<QWidget> m_main;
};

std::optional<QString> askForFile(const FileRequest& request, QFileDialog::AcceptMode mode) {
    const Arrow arrow;
    QFileDialog dialog(parentWindow(), request.title, QString(), toolkitFilter(request.filter));
    dialog.setAcceptMode(mode);
    if (mode == QFileDialog::AcceptOpen) dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setDefaultSuffix(request.extension); // added before a question whether to write over a file
    if (!request.initial.isEmpty()) dialog.selectFile(request.initial);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return dialog.selectedFiles().constFirst();
}

} // namespace

QString toolkitFilter(const QString& filter) {
    const QStringList parts = filter.split(u'|');
    QStringList entries;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString words = parts[i].left(parts[i].indexOf(u'(')).trimmed();
        QStringList patterns = parts[i + 1].split(u';');
        for (QString& pattern : patterns)
            if (pattern.trimmed() == QLatin1String("*.*")) pattern = QStringLiteral("*");
        entries += words + QStringLiteral(" (") + patterns.join(u' ') + u')';
    }
    return entries.join(QStringLiteral(";;"));
}

bool QtPrompts::toldBesideDialog(const MessageRequest& request) {
    QWidget* dialog = QApplication::activeModalWidget();
    if (!inputIsHeld() || !dialog || request.buttons != Buttons::Ok) return false;
    if (dialog != m_dialog) m_told.clear();
    m_dialog = dialog;
    if (!m_told.contains(request.text)) notify(request.text);
    m_told.insert(request.text);
    return true;
}

Answer QtPrompts::message(const MessageRequest& request) {
    if (m_windowClosed) return unanswered(request.buttons);
    if (toldBesideDialog(request)) return Answer::Ok;
    const Arrow arrow;
    QMessageBox box(toolkitIcon(request.icon),
                    request.title.isEmpty() ? QApplication::applicationName() : request.title, request.text,
                    toolkitButtons(request.buttons), parentWindow());
    box.setTextFormat(Qt::PlainText);
    QWidget* main = mainWindow();
    if (!main || QApplication::activeModalWidget())
        box.exec();
    else
        m_windowClosed = !MessageGate(box, *main).run();
    return m_windowClosed ? unanswered(request.buttons) : answerOf(box, request.buttons);
}

std::optional<QString> QtPrompts::input(const InputRequest& request) {
    const Arrow arrow;
    QInputDialog dialog(parentWindow());
    dialog.setWindowTitle(request.title.isEmpty() ? QApplication::applicationName() : request.title);
    dialog.setLabelText(QString(request.text).replace(u'&', QStringLiteral("&&"))); // of a name, not a key
    dialog.setTextValue(request.initial);
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.textValue()) : std::nullopt;
}

std::optional<QString> QtPrompts::openFile(const FileRequest& request) {
    return askForFile(request, QFileDialog::AcceptOpen);
}

std::optional<QString> QtPrompts::saveFile(const FileRequest& request) {
    return askForFile(request, QFileDialog::AcceptSave);
}

std::optional<std::int32_t> QtPrompts::colour(std::int32_t initial) {
    const Arrow arrow;
    const QColor before(initial & 0xFF, (initial >> 8) & 0xFF, (initial >> 16) & 0xFF);
    const QColor colour = QColorDialog::getColor(before, parentWindow());
    if (!colour.isValid()) return std::nullopt;
    return colour.red() | colour.green() << 8 | colour.blue() << 16;
}

std::optional<FontChoice> QtPrompts::font(const FontChoice& initial) {
    const Arrow arrow;
    bool ok = false;
    const QFont font = QFontDialog::getFont(&ok, toolkitFont(initial), parentWindow());
    if (!ok) return std::nullopt;
    return FontChoice{font.family(),    static_cast<float>(font.pointSizeF()),
                      font.bold(),      font.italic(),
                      font.underline(), font.strikeOut()};
}

} // namespace vistor
