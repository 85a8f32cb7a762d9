#include "kxpanel/window/theme.h"

#include <QtCore/QStringList>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleFactory>

namespace kxpanel
{

namespace
{

struct Shades {
    QRgb window, text, base, otherBase, button, highlight, highlightedText, link, faint, light,
        dark;
};

const Shades LIGHT = {0xf3f4f6, 0x1f2328, 0xffffff, 0xf0f3f7, 0xe9ebef, 0x0b5cad,
                      0xffffff, 0x0b5cad, 0x6e7781, 0xffffff, 0xb6bcc4};
const Shades DARK = {0x22272e, 0xdce3ea, 0x1a1e24, 0x20262d, 0x2f363f, 0x2f74c0,
                     0xffffff, 0x79b8ff, 0x8b949e, 0x444c56, 0x14171b};

QPalette paletteOf(const Shades& shades)
{
    QPalette palette;
    const QPair<QPalette::ColorRole, QRgb> colours[] = {
        {QPalette::Window, shades.window},
        {QPalette::WindowText, shades.text},
        {QPalette::Base, shades.base},
        {QPalette::AlternateBase, shades.otherBase},
        {QPalette::Text, shades.text},
        {QPalette::Button, shades.button},
        {QPalette::ButtonText, shades.text},
        {QPalette::BrightText, shades.highlightedText},
        {QPalette::ToolTipBase, shades.base},
        {QPalette::ToolTipText, shades.text},
        {QPalette::PlaceholderText, shades.faint},
        {QPalette::Highlight, shades.highlight},
        {QPalette::HighlightedText, shades.highlightedText},
        {QPalette::Link, shades.link},
        {QPalette::LinkVisited, shades.link},
        {QPalette::Light, shades.light},
        {QPalette::Midlight, shades.button},
        {QPalette::Mid, shades.faint},
        {QPalette::Dark, shades.dark},
        {QPalette::Shadow, shades.dark},
    };
    for (const auto& colour : colours)
        palette.setColor(colour.first, QColor(colour.second));
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText})
        palette.setColor(QPalette::Disabled, role, QColor(shades.faint));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(shades.button));
    return palette;
}

struct SystemLook {
    QString style = QApplication::style()->objectName();
    QPalette palette = QApplication::palette();
};

} // namespace

QString themeName(Theme theme)
{
    const char* const names[] = {"system", "light", "dark"};
    return QString::fromLatin1(names[static_cast<int>(theme)]);
}

Theme themeOf(const QString& name)
{
    for (const Theme theme : {Theme::Light, Theme::Dark}) {
        if (name == themeName(theme))
            return theme;
    }
    return Theme::System;
}

QPalette lightPalette()
{
    return paletteOf(LIGHT);
}

QPalette darkPalette()
{
    return paletteOf(DARK);
}

void setTheme(Theme theme)
{
    static const SystemLook system;
    if (theme == Theme::System) {
        QApplication::setStyle(system.style);
        QApplication::setPalette(system.palette);
        return;
    }
    // Others take only some of a palette's colours.
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setPalette(theme == Theme::Dark ? darkPalette() : lightPalette());
}

} // namespace kxpanel
