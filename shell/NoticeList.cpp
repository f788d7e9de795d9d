#include "shell/NoticeList.h"

#include "platform/Notices.h"

#include <QDialogButtonBox>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace vistor {
namespace {

constexpr QSize kListSize(620, 320);

QString lineOf(const Notice& notice) {
    const bool today = notice.time.date() == QDate::currentDate();
    const QString time =
        notice.time.toString(today ? QStringLiteral("HH:mm:ss") : QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    return time + QStringLiteral("  ") + notice.text.simplified();
}

} // namespace

NoticeList::NoticeList(QWidget* parent) : QDialog(parent), m_text(new QPlainTextEdit) {
    setObjectName(QStringLiteral("noticeList"));
    setWindowTitle(QStringLiteral("Notices"));
    m_text->setReadOnly(true);
    m_text->setPlaceholderText(QStringLiteral("Nothing had to be told yet."));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_text);
    column->addWidget(buttons);
    resize(kListSize);
}

void NoticeList::renew() {
    QStringList lines;
    for (const Notice& notice : notices()) lines.prepend(lineOf(notice));
    m_text->setPlainText(lines.join(QStringLiteral("\n\n")));
}

} // namespace vistor
