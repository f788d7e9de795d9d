#include "platform/InPlaceWrite.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>

namespace vistor {

bool writeInPlace(const QString& path, const QByteArray& bytes) {
    const QFileInfo before(path);
    if (before.exists() && !before.isFile()) return false; // opening a pipe would wait for its reader
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite | QIODevice::Unbuffered)) return false;
    const qint64 oldSize = file.size();
    if (!bytes.isEmpty() && posix_fallocate(file.handle(), 0, bytes.size()) != 0) {
        file.resize(oldSize);
        if (!before.exists()) file.remove();
        return false;
    }
    return file.write(bytes) == bytes.size();
}

bool replaceInPlace(const QString& path, const QByteArray& bytes) {
    if (QFileInfo(path).isFile() && !QFile(path).open(QIODevice::ReadWrite)) {
        QString beside = path + QStringLiteral(".new");
        for (int n = 1; QFile::exists(beside); ++n) beside = path + QStringLiteral(".new%1").arg(n);
        if (!writeInPlace(beside, bytes)) return false;
        return (QFile::remove(path) && QFile::rename(beside, path)) || (QFile::remove(beside), false);
    }
    return writeInPlace(path, bytes) && QFile::resize(path, bytes.size());
}

} // namespace vistor
