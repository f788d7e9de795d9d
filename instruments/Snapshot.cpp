#include "instruments/Snapshot.h"

#include <QDateTime>
#include <QWidget>

namespace vistor {

QString snapshotName(const QDateTime& time) {
    return time.toString(QStringLiteral("yy")) + QString::number(time.date().dayOfYear()) +
           time.toString(QStringLiteral("HHmmss")) + QStringLiteral(".bmp");
}

QImage snapshotOf(QWidget& widget, const QRect& part) {
    QImage picture(part.size(), QImage::Format_RGB32);
    picture.fill(Qt::white);
    widget.render(&picture, QPoint(), QRegion(part));
    return picture;
}

} // namespace vistor
