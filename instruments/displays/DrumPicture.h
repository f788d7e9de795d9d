// Pictures of turning drums. In: size, font, colours. Out: a picture of a drum at any turn.
#pragma once

#include "instruments/displays/OdometerDrums.h"

#include <QColor>
#include <QFont>
#include <QHash>
#include <QImage>
#include <QPixmap>

#include <vector>

namespace vistor {

struct DrumLook {
    QColor ground;
    QColor digits;
    QFont font; ///< in logical pixels
    bool shaded = true;
};

/// The faces of one sort of drum, unrolled, and what is seen of them through the window.
class DrumPicture {
public:
    DrumPicture() = default;
    /// `size` in logical pixels, `ratio` device pixels to one of them.
    DrumPicture(const DrumLook& look, const QSizeF& size, double ratio);

    /// Drums at rest are kept.
    QPixmap of(const Drum& drum);

private:
    /// Where a row of the picture lies on the drum, in digits from its middle, and its light.
    struct RowLight {
        double offset = 0;
        int share = 256; ///< of the colour, of 256
        int shine = 0;   ///< added, of 255
    };

    void paintFaces(const DrumLook& look, double ratio);
    void paintSides(class QPainter& painter) const;
    QImage turnedTo(const Drum& drum) const;
    void fillRow(QRgb* to, double place, const RowLight& light) const;

    QSize m_pixels;
    double m_ratio = 1;
    int m_cell = 1; ///< height of a face
    QImage m_faces; ///< digits 0 to 9, a blank, a minus sign, a blank
    std::vector<RowLight> m_lights;
    QHash<int, QPixmap> m_resting;
};

} // namespace vistor
