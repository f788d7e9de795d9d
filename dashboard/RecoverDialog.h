// "Recover": the copies that were kept, with picture, time, reason and what they hold. In: their folder, and
// the person's choice. Out: the copy to open; copies deleted.
#pragma once

#include "dashboard/Recovery.h"

#include <QDialog>

class QLabel;
class QListWidget;
class QPushButton;

namespace vistor {

class RecoverDialog final : public QDialog {
    Q_OBJECT

public:
    explicit RecoverDialog(const QString& folder, QWidget* parent = nullptr);

    /// The copy to open, once the dialog was accepted.
    const RecoveryCopy& chosen() const { return m_copies.at(m_row); }

    QListWidget* copies;
    QPushButton* openButton;
    QPushButton* deleteButton;
    QPushButton* cancelButton;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void makeDetails(class QBoxLayout* row);
    void makeButtons(class QBoxLayout* column);
    void fill(int row);
    void showRow(int row);
    void deleteChosen();

    QString m_folder;
    std::vector<RecoveryCopy> m_copies;
    std::size_t m_row = 0;
    QLabel* m_picture;
    QLabel* m_details;
};

/// The picture of bytes that may be anything: null unless they are a PNG of at most 1024 pixels a side.
QImage safePicture(const QByteArray& bytes);

} // namespace vistor
