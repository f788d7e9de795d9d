// The text tag: a fixed text on a page, without pins. In: settings from its dialog or a list. Out: a picture.
#pragma once

#include "instruments/Instrument.h"
#include "platform/Prompts.h"

namespace vistor {

class TextTagDisplay;

class VXTEXTTAG final : public Instrument {
    Q_OBJECT

public:
    explicit VXTEXTTAG(QWidget* parent);

    TextTagDisplay& lbl();
    /// Alignment 0 left, 1 right, 2 centre. A system colour stands for the page's own.
    void AssignProperties(const QString& caption, const FontChoice& font, std::uint8_t alignment,
                          std::int32_t foreColour, std::int32_t backColour);
    void mnuProperties_Click() override;

protected:
    void displayPressed(Qt::MouseButton button, const QPoint& place) override {
        lbl_MouseDown(button, place);
    }

private:
    void lbl_MouseDown(Qt::MouseButton button, const QPoint& place);
};

} // namespace vistor
