#include "instruments/displays/NumLedDisplay.h"

#include "instruments/Colours.h"
#include "instruments/displays/FittedText.h"
#include "instruments/displays/PropertyStyles.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

using enum PropertyType;

constexpr const char* kModes[] = {"Numeric", "Alpha Numeric"};
constexpr const char* kForms[] = {"By mode", "Seven segments", "Fourteen segments"};

constexpr const char* kValueGroup = "Value";
constexpr const char* kDigitsGroup = "Digits";

constexpr PanelNumbers kPanel{.back = NumLedBackColour,
                              .shading = NumLedShading,
                              .border = NumLedBorder,
                              .borderWidth = NumLedBorderWidth,
                              .light = NumLedBorderLight,
                              .shadow = NumLedBorderShadow,
                              .showCaption = NumLedShowCaption,
                              .caption = NumLedCaption,
                              .captionAlignment = NumLedCaptionAlignment,
                              .captionPlace = NumLedCaptionPlace,
                              .captionColour = NumLedCaptionColour};

constexpr auto kProperties = joined(
    std::array{textProperty(NumLedUnit, "Unit", kCaptionBranch),
               flagProperty(NumLedShading, "Shading", true, kPanelBranch), keptProperty(30, Boolean)},
    panelProperties(kPanel),
    std::array{wholeProperty(NumLedDigits, "Digits", 6, 1, kMaximumCells, kDigitsGroup),
               wholeProperty(NumLedDecimals, "Decimals", 1, 0, 15, kDigitsGroup),
               wholeProperty(NumLedSlant, "Slant", 7, 0, 20, kDigitsGroup),
               wholeProperty(NumLedBarWidth, "Segment Width %", 17, 6, 30, kDigitsGroup),
               wholeProperty(NumLedSpacing, "Digit Spacing %", 46, 24, 150, kDigitsGroup),
               colourProperty(NumLedLitColour, "Lit Colour", 0x2EB4FF, kDigitsGroup),
               colourProperty(NumLedUnlitColour, "Unlit Colour", 0x2A2923, kDigitsGroup),
               flagProperty(NumLedLeadingZeros, "Leading Zeros", false, kValueGroup),
               flagProperty(NumLedLeadingPlusMinus, "Leading PlusMinus", false, kValueGroup),
               flagProperty(NumLedShowUnlit, "Show Unlit Segments", true, kDigitsGroup),
               flagProperty(NumLedFixedDecimals, "Fixed Decimals", true, kValueGroup),
               choiceProperty(NumLedAlignment, Integer, "Alignment", 1, kAlignmentWords, kDigitsGroup),
               wholeProperty(NumLedMargin, "Margin", 4, 0, 100, kPanelBranch), keptProperty(12, Integer),
               choiceProperty(NumLedDigitForm, Integer, "Digit Form", 0, kForms, kDigitsGroup),
               choiceProperty(NumLedDisplayMode, Long, "Display Mode", 0, kModes, kValueGroup),
               liveProperty(NumLedText, String, "Text", kValueGroup),
               liveProperty(NumLedValue, Double, "Value", kValueGroup),
               liveProperty(NumLedDefault, Double, nullptr)});

constexpr const char* kGroups[] = {kValueGroup, kDigitsGroup, kPanelBranch, kCaptionBranch};

constexpr KindTable::Parts kParts{.fixed = kProperties,
                                  .groups = kGroups,
                                  .pins = PinForm::ToCount,
                                  .methods = {.redraw = 34, .sheet = 33},
                                  .values = {.value = NumLedValue}};

QColor colourIn(const PropertyStore& p, NumLedProperty number) {
    return colourOf(p.integer(number));
}

bool usesFourteen(const PropertyStore& p) {
    const int form = p.integer(NumLedDigitForm);
    return form == 0 ? p.integer(NumLedDisplayMode) == kAlphaNumericMode : form == 2;
}

RowStyle rowStyle(const PropertyStore& p) {
    RowStyle style;
    style.digits = p.bounded(NumLedDigits);
    style.slantDegrees = p.bounded(NumLedSlant);
    style.barShare = p.bounded(NumLedBarWidth) / 100.0;
    style.spacingShare = p.bounded(NumLedSpacing) / 100.0;
    style.fourteen = usesFourteen(p);
    return style;
}

QFont unitFont(double height) {
    constexpr double kUnitShare = 0.30;
    QFont font;
    font.setPixelSize(std::clamp(qRound(height * kUnitShare), 8, 60));
    return font;
}

} // namespace

constinit const KindTable kNumLedTable{kParts};

NumLedDisplay::NumLedDisplay(QWidget* parent) : InnerDisplay(kNumLedTable, parent) {}

SegmentRow NumLedDisplay::shown() const {
    const PropertyStore& p = properties();
    const int digits = p.bounded(NumLedDigits);
    if (p.integer(NumLedDisplayMode) == kAlphaNumericMode) return textCells(p.text(NumLedText), digits);
    return numberCells(p.number(NumLedValue), {.digits = digits,
                                               .decimals = p.integer(NumLedDecimals),
                                               .leadingZeros = p.flag(NumLedLeadingZeros),
                                               .fixedDecimals = p.flag(NumLedFixedDecimals),
                                               .plusMinus = p.flag(NumLedLeadingPlusMinus)});
}

void NumLedDisplay::layOut() {
    const PropertyStore& p = properties();
    const double margin = std::min(double(p.bounded(NumLedMargin)), std::min(width(), height()) / 4.0);
    QRectF room = panelInside(panelStyleOf(p, kPanel), rect()).adjusted(margin, margin, -margin, -margin);
    m_unitPlace = {};
    if (const QString unit = p.text(NumLedUnit).left(kLongestText); !unit.isEmpty()) {
        const double advance = QFontMetricsF(unitFont(room.height())).horizontalAdvance(unit) + margin;
        const double taken = std::min(advance, room.width() / 3);
        m_unitPlace = QRectF(room.right() - taken, room.top(), taken, room.height());
        room.setRight(room.right() - taken);
    }
    m_row = rowLayout(rowStyle(p), room);
    const double ratio = devicePixelRatioF();
    m_row.pitch = std::floor(m_row.pitch * ratio) / ratio;
    m_row.left = std::round(m_row.left * ratio) / ratio;
    m_row.top = std::round(m_row.top * ratio) / ratio;
    m_glyphs.clear();
}

QPointF NumLedDisplay::cellPlace(int cell) const {
    return {m_row.left + cell * m_row.pitch, m_row.top};
}

void NumLedDisplay::paintStatic(QPainter& painter) {
    layOut();
    const PropertyStore& p = properties();
    paintPanel(painter, panelStyleOf(p, kPanel), rect());
    if (!m_unitPlace.isEmpty()) paintUnit(painter, m_unitPlace);
    if (!p.flag(NumLedShowUnlit)) return;
    const std::uint16_t all = m_row.shape.fourteen ? kFourteenSegments : kSevenSegments;
    const QPainterPath unlit = segmentPath(m_row.shape, all | SegPoint);
    const QColor unlitColour = colourIn(p, NumLedUnlitColour);
    for (int cell = 0; cell < p.bounded(NumLedDigits); ++cell)
        painter.fillPath(unlit.translated(cellPlace(cell)), unlitColour);
}

void NumLedDisplay::paintUnit(QPainter& painter, const QRectF& place) const {
    const FittedText unit =
        fittedWord(unitFont(place.height()), properties().text(NumLedUnit).left(kLongestText), place.width());
    painter.setFont(unit.font);
    painter.setPen(
        legibleOn(colourIn(properties(), NumLedCaptionColour), colourIn(properties(), NumLedBackColour)));
    QRectF line = place;
    line.setBottom(m_row.bounds.bottom() + QFontMetricsF(painter.font()).descent());
    painter.drawText(line, int(Qt::AlignRight | Qt::AlignBottom) | Qt::TextSingleLine, unit.text);
}

const QPixmap& NumLedDisplay::glyph(std::uint16_t segments) {
    QPixmap& picture = m_glyphs[segments];
    if (!picture.isNull()) return picture;
    const double ratio = devicePixelRatioF();
    const SegmentShape& shape = m_row.shape;
    const QSizeF size(shape.width + shape.lean + shape.spacing, shape.height + 1);
    picture = QPixmap((size * ratio).toSize().expandedTo(QSize(1, 1)));
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(segmentPath(shape, segments), colourIn(properties(), NumLedLitColour));
    return picture;
}

void NumLedDisplay::paintMoving(QPainter& painter) {
    const SegmentRow row = shown();
    const int spare = std::max(properties().bounded(NumLedDigits) - row.count, 0);
    const Qt::Alignment alignment = alignmentOf(properties().integer(NumLedAlignment));
    const int first = alignment == Qt::AlignRight ? spare : alignment == Qt::AlignHCenter ? spare / 2 : 0;
    for (int i = 0; i < row.count; ++i) {
        const SegmentCell& cell = row.cells[static_cast<std::size_t>(i)];
        const std::uint16_t segments = segmentsOf(cell.sign) | (cell.point ? SegPoint : 0);
        if (segments != 0) painter.drawPixmap(cellPlace(first + i), glyph(segments));
    }
}

} // namespace vistor
