#include "instruments/displays/TextTagDisplay.h"

#include "instruments/Colours.h"
#include "instruments/displays/PropertyMakers.h"
#include "instruments/displays/PropertyStyles.h"

#include <QPainter>

#include <algorithm>

namespace vistor {
namespace {

using enum PropertyType;

constexpr double kUsualSize = 14; ///< points
constexpr double kSmallestSize = 1;
constexpr double kLargestSize = 1000;
constexpr int kLongestTag = 2000;
constexpr int kMargin = 3;

constexpr PropertyInfo kProperties[] = {
    choiceProperty(TagAlignment, Integer, "Alignment", 2, kAlignmentWords),
    flagProperty(TagBold, "Bold", true),
    flagProperty(TagItalic, "Italic", false),
    {.number = TagFontName, .type = FontName, .label = "Font"},
    {.number = TagFontSize, .type = Single, .label = "Font Size", .initial = kUsualSize},
    flagProperty(TagStrikeOut, "Strike Out", false),
    flagProperty(TagUnderline, "Underline", false),
    colourProperty(TagForeColour, "Text Colour", kTagLabelColour),
    colourProperty(TagBackColour, "Back Colour", kTagPageColour),
    {.number = TagCaption, .type = String, .label = "Text", .initialText = "Text"},
};

constexpr ShownProperty kShown[] = {
    {"Text", TagCaption},
    {"Alignment", TagAlignment},
    {"Font", TagFontName},
    {"Font Size", TagFontSize},
};

constexpr KindTable::Parts kParts{.fixed = kProperties,
                                  .pins = PinForm::None,
                                  .methods = {.redraw = 1},
                                  .staysEnabled = true,
                                  .shown = kShown};

constexpr FontNumbers kFont{.family = TagFontName,
                            .bold = TagBold,
                            .italic = TagItalic,
                            .underline = TagUnderline,
                            .strikeOut = TagStrikeOut};

int pixelsOf(double points) {
    constexpr double kPixelsPerPoint = 96.0 / 72.0;
    const double size = points >= kSmallestSize ? std::min(points, kLargestSize) : kUsualSize;
    return qRound(size * kPixelsPerPoint);
}

/// Smaller where the text would be cut, down to what can still be read.
QFont fitted(QFont font, const QString& text, const QSize& room, int flags) {
    constexpr int kSmallest = 7; // pixels
    constexpr double kStep = 0.9;
    const auto fits = [&] {
        const QSize taken = QFontMetrics(font).boundingRect(QRect(QPoint(), room), flags, text).size();
        return taken.width() <= room.width() && taken.height() <= room.height();
    };
    while (font.pixelSize() > kSmallest && !fits())
        font.setPixelSize(std::max(int(font.pixelSize() * kStep), kSmallest));
    return font;
}

} // namespace

constinit const KindTable kTextTagTable{kParts};

QColor tagColour(std::int32_t number, const QPalette& page) {
    constexpr std::int32_t kWindowText = static_cast<std::int32_t>(0x80000008U);
    if (number == kTagPageColour) return page.color(QPalette::Window);
    if (number == kTagLabelColour || number == kWindowText) return page.color(QPalette::WindowText);
    return colourOf(number);
}

TextTagDisplay::TextTagDisplay(QWidget* parent) : InnerDisplay(kTextTagTable, parent) {}

void TextTagDisplay::paintStatic(QPainter& painter) {
    const PropertyStore& p = properties();
    const QColor ground = tagColour(p.integer(TagBackColour), palette());
    painter.fillRect(rect(), ground);
    painter.setPen(legibleOn(tagColour(p.integer(TagForeColour), palette()), ground));
    const int flags = int(alignmentOf(p.integer(TagAlignment)) | Qt::AlignVCenter) | Qt::TextWordWrap;
    const QString text = p.text(TagCaption).left(kLongestTag);
    const QRect room = rect().adjusted(kMargin, 0, -kMargin, 0);
    painter.setFont(fitted(fontOf(p, kFont, pixelsOf(p.number(TagFontSize))), text, room.size(), flags));
    painter.drawText(room, flags, text);
}

} // namespace vistor
