#include "shell/frmStartSplash.h"

#include "dashboard/Hourglass.h"
#include "platform/Folders.h"
#include "platform/WholeFile.h"
#include "shell/SplashPicture.h"

#include <QFile>
#include <QImageReader>
#include <QLabel>
#include <QMouseEvent>
#include <QScreen>

namespace vistor {
namespace {

constexpr int kLargestSide = 2048; ///< pixels; a larger picture would hide the screen

/// The person's own picture; a null one where there is none that can be used.
QImage ownPicture() {
    const QString path = programFolder() + QStringLiteral("Splash.jpg");
    QFile file;
    if (!openPlainFile(file, path).isEmpty()) return {};
    QImageReader reader(&file);
    const QSize size = reader.size();
    const bool fits = size.isValid() && size.width() <= kLargestSide && size.height() <= kLargestSide;
    return fits ? reader.read() : QImage();
}

} // namespace

frmStartSplash::frmStartSplash(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint), picSkin(new QLabel(this)) {
    setObjectName(QStringLiteral("frmStartSplash"));
    setWindowTitle(QStringLiteral("Vistor"));
    picSkin->setObjectName(QStringLiteral("picSkin"));
    Form_Load();
}

void frmStartSplash::Form_Load() {
    const Hourglass hourglass;
    QImage shape = ownPicture();
    QImage shown = shape;
    if (shape.isNull()) {
        shape = splashPicture(1);
        shown = splashPicture(devicePixelRatioF());
    }
    picSkin->setPixmap(QPixmap::fromImage(shown));
    picSkin->setGeometry(QRect(QPoint(), shape.size()));
    setFixedSize(shape.size());
    std::int32_t transparent = 0;
    setMask(fRegionFromBitmap(shape, transparent));
    centre();
}

void frmStartSplash::centre() {
    const QRect around = parentWidget() && parentWidget()->isVisible() ? parentWidget()->frameGeometry()
                                                                       : screen()->availableGeometry();
    move(around.center() - rect().center());
}

void frmStartSplash::mousePressEvent(QMouseEvent*) {
    close();
}

} // namespace vistor
