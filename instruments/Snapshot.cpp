#include "instruments/Snapshot.h"

#include "instruments/Instrument.h"

#include <QDateTime>
#include <QWidget>

namespace vistor {

QString snapshotName(const QDateTime& time, int number) {
    return time.toString(QStringLiteral("yy")) + QString::number(time.date().dayOfYear()) +
           time.toString(QStringLiteral("HHmmss")) + (number > 0 ? QString::number(number) : QString()) +
           QStringLiteral(".bmp");
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
