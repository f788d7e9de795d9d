// A counter of rolling drums. In: properties by number, see kOdometerTable. Out: a picture.
#pragma once

#include "instruments/displays/DrumPicture.h"
#include "instruments/displays/InnerDisplay.h"

namespace vistor {

/// Numbers of the display's properties that have a meaning here.
enum OdometerProperty : std::int16_t {
    OdoBackColour = -501,
    OdoDefault = 0,
    OdoBorderLight = 1,
    OdoBorderShadow = 2,
    OdoBorderWidth = 3,
    OdoDecimals = 4, ///< of the digits
    OdoDigitColour = 5,
    OdoDigits = 6, ///< all drums
    OdoLeadingZeros = 7,
    OdoShowCaption = 8,
    OdoCaptionPlace = 9,
    OdoCaptionColour = 10,
    OdoCaption = 11,
    OdoCaptionAlignment = 12,
    OdoValue = 13,
    OdoDrumColour = 14,
    OdoBorder = 15,
    OdoDecimalDrumColour = 18,
    OdoFontFamily = -512,
    OdoFontSubstitute = 20,
    OdoFontSize = 21, ///< hundredths of a drum's height
    OdoFontBold = 22,
    OdoFontItalic = 23,
    OdoFontUnderline = 24,
    OdoFontStrikeOut = 25,
    OdoSmooth = 26,
    OdoMargin = 27,
    OdoSpacing = 28, ///< hundredths of a drum's width
    OdoRollOver = 29,
    OdoShading = 30,
    OdoUnit = 31,
};

/// The display's properties in the order of the saved list.
extern const KindTable kOdometerTable;

class OdometerDisplay final : public InnerDisplay {
    Q_OBJECT

public:
    explicit OdometerDisplay(QWidget* parent = nullptr);

    /// What the drums show now.
    DrumRow shown() const;
    const DrumLayout& layout() const { return m_drums; }

protected:
    void paintStatic(QPainter& painter) override;
    void paintMoving(QPainter& painter) override;
    QRect movedPart() const override;

private:
    void layOut();
    void makePictures();
    void paintUnit(QPainter& painter) const;
    void paintWindow(QPainter& painter) const;

    DrumLayout m_drums;
    QRectF m_unitPlace;
    DrumPicture m_whole;
    DrumPicture m_decimal;
    DrumRow m_painted;
};

} // namespace vistor
