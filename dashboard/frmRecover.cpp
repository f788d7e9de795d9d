#include "dashboard/frmRecover.h"

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

frmRecover::frmRecover(const QString& folder, QWidget* parent)
    : QDialog(parent),
      lstCopies(new QListWidget),
      m_folder(folder),
      m_picture(plainLabel("picCopy")),
      m_details(plainLabel("lblDetails")) {
    setObjectName(QStringLiteral("frmRecover"));
    setWindowTitle(QStringLiteral("Recover"));
    auto* column = new QVBoxLayout(this);
    auto* words = plainLabel("lblWords");
    words->setText(QStringLiteral("Copies of layouts and variable tables, kept before they were cleared, "
                                  "replaced or left unsaved:"));
    column->addWidget(words);
    auto* row = new QHBoxLayout;
    column->addLayout(row, 1);
    lstCopies->setObjectName(QStringLiteral("lstCopies"));
    lstCopies->setAlternatingRowColors(true);
    lstCopies->setMinimumSize(380, 320);
    row->addWidget(lstCopies, 1);
    makeDetails(row);
    makeButtons(column);
    connect(lstCopies, &QListWidget::currentRowChanged, this, &frmRecover::showRow);
    connect(lstCopies, &QListWidget::itemActivated, this, &QDialog::accept);
    fill(0);
    lstCopies->setFocus();
}

void frmRecover::makeDetails(QBoxLayout* row) {
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

void frmRecover::makeButtons(QBoxLayout* column) {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Open | QDialogButtonBox::Cancel);
    cmdOpen = buttons->button(QDialogButtonBox::Open);
    cmdCancel = buttons->button(QDialogButtonBox::Cancel);
    cmdDelete = buttons->addButton(QStringLiteral("&Delete"), QDialogButtonBox::ResetRole);
    cmdOpen->setObjectName(QStringLiteral("cmdOpen"));
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    cmdDelete->setObjectName(QStringLiteral("cmdDelete"));
    cmdDelete->setAutoDefault(false);
    cmdOpen->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(cmdDelete, &QPushButton::clicked, this, &frmRecover::deleteChosen);
    column->addWidget(buttons);
}

void frmRecover::fill(int row) {
    const QSignalBlocker quiet(lstCopies);
    m_copies = recoveryCopies(m_folder);
    m_copies.resize(std::min(m_copies.size(), kCopiesKept));
    lstCopies->clear();
    const QDateTime now = QDateTime::currentDateTime();
    for (const RecoveryCopy& copy : m_copies) lstCopies->addItem(rowText(copy, now));
    lstCopies->setCurrentRow(std::min(row, lstCopies->count() - 1));
    showRow(lstCopies->currentRow());
}

void frmRecover::showRow(int row) {
    const bool isThere = row >= 0 && static_cast<std::size_t>(row) < m_copies.size();
    cmdOpen->setEnabled(isThere);
    cmdDelete->setEnabled(isThere);
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

void frmRecover::deleteChosen() {
    if (!cmdDelete->isEnabled()) return;
    if (MsgBox(QStringLiteral("Do you want to delete this copy for good?"), Icon::Question, Buttons::YesNo) !=
        Answer::Yes)
        return;
    if (!deleteRecovery(m_folder, chosen()))
        notify(
            QStringLiteral("The copy cannot be deleted. Look at the permissions of \"%1\".").arg(m_folder));
    fill(static_cast<int>(m_row));
}

void frmRecover::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Delete) return deleteChosen();
    QDialog::keyPressEvent(event);
}

} // namespace vistor
