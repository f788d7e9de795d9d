// A readout of seven-segment or fourteen-segment digits. In: properties by number, see kNumLedTable. Out: a
// picture.
#pragma once

#include "instruments/displays/InnerDisplay.h"
#include "instruments/displays/SegmentGeometry.h"

#include <QHash>

namespace vistor {

/// Numbers of the display's properties that have a meaning here.
enum NumLedProperty : std::int16_t {
    NumLedBackColour = -501,
    NumLedDefault = 0,
    NumLedDigits = 1,
    NumLedDecimals = 2,
    NumLedBorderLight = 4,
    NumLedBorderShadow = 5,
    NumLedUnlitColour = 6,
    NumLedLitColour = 7,
    NumLedValue = 8,
    NumLedBorder = 9,
    NumLedBorderWidth = 10,
    NumLedLeadingZeros = 11,
    NumLedDigitForm = 13,
    NumLedFixedDecimals = 14,
    NumLedSpacing = 15,
    NumLedAlignment = 16,
    NumLedMargin = 17,
    NumLedShowUnlit = 18,
    NumLedDisplayMode = 19,
    NumLedBarWidth = 20,
    NumLedSlant = 21,
    NumLedLeadingPlusMinus = 22,
    NumLedText = 23,
    NumLedShowCaption = 24,
    NumLedCaptionPlace = 25,
    NumLedCaptionColour = 26,
    NumLedCaption = 27,
    NumLedCaptionAlignment = 28,
    NumLedShading = 29,
    NumLedUnit = 31,
};

inline constexpr int kAlphaNumericMode = 1;

/// The display's properties in the order of the saved list.
extern const KindTable kNumLedTable;

class NumLedDisplay final : public InnerDisplay {
    Q_OBJECT

public:
    explicit NumLedDisplay(QWidget* parent = nullptr);

    /// What stands in the cells now, from the left.
    SegmentRow shown() const;

protected:
    void paintStatic(QPainter& painter) override;
    void paintMoving(QPainter& painter) override;

private:
    void layOut();
    void paintUnit(QPainter& painter, const QRectF& place) const;
    const QPixmap& glyph(std::uint16_t segments);
    QPointF cellPlace(int cell) const;

    RowLayout m_row; ///< pitch and places on whole device pixels
    QRectF m_unitPlace;
    QHash<std::uint16_t, QPixmap> m_glyphs; ///< lit digits by their segments
};

} // namespace vistor
