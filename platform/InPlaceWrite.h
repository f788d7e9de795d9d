// Writing over a file where it lies. In: bytes. Out: a file whose head is those bytes.
#pragma once

#include <QByteArray>
#include <QString>

namespace vistor {

/// Writes `bytes` over the head of the file at `path`, which is made when it is missing; what a longer file
/// holds behind them stays. Room on the disk is taken before the first byte is written, so that a full disk
/// leaves the file as it was. False when the file could not be written.
bool writeInPlace(const QString& path, const QByteArray& bytes);

/// The same for the whole file: afterwards it holds `bytes` and nothing else. One without write permission is
/// deleted and made anew, once the new one is whole beside it.
bool replaceInPlace(const QString& path, const QByteArray& bytes);

} // namespace vistor
