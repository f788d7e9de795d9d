// The list of what the program told last. In: the notices of platform/Notices.h. Out: their times and whole
// texts, the newest on top.
#pragma once

#include <QDialog>

class QPlainTextEdit;

namespace vistor {

class NoticeList : public QDialog {
    Q_OBJECT

public:
    explicit NoticeList(QWidget* parent);

    /// Shows the notices as they are now.
    void renew();

private:
    QPlainTextEdit* m_text;
};

} // namespace vistor
