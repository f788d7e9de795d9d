// The line above the status bar that tells what the program has to say without stopping anything. In: the
// notices of platform/Notices.h. Out: the newest of them over the lower edge of the window, for as long as it
// takes to read; nothing below it moves.
#pragma once

#include <QFrame>
#include <QPointer>
#include <QTimer>

class QFont;
class QLabel;
class QMainWindow;
class QToolButton;

namespace vistor {

struct Notice;
class NoticeList;

/// How long a text stays, in milliseconds: 5 to 20 seconds, the longer the text.
int noticeMilliseconds(const QString& text);

/// The text in one to three lines, each not wider than `width` pixels in that font; "..." stands for what does
/// not fit. Line ends in the text count as blanks.
QString noticeLines(const QString& text, const QFont& font, int width);

class NoticeLine : public QFrame {
    Q_OBJECT

public:
    /// Listens to all notices for as long as it lives.
    explicit NoticeLine(QMainWindow* window);
    ~NoticeLine() override;

    /// Opens the list of the newest notices.
    void openList();

protected:
    /// Follows the window's size, and goes with Escape where nothing else wants that key.
    bool eventFilter(QObject* object, QEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void tell(const Notice& notice);
    void place();

    QMainWindow* m_window;
    QLabel* m_words;
    QToolButton* m_more;
    QPointer<NoticeList> m_list;
    QTimer m_end;
    QString m_text;
    int m_missed = 0; ///< notices whose place a newer one took before their time was over
};

} // namespace vistor
