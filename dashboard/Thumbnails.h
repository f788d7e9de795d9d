// The bitmaps of the palette in this process's scratch folder. In: names as files give them, which can be
// anything. Out: pictures. Nothing outside the folder is ever read or deleted.
#pragma once

#include <QPixmap>
#include <QString>

namespace vistor {

/// Where a bitmap of that name lies; empty unless it is a plain name of a bitmap.
QString thumbnailPath(const QString& name);

/// The bitmap; a null one where it is missing, no picture or unreasonably large.
QPixmap loadThumbnail(const QString& name);

/// Deletes the bitmap if there is one.
void deleteThumbnail(const QString& name);

} // namespace vistor
