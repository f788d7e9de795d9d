#include "dashboard/RecoverDialog.h"

#include "platform/Notices.h"
#include "platform/Prompts.h"

#include <QBoxLayout>
#include <QBuffer>
#include <QDialogButtonBox>
#include <QImageReader>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include <algorithm>

namespace vistor {
namespace {

constexpr int kLargestSide = 1024; ///< pixels; three times what is ever kept
constexpr QSize kShownPicture(320, 200);

QLabel* plainLabel(const char* name) {
    auto* label = new QLabel;
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    return label;
}

QString sourceOf(const RecoveryCopy& copy) {
    if (copy.isTable) return QStringLiteral("Variables");
    return copy.from.isEmpty() ? QStringLiteral("Untitled") : copy.from;
}

QString rowText(const RecoveryCopy& copy, const QDateTime& now) {
    return timeInWords(copy.time, now) + u'\n' + sourceOf(copy) + QStringLiteral(": ") +
           contentsInWords(copy);
}

} // namespace

QImage safePicture(const QByteArray& bytes) {
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer, "png");
    const QSize size = reader.size();
    if (!size.isValid() || size.width() > kLargestSide || size.height() > kLargestSide) return {};
    return reader.read();
}

RecoverDialog::RecoverDialog(const QString& folder, QWidget* parent)
    : QDialog(parent),
      copies(new QListWidget),
      m_folder(folder),
      m_picture(plainLabel("copyPicture")),
      m_details(plainLabel("copyDetails")) {
    setObjectName(QStringLiteral("RecoverDialog"));
    setWindowTitle(QStringLiteral("Recover"));
    auto* column = new QVBoxLayout(this);
    auto* words = plainLabel("lblWords");
    words->setText(QStringLiteral("Copies of layouts and variable tables, kept before they were cleared, "
                                  "replaced or left unsaved:"));
    column->addWidget(words);
    auto* row = new QHBoxLayout;
    column->addLayout(row, 1);
    copies->setObjectName(QStringLiteral("copies"));
    copies->setAlternatingRowColors(true);
    copies->setMinimumSize(380, 320);
    row->addWidget(copies, 1);
    makeDetails(row);
    makeButtons(column);
    connect(copies, &QListWidget::currentRowChanged, this, &RecoverDialog::showRow);
    connect(copies, &QListWidget::itemActivated, this, &QDialog::accept);
    fill(0);
    copies->setFocus();
}

void RecoverDialog::makeDetails(QBoxLayout* row) {
    auto* side = new QVBoxLayout;
    m_picture->setFixedSize(kShownPicture + QSize(2, 2));
    m_picture->setFrameShape(QFrame::StyledPanel);
    m_picture->setAlignment(Qt::AlignCenter);
    m_details->setWordWrap(true);
    m_details->setFixedWidth(m_picture->width());
    m_details->setAlignment(Qt::AlignTop);
    side->addWidget(m_picture);
    side->addWidget(m_details, 1);
    row->addLayout(side);
}

void RecoverDialog::makeButtons(QBoxLayout* column) {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Open | QDialogButtonBox::Cancel);
    openButton = buttons->button(QDialogButtonBox::Open);
    cancelButton = buttons->button(QDialogButtonBox::Cancel);
    deleteButton = buttons->addButton(QStringLiteral("&Delete"), QDialogButtonBox::ResetRole);
    openButton->setObjectName(QStringLiteral("openButton"));
    cancelButton->setObjectName(QStringLiteral("cancelButton"));
    deleteButton->setObjectName(QStringLiteral("deleteButton"));
    deleteButton->setAutoDefault(false);
    openButton->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(deleteButton, &QPushButton::clicked, this, &RecoverDialog::deleteChosen);
    column->addWidget(buttons);
}

void RecoverDialog::fill(int row) {
    const QSignalBlocker quiet(copies);
    m_copies = recoveryCopies(m_folder);
    m_copies.resize(std::min(m_copies.size(), kCopiesKept));
    copies->clear();
    const QDateTime now = QDateTime::currentDateTime();
    for (const RecoveryCopy& copy : m_copies) copies->addItem(rowText(copy, now));
    copies->setCurrentRow(std::min(row, copies->count() - 1));
    showRow(copies->currentRow());
}

void RecoverDialog::showRow(int row) {
    const bool isThere = row >= 0 && static_cast<std::size_t>(row) < m_copies.size();
    openButton->setEnabled(isThere);
    deleteButton->setEnabled(isThere);
    m_picture->clear();
    m_details->setText(QStringLiteral("There is no copy."));
    if (!isThere) return;
    m_row = static_cast<std::size_t>(row);
    const RecoveryCopy& copy = m_copies[m_row];
    const QImage image = safePicture(readRecoveryPicture(m_folder, copy));
    if (image.isNull())
        m_picture->setText(copy.isTable ? QStringLiteral("Variable table") : QStringLiteral("No picture"));
    else
        m_picture->setPixmap(QPixmap::fromImage(image.scaled(image.size().boundedTo(kShownPicture),
                                                             Qt::KeepAspectRatio, Qt::SmoothTransformation)));
    m_details->setText(sourceOf(copy) + QStringLiteral("\n\n") + reasonInWords(copy.reason) +
                       QStringLiteral(".\n") + timeInWords(copy.time, QDateTime::currentDateTime()) +
                       QStringLiteral(".\n") + contentsInWords(copy) + u'.');
}

void RecoverDialog::deleteChosen() {
    if (!deleteButton->isEnabled()) return;
    if (MsgBox(QStringLiteral("Do you want to delete this copy for good?"), Icon::Question, Buttons::YesNo) !=
        Answer::Yes)
        return;
    if (!deleteRecovery(m_folder, chosen()))
        notify(
            QStringLiteral("The copy cannot be deleted. Look at the permissions of \"%1\".").arg(m_folder));
    fill(static_cast<int>(m_row));
}

void RecoverDialog::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Delete) return deleteChosen();
    QDialog::keyPressEvent(event);
}

} // namespace vistor
