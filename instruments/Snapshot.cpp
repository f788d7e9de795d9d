#include "instruments/Snapshot.h"

#include "instruments/Instrument.h"

#include <QDateTime>
#include <QFileInfo>
#include <QWidget>

namespace vistor {

QString snapshotName(const QDateTime& time) {
    return time.toString(QStringLiteral("yy")) + QString::number(time.date().dayOfYear()) +
           time.toString(QStringLiteral("HHmmss")) + QStringLiteral(".bmp");
}

QString freeSnapshotName(const QString& folder) {
    QDateTime time = QDateTime::currentDateTime();
    while (QFileInfo::exists(folder + snapshotName(time))) time = time.addSecs(1);
    return snapshotName(time);
}

QImage snapshotInside(Instrument& instrument) {
    const auto pixels = [](double size) { return qRound(size / kTwipsPerPixel); };
    return snapshotOf(instrument, QRect(pixels(kFrameTwips), pixels(kFrameTwips),
                                        pixels(instrument.widthTwips() - 2 * kFrameTwips),
                                        pixels(instrument.heightTwips() - 2 * kFrameTwips)));
}

QImage snapshotOf(QWidget& widget, const QRect& part) {
    QImage picture(part.size(), QImage::Format_RGB32);
    picture.fill(Qt::white);
    widget.render(&picture, QPoint(), QRegion(part));
    return picture;
}

} // namespace vistor
