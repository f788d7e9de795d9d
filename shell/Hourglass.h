// The pointer of a program at work.
#pragma once

#include <QApplication>

namespace vistor {

/// Shows it for as long as the object lives.
struct Hourglass {
    Hourglass() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~Hourglass() { QApplication::restoreOverrideCursor(); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
};

} // namespace vistor
