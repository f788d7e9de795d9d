#include "instruments/VXTEXTTAG.h"

#include "instruments/displays/TextTagDisplay.h"
#include "instruments/frmVXTextTagProp.h"

#include <QPointer>

namespace vistor {

VXTEXTTAG::VXTEXTTAG(QWidget* parent) : Instrument(Kind::TextTag, new TextTagDisplay, parent) {}

TextTagDisplay& VXTEXTTAG::lbl() {
    return static_cast<TextTagDisplay&>(inCTRL());
}

void VXTEXTTAG::lbl_MouseDown(Qt::MouseButton button, const QPoint& place) {
    Instrument::displayPressed(button, place);
}

void VXTEXTTAG::AssignProperties(const QString& caption, const FontChoice& font, std::uint8_t alignment,
                                 std::int32_t foreColour, std::int32_t backColour) {
    PropertyStore& p = lbl().properties();
    p.setText(TagCaption, caption);
    p.setText(TagFontName, font.family);
    p.setNumber(TagFontSize, font.size);
    p.setNumber(TagBold, font.bold);
    p.setNumber(TagItalic, font.italic);
    p.setNumber(TagUnderline, font.underline);
    p.setNumber(TagStrikeOut, font.strikeout);
    p.setNumber(TagAlignment, alignment);
    p.setNumber(TagForeColour, foreColour);
    p.setNumber(TagBackColour, backColour);
    lbl().redraw();
}

void VXTEXTTAG::mnuProperties_Click() {
    const QPointer<VXTEXTTAG> alive(this);
    Q_EMIT layoutChanged();
    if (alive) frmVXTextTagProp(*this).exec();
}

} // namespace vistor
