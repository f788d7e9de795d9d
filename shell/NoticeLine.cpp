#include "shell/NoticeLine.h"

#include "platform/Notices.h"
#include "shell/NoticeList.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMainWindow>
#include <QStatusBar>
#include <QTextLayout>
#include <QToolButton>

#include <algorithm>

namespace vistor {
namespace {

constexpr int kShortest = 5000; ///< ms
constexpr int kLongest = 20000;
constexpr int kLeast = 3000; ///< before the first word is read
constexpr int kPerCharacter = 60;
constexpr int kAfterMouse = 3000;
constexpr int kLines = 3;

/// The colours of tool tips: they stand out on every page, light or dark.
QPalette standingOut(QPalette palette) {
    const QColor back = palette.color(QPalette::ToolTipBase);
    const QColor words = palette.color(QPalette::ToolTipText);
    for (const auto role : {QPalette::Window, QPalette::Button, QPalette::Base}) palette.setColor(role, back);
    for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text})
        palette.setColor(role, words);
    return palette;
}

QToolButton* flatButton(const QString& text, const char* name) {
    auto* button = new QToolButton;
    button->setText(text);
    button->setObjectName(QLatin1String(name));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus); // the keyboard stays where it is
    return button;
}

} // namespace

int noticeMilliseconds(const QString& text) {
    const auto length = static_cast<int>(std::min<qsizetype>(text.size(), kLongest));
    return std::clamp(kLeast + kPerCharacter * length, kShortest, kLongest);
}

QString noticeLines(const QString& text, const QFont& font, int width) {
    const QString plain = text.simplified();
    QTextLayout layout(plain, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    QStringList lines;
    layout.beginLayout();
    while (lines.size() < kLines) {
        QTextLine line = layout.createLine();
        if (!line.isValid()) break;
        line.setLineWidth(std::max(width, 1));
        const bool last = lines.size() == kLines - 1;
        const QString words = plain.mid(line.textStart(), last ? -1 : line.textLength());
        lines += QFontMetrics(font).elidedText(words.trimmed(), Qt::ElideRight, width);
    }
    layout.endLayout();
    return lines.join(u'\n');
}

NoticeLine::NoticeLine(QMainWindow* window)
    : QFrame(window),
      m_window(window),
      m_words(new QLabel),
      m_more(flatButton(QStringLiteral("Notices..."), "moreNotices")),
      m_end(this) {
    setObjectName(QStringLiteral("noticeLine"));
    setPalette(standingOut(palette()));
    setAutoFillBackground(true);
    m_words->setTextFormat(Qt::PlainText);
    m_words->setObjectName(QStringLiteral("noticeWords"));
    m_words->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* close = flatButton(QStringLiteral("\u00D7"), "closeNotice");
    close->setToolTip(QStringLiteral("Close (Esc)"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(12, 4, 6, 4);
    row->addWidget(m_words, 1);
    row->addWidget(m_more);
    row->addWidget(close);
    hide();
    m_end.setSingleShot(true);
    connect(&m_end, &QTimer::timeout, this, &QWidget::hide);
    connect(close, &QToolButton::clicked, this, &QWidget::hide);
    connect(m_more, &QToolButton::clicked, this, &NoticeLine::openList);
    window->installEventFilter(this);
    setNoticeListener([this](const Notice& notice) { tell(notice); });
}

NoticeLine::~NoticeLine() {
    setNoticeListener({});
}

void NoticeLine::openList() {
    if (!m_list) {
        m_list = new NoticeList(m_window);
        m_list->setAttribute(Qt::WA_DeleteOnClose);
    }
    m_list->renew();
    m_list->show();
    m_list->raise();
    m_list->activateWindow();
    hide();
}

void NoticeLine::tell(const Notice& notice) {
    if (m_list) m_list->renew();
    if (isHidden())
        m_missed = 0;
    else if (notice.text != m_text)
        ++m_missed;
    m_text = notice.text;
    m_more->setText(m_missed > 0 ? QStringLiteral("%1 more...").arg(m_missed) : QStringLiteral("Notices..."));
    setToolTip(m_text);
    show();
    place();
    raise();
    if (!underMouse()) m_end.start(noticeMilliseconds(m_text));
}

void NoticeLine::place() {
    if (isHidden()) return;
    const QStatusBar* bar = m_window->findChild<QStatusBar*>(QString(), Qt::FindDirectChildrenOnly);
    const int bottom = bar && !bar->isHidden() ? bar->y() : m_window->height();
    resize(m_window->width(), height());
    layout()->activate(); // the words' width is what the buttons leave
    m_words->setText(noticeLines(m_text, m_words->font(), m_words->width()));
    layout()->activate();
    const int high = sizeHint().height();
    setGeometry(0, bottom - high, m_window->width(), high);
}

bool NoticeLine::eventFilter(QObject* object, QEvent* event) {
    if (object != m_window || isHidden()) return QFrame::eventFilter(object, event);
    if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest) {
        // After the window's own layout, which runs when this filter has let the event through.
        QMetaObject::invokeMethod(this, &NoticeLine::place, Qt::QueuedConnection);
    } else if (event->type() == QEvent::KeyPress && QApplication::mouseButtons() == Qt::NoButton) {
        // Only keys that no widget wanted come to the window.
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() != Qt::Key_Escape || key->modifiers() != Qt::NoModifier) return false;
        hide();
        return true;
    }
    return false;
}

void NoticeLine::enterEvent(QEnterEvent* event) {
    m_end.stop();
    QFrame::enterEvent(event);
}

void NoticeLine::leaveEvent(QEvent* event) {
    if (!isHidden()) m_end.start(kAfterMouse);
    QFrame::leaveEvent(event);
}

void NoticeLine::showEvent(QShowEvent* event) {
    QFrame::showEvent(event);
    place();
    if (!event->spontaneous()) m_end.start(noticeMilliseconds(m_text)); // it may have waited for its window
}

} // namespace vistor
