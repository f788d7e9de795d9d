#include "dashboard/Thumbnails.h"

#include "platform/Scratch.h"
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

bool isOwnFile(const QString& path) {
    const QFileInfo info(path);
    return !path.isEmpty() && info.isFile() && !info.isSymLink();
}

} // namespace

QString thumbnailPath(const QString& name) {
    if (!isPlainBitmapName(name)) return {};
    const QString folder = scratchFolder(WorkingFolder);
    return folder.isEmpty() ? QString() : folder + name;
}

QPixmap loadThumbnail(const QString& name) {
    const QString path = thumbnailPath(name);
    QFile file;
    if (!isOwnFile(path) || !openPlainFile(file, path).isEmpty()) return {};
    QImageReader reader(&file, "bmp");
    const QSize size = reader.size();
    if (!size.isValid() || size.width() > kLargestSide || size.height() > kLargestSide) return {};
    return QPixmap::fromImageReader(&reader);
}

void deleteThumbnail(const QString& name) {
    const QString path = thumbnailPath(name);
    if (isOwnFile(path)) QFile::remove(path);
}

} // namespace vistor
