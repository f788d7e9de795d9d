// A fixed text. In: properties by number, see kTextTagTable. Out: a picture.
#pragma once

#include "instruments/displays/InnerDisplay.h"

namespace vistor {

/// The numbers follow the saved list, which has no others.
enum TextTagProperty : std::int16_t {
    TagAlignment = 1,
    TagBold,
    TagItalic,
    TagFontName,
    TagFontSize, ///< points
    TagStrikeOut,
    TagUnderline,
    TagForeColour,
    TagBackColour,
    TagCaption,
};

/// Colours that stand for those of the page: what lies behind the tag, and what labels are written in.
inline constexpr std::int32_t kTagPageColour = static_cast<std::int32_t>(0x8000000FU);
inline constexpr std::int32_t kTagLabelColour = static_cast<std::int32_t>(0x80000012U);

/// The display's properties in the order of the saved list.
extern const KindTable kTextTagTable;

/// The colour of a number. The system colours of labels and of what lies behind them are the page's own two,
/// as the palette has them; others are those of all instruments.
QColor tagColour(std::int32_t number, const QPalette& page);

class TextTagDisplay final : public InnerDisplay {
    Q_OBJECT

public:
    explicit TextTagDisplay(QWidget* parent = nullptr);

protected:
    void paintStatic(QPainter& painter) override;
    void paintMoving(QPainter&) override {}
};

} // namespace vistor
