// What tests of gauges share: pictures of displays, colours that smoothing may have changed a little.
#pragma once

#include "instruments/Instrument.h"
#include "instruments/displays/InnerDisplay.h"

#include <QImage>
#include <QScreen>
#include <QTest>

#include <cstdlib>
#include <gtest/gtest.h>

namespace vistor {

inline QImage pictureOf(Instrument& instrument) {
    return instrument.inCTRL().grab().toImage();
}

/// True for colours that a smoothed edge nearby cannot make differ more.
inline bool isNearly(const QColor& a, const QColor& b) {
    return std::abs(a.red() - b.red()) < 40 && std::abs(a.green() - b.green()) < 40 &&
           std::abs(a.blue() - b.blue()) < 40;
}

/// What stands on the screen after partial repaints is what a whole repaint gives.
inline void expectNoTrace(Instrument& instrument, float value) {
    QTest::qWait(20);
    const QImage screen = instrument.screen()->grabWindow(instrument.winId()).toImage();
    EXPECT_EQ(screen.convertToFormat(QImage::Format_RGB32),
              instrument.grab().toImage().convertToFormat(QImage::Format_RGB32))
        << value;
}

} // namespace vistor
