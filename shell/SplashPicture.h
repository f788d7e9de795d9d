// The picture that the splash window was built with, and the shape of any such picture. In: a picture. Out:
// the region of the window.
#pragma once

#include <QImage>
#include <QRegion>

#include <cstdint>
#include <vector>

namespace vistor {

/// The built-in picture with the version and the licence lines on it, `ratio` pixels for each logical one.
QImage splashPicture(double ratio);

/// One rectangle for each run of pixels of a row that are not of the transparent colour.
std::vector<QRect> opaqueRuns(const QImage& picture, QRgb transparent);

/// The region of a picture without its transparent colour, 0x00BBGGRR. Below 1 that is the colour of the top
/// left pixel, and the caller sees it.
QRegion fRegionFromBitmap(const QImage& picture, std::int32_t& transparent);

} // namespace vistor
