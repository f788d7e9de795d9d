#include "dashboard/Thumbnails.h"

#include "platform/Folders.h"
#include "platform/WholeFile.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>

namespace vistor {
namespace {

constexpr int kLargestSide = 2048; ///< pixels; ten times what is ever taken

bool isPlainBitmapName(const QString& name) {
    const bool plain = !name.contains(u'/') && !name.contains(u'\\') && !name.contains(QChar(u'\0'));
    return plain && !name.startsWith(u'.') && name.endsWith(QLatin1String(".bmp"), Qt::CaseInsensitive);
}

} // namespace

QString thumbnailPath(const QString& name) {
    const QString folder = bitmapFolder(WorkingFolder);
    return folder.isEmpty() || !isPlainBitmapName(name) ? QString() : folder + name;
}

QPixmap loadThumbnail(const QString& name) {
    const QString path = thumbnailPath(name);
    QFile file;
    if (path.isEmpty() || !openPlainFile(file, path).isEmpty()) return {};
    QImageReader reader(&file, "bmp");
    const QSize size = reader.size();
    if (!size.isValid() || size.width() > kLargestSide || size.height() > kLargestSide) return {};
    return QPixmap::fromImageReader(&reader);
}

void deleteThumbnail(const QString& name) {
    const QString path = thumbnailPath(name);
    if (!path.isEmpty() && QFileInfo(path).isFile()) QFile::remove(path);
}

} // namespace vistor
