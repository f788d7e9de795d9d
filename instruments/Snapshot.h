// The picture of an instrument for the custom library. In: a widget, the time. Out: a bitmap and its file
// name.
#pragma once

#include <QImage>
#include <QString>

class QDateTime;
class QWidget;

namespace vistor {

inline constexpr int kSnapshotPixels = 203; ///< each way, frame included

/// Two-digit year, day of the year, hours, minutes and seconds, and ".bmp".
QString snapshotName(const QDateTime& time);

/// A rectangle of a widget with its children, one pixel of the picture for each logical pixel.
QImage snapshotOf(QWidget& widget, const QRect& part);

} // namespace vistor
