#include "shell/NoticeLine.h"

#include "platform/Notices.h"

#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

namespace vistor {
namespace {

class NoticeLineTest : public testing::Test {
protected:
    NoticeLineTest() {
        window.setCentralWidget(centre);
        window.statusBar()->showMessage(QStringLiteral("Edit mode"));
        window.resize(600, 400);
        window.show();
        QCoreApplication::processEvents();
    }
    QString words() const { return window.findChild<QLabel*>("noticeWords")->text(); }
    QToolButton* more() const { return window.findChild<QToolButton*>("moreNotices"); }

    QMainWindow window;
    QLineEdit* centre = new QLineEdit;
    NoticeLine line{&window};
};

TEST_F(NoticeLineTest, StandsAboveTheStatusBarAndMovesNothing) {
    const QRect before = centre->geometry();
    notify(QStringLiteral("The cable is out."));
    EXPECT_TRUE(line.isVisible());
    EXPECT_EQ(words(), "The cable is out.");
    EXPECT_EQ(centre->geometry(), before);
    for (const QSize size : {QSize(600, 400), QSize(900, 300)}) {
        window.resize(size);
        QCoreApplication::processEvents();
        EXPECT_EQ(line.geometry().bottom() + 1, window.statusBar()->y());
        EXPECT_EQ(line.width(), size.width());
    }
    EXPECT_FALSE(centre->hasFocus() && line.hasFocus());
}

TEST_F(NoticeLineTest, TextsArePlainAndWholeInTheListAndTheToolTip) {
    const QString hostile = QStringLiteral("<img src=x><b>file</b> & more\nlines");
    notify(hostile);
    EXPECT_EQ(words(), "<img src=x><b>file</b> & more lines");
    EXPECT_EQ(line.toolTip(), hostile) << "tool tips are plain";
    QStringList parts;
    for (int i = 0; i < 200; ++i) parts += QStringLiteral("word%1").arg(i);
    notify(parts.join(u' '));
    EXPECT_EQ(words().count(u'\n'), 2);
    EXPECT_TRUE(words().endsWith(QChar(0x2026)));
    EXPECT_LT(line.height(), 100);
    EXPECT_EQ(more()->text(), "1 more...");
    QTest::mouseClick(more(), Qt::LeftButton);
    EXPECT_FALSE(line.isVisible());
    auto* list = window.findChild<QDialog*>("noticeList");
    ASSERT_TRUE(list && list->isVisible() && !list->isModal());
    const auto* text = list->findChild<QPlainTextEdit*>();
    EXPECT_TRUE(text->toPlainText().contains(QStringLiteral("word199")));
    EXPECT_TRUE(text->toPlainText().contains(QStringLiteral("<img src=x>")));
    EXPECT_TRUE(text->toPlainText().startsWith(notices().back().time.toString(QStringLiteral("HH:mm:ss"))));
    notify(QStringLiteral("another"));
    EXPECT_TRUE(text->toPlainText().contains(QStringLiteral("another"))) << "the open list goes on";
}

TEST_F(NoticeLineTest, LinesFitAndTimesFollowTheLength) {
    const QFont font;
    const QFontMetrics metrics(font);
    EXPECT_EQ(noticeLines({}, font, 300), "");
    for (const int width : {1, 60, 300}) {
        const QString lines = noticeLines(QString(5000, u'W') + QStringLiteral(" end"), font, width);
        for (const QString& one : lines.split(u'\n'))
            EXPECT_TRUE(metrics.horizontalAdvance(one) <= width || one.size() <= 1) << width;
    }
    EXPECT_EQ(noticeMilliseconds({}), 5000);
    EXPECT_EQ(noticeMilliseconds(QString(100, u'x')), 9000);
    EXPECT_EQ(noticeMilliseconds(QString(100000, u'x')), 20000);
}

TEST_F(NoticeLineTest, GoesByItselfButNotUnderTheMouse) {
    auto* end = line.findChild<QTimer*>();
    ASSERT_TRUE(end);
    notify(QString(100, u'x'));
    EXPECT_TRUE(end->isActive());
    EXPECT_EQ(end->interval(), 9000);
    QEnterEvent enter({}, {}, {});
    QCoreApplication::sendEvent(&line, &enter);
    EXPECT_FALSE(end->isActive());
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&line, &leave);
    EXPECT_TRUE(end->isActive());
    end->start(0);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !line.isVisible(); }));
}

TEST_F(NoticeLineTest, EscapeTakesItAwayWhereNothingElseWantsTheKey) {
    struct Taker final : QWidget {
        bool takes = true;
        void keyPressEvent(QKeyEvent* event) override { event->setAccepted(takes); }
    };
    auto* taker = new Taker;
    window.setCentralWidget(taker);
    taker->setFocus();
    notify(QStringLiteral("text"));
    QTest::keyClick(taker, Qt::Key_Escape);
    EXPECT_TRUE(line.isVisible()) << "a drag ends with that key";
    taker->takes = false;
    QTest::keyClick(taker, Qt::Key_Escape, Qt::ShiftModifier);
    QTest::keyClick(taker, Qt::Key_A);
    EXPECT_TRUE(line.isVisible());
    QTest::keyClick(taker, Qt::Key_Escape);
    EXPECT_FALSE(line.isVisible());
    QDialog other(&window);
    other.show();
    notify(QStringLiteral("again"));
    QTest::keyClick(&other, Qt::Key_Escape);
    EXPECT_TRUE(line.isVisible()) << "a dialog has its own";
    EXPECT_FALSE(other.isVisible());
}

} // namespace
} // namespace vistor
