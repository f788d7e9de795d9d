#include "instruments/displays/OdometerDisplay.h"

#include "instruments/Colours.h"
#include "instruments/displays/FittedText.h"
#include "instruments/displays/PropertyMakers.h"
#include "instruments/displays/PropertyStyles.h"

#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

using enum PropertyType;

constexpr const char* kValueGroup = "Value";
constexpr const char* kDrumsGroup = "Drums";
constexpr const char* kFontGroup = "Font";
constexpr const char* kGroups[] = {kValueGroup, kDrumsGroup, kFontGroup, kPanelBranch, kCaptionBranch};

constexpr double kUsualFontSize = 61;

constexpr PanelNumbers kPanel{.back = OdoBackColour,
                              .shading = OdoShading,
                              .border = OdoBorder,
                              .borderWidth = OdoBorderWidth,
                              .light = OdoBorderLight,
                              .shadow = OdoBorderShadow,
                              .showCaption = OdoShowCaption,
                              .caption = OdoCaption,
                              .captionAlignment = OdoCaptionAlignment,
                              .captionPlace = OdoCaptionPlace,
                              .captionColour = OdoCaptionColour};

constexpr FontNumbers kFont{.family = OdoFontFamily,
                            .substitute = OdoFontSubstitute,
                            .bold = OdoFontBold,
                            .italic = OdoFontItalic,
                            .underline = OdoFontUnderline,
                            .strikeOut = OdoFontStrikeOut,
                            .size = OdoFontSize};

constexpr auto kProperties =
    joined(std::array{textProperty(OdoUnit, "Unit", kCaptionBranch)}, panelProperties(kPanel, Integer),
           std::array{wholeProperty(OdoDigits, "Digits", 6, 1, kMostDrums, kValueGroup),
                      wholeProperty(OdoDecimals, "Decimals", 1, 0, kMostDrums - 1, kValueGroup),
                      colourProperty(OdoDigitColour, "Digit Colour", 0xF2F4F4, kDrumsGroup),
                      colourProperty(OdoDrumColour, "Drum Colour", 0x302A28, kDrumsGroup),
                      liveProperty(OdoValue, Double, "Value", kValueGroup),
                      liveProperty(OdoDefault, Double, nullptr),
                      flagProperty(OdoSmooth, "Smooth Rolling", true, kValueGroup),
                      wholeProperty(OdoSpacing, "Drum Spacing %", 7, 0, 100, kDrumsGroup),
                      wholeProperty(OdoMargin, "Margin", 4, 0, 100, kPanelBranch),
                      flagProperty(OdoLeadingZeros, "Leading Zeros", true, kValueGroup),
                      colourProperty(OdoDecimalDrumColour, "Decimal Drum Colour", 0xDCE6EA, kDrumsGroup)},
           fontProperties(kFont, kUsualFontSize, kFontGroup, true),
           std::array{flagProperty(OdoRollOver, "Roll Over", true, kValueGroup),
                      flagProperty(OdoShading, "Shading", true, kDrumsGroup)});

constexpr KindTable::Parts kParts{.fixed = kProperties,
                                  .groups = kGroups,
                                  .pins = PinForm::ToBound,
                                  .methods = {.redraw = 33, .sheet = 32},
                                  .values = {.value = OdoValue},
                                  .staysEnabled = true};

QFont unitFont(double height) {
    constexpr double kUnitShare = 0.34;
    QFont font;
    font.setPixelSize(std::clamp(qRound(height * kUnitShare), 8, 60));
    return font;
}

bool isReadable(const QColor& a, const QColor& b) {
    return std::abs(qGray(a.rgb()) - qGray(b.rgb())) > 60;
}

} // namespace

constinit const KindTable kOdometerTable{kParts};

OdometerDisplay::OdometerDisplay(QWidget* parent) : InnerDisplay(kOdometerTable, parent) {}

DrumRow OdometerDisplay::shown() const {
    const PropertyStore& p = properties();
    return drumRow(p.number(OdoValue), {.digits = p.bounded(OdoDigits),
                                        .decimals = p.bounded(OdoDecimals),
                                        .leadingZeros = p.flag(OdoLeadingZeros),
                                        .smooth = p.flag(OdoSmooth),
                                        .rollOver = p.flag(OdoRollOver)});
}

void OdometerDisplay::layOut() {
    const PropertyStore& p = properties();
    const double margin = std::min(double(p.bounded(OdoMargin)), std::min(width(), height()) / 4.0);
    QRectF room = panelInside(panelStyleOf(p, kPanel), rect()).adjusted(margin, margin, -margin, -margin);
    m_unitPlace = {};
    if (const QString unit = p.text(OdoUnit).left(kLongestText); !unit.isEmpty()) {
        const double advance = QFontMetricsF(unitFont(room.height())).horizontalAdvance(unit) + margin + 2;
        const double taken = std::min(advance, room.width() / 3);
        m_unitPlace = QRectF(room.right() - taken, room.top(), taken, room.height());
        room.setRight(room.right() - taken);
    }
    const int count = p.bounded(OdoDigits);
    const int decimals = std::min(p.bounded(OdoDecimals), count - 1);
    m_drums = drumLayout(count, decimals, p.bounded(OdoSpacing) / 100.0, room, 1 / devicePixelRatioF());
}

void OdometerDisplay::makePictures() {
    const PropertyStore& p = properties();
    const double size = p.number(OdoFontSize) > 0 ? std::min(p.number(OdoFontSize), 200.0) : kUsualFontSize;
    DrumLook look{.ground = colourOf(p.integer(OdoDrumColour)),
                  .digits = colourOf(p.integer(OdoDigitColour)),
                  .font = fontOf(p, kFont, qRound(size / 100 * m_drums.drum.height())),
                  .shaded = p.flag(OdoShading)};
    m_whole = DrumPicture(look, m_drums.drum, devicePixelRatioF());
    m_decimal = {};
    if (m_drums.decimals == 0) return;
    // The drums behind the mark have the colours the other way round, as on a car's counter.
    const QColor other = look.ground;
    look.ground = colourOf(p.integer(OdoDecimalDrumColour));
    if (isReadable(look.ground, other)) look.digits = other;
    m_decimal = DrumPicture(look, m_drums.drum, devicePixelRatioF());
}

void OdometerDisplay::paintUnit(QPainter& painter) const {
    const PropertyStore& p = properties();
    const FittedText unit =
        fittedWord(unitFont(m_unitPlace.height()), p.text(OdoUnit).left(kLongestText), m_unitPlace.width());
    painter.setFont(unit.font);
    painter.setPen(legibleOn(colourOf(p.integer(OdoCaptionColour)), colourOf(p.integer(OdoBackColour))));
    QRectF line = m_unitPlace;
    line.setBottom(m_drums.at(0).bottom() - m_drums.drum.height() * 0.14);
    const QFontMetricsF metrics(painter.font());
    painter.drawText(line.adjusted(0, 0, 0, metrics.descent()),
                     int(Qt::AlignRight | Qt::AlignBottom) | Qt::TextSingleLine, unit.text);
}

/// The recess that the drums turn in, its edge lit from above.
void OdometerDisplay::paintWindow(QPainter& painter) const {
    const QRectF& window = m_drums.window;
    const QColor back = colourOf(properties().integer(OdoBackColour));
    const double corner = window.height() * 0.07;
    const double edge = std::max(window.height() * 0.022, 1 / devicePixelRatioF());
    painter.setPen(Qt::NoPen);
    if (properties().flag(OdoShading)) {
        QLinearGradient light(window.topLeft(), window.bottomLeft());
        light.setColorAt(0, mixed(back, Qt::black, 0.6));
        light.setColorAt(1, mixed(back, Qt::white, 0.38));
        painter.setBrush(light);
        painter.drawRoundedRect(window.adjusted(-edge, -edge, edge, edge), corner + edge, corner + edge);
    }
    const QColor recess = mixed(back, Qt::black, 0.78);
    painter.setBrush(recess);
    painter.drawRoundedRect(window, corner, corner);
    if (m_drums.decimals == 0) return;
    const QColor digits = colourOf(properties().integer(OdoDigitColour));
    painter.setBrush(isReadable(digits, recess) ? digits : colourOf(properties().integer(OdoDrumColour)));
    painter.drawEllipse(m_drums.markPlace(), m_drums.markRadius(), m_drums.markRadius());
}

void OdometerDisplay::paintStatic(QPainter& painter) {
    layOut();
    makePictures();
    paintPanel(painter, panelStyleOf(properties(), kPanel), rect());
    if (!m_unitPlace.isEmpty()) paintUnit(painter);
    paintWindow(painter);
}

void OdometerDisplay::paintMoving(QPainter& painter) {
    m_painted = shown();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (int i = 0; i < m_painted.count; ++i) {
        DrumPicture& picture = i < m_painted.count - m_painted.decimals ? m_whole : m_decimal;
        painter.drawPixmap(m_drums.at(i).topLeft(), picture.of(m_painted.drums[static_cast<std::size_t>(i)]));
    }
}

QRect OdometerDisplay::movedPart() const {
    const DrumRow now = shown();
    if (now.count != m_painted.count) return rect();
    QRectF part;
    for (int i = 0; i < now.count; ++i) {
        const auto place = static_cast<std::size_t>(i);
        if (!(now.drums[place] == m_painted.drums[place])) part = part.united(m_drums.at(i));
    }
    return part.isNull() ? QRect() : part.toAlignedRect();
}

} // namespace vistor
