#include "shell/Appearance.h"

#include "dashboard/Pictures.h"

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>

namespace vistor {
namespace {

struct PaletteColour {
    QPalette::ColorRole role;
    QRgb active;
    QRgb disabled;
};

constexpr PaletteColour kColours[] = {
    {QPalette::Window, 0xFFE9ECEF, 0xFFE9ECEF},
    {QPalette::WindowText, 0xFF1F262D, 0xFF98A2AC},
    {QPalette::Base, 0xFFFFFFFF, 0xFFEEF0F2},
    {QPalette::AlternateBase, 0xFFF4F6F8, 0xFFEEF0F2},
    {QPalette::Text, 0xFF1F262D, 0xFF98A2AC},
    {QPalette::Button, 0xFFE1E5E9, 0xFFE6E9EC},
    {QPalette::ButtonText, 0xFF2B343D, 0xFFA6AFB8},
    {QPalette::BrightText, 0xFFFFFFFF, 0xFFFFFFFF},
    {QPalette::Highlight, 0xFF1F6FB5, 0xFFB4BDC6},
    {QPalette::HighlightedText, 0xFFFFFFFF, 0xFFFFFFFF},
    {QPalette::ToolTipBase, 0xFF26303A, 0xFF26303A},
    {QPalette::ToolTipText, 0xFFF2F5F7, 0xFFF2F5F7},
    {QPalette::PlaceholderText, 0xFF5F6B77, 0xFFA6AFB8},
    {QPalette::Light, 0xFFFFFFFF, 0xFFFFFFFF},
    {QPalette::Midlight, 0xFFDCE1E6, 0xFFE6E9EC},
    {QPalette::Mid, 0xFFADB6BF, 0xFFC6CDD3},
    {QPalette::Dark, 0xFF8A949E, 0xFFADB6BF},
    {QPalette::Shadow, 0xFF55606B, 0xFF8A949E},
    {QPalette::Link, 0xFF1F6FB5, 0xFF8A949E},
    {QPalette::LinkVisited, 0xFF5A4E9C, 0xFF8A949E},
};

QPalette ownPalette() {
    QPalette palette;
    for (const PaletteColour& colour : kColours) {
        palette.setColor(QPalette::Active, colour.role, QColor::fromRgb(colour.active));
        palette.setColor(QPalette::Inactive, colour.role, QColor::fromRgb(colour.active));
        palette.setColor(QPalette::Disabled, colour.role, QColor::fromRgb(colour.disabled));
    }
    return palette;
}

} // namespace

void applyAppearance(bool ownStyle) {
    if (ownStyle) QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(ownPalette());
    QApplication::setWindowIcon(picture("mark"));
}

} // namespace vistor
