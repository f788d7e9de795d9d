// The picture of an instrument for the custom library. In: a widget, the time. Out: a bitmap and its file
// name.
#pragma once

#include <QImage>
#include <QString>

class QDateTime;
class QWidget;

namespace vistor {

class Instrument;

inline constexpr int kSnapshotPixels = 203; ///< each way, frame included

/// Two-digit year, day of the year, hours, minutes and seconds, and ".bmp".
QString snapshotName(const QDateTime& time);
/// The name of now; where a folder (which ends in "/") has it already, that of the first second it has not.
QString freeSnapshotName(const QString& folder);

/// The inside of an instrument's frame, as it is sized now.
QImage snapshotInside(Instrument& instrument);

/// A rectangle of a widget with its children, one pixel of the picture for each logical pixel.
QImage snapshotOf(QWidget& widget, const QRect& part);

} // namespace vistor
