// The pointer of a program at work. In: the life of an object. Out: the hourglass for as long.
#pragma once

#include <QApplication>

namespace vistor {

struct Hourglass {
    Hourglass() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~Hourglass() { QApplication::restoreOverrideCursor(); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
};

} // namespace vistor
