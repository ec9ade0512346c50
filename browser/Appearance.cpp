// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Appearance.h"

#include <QApplication>
#include <QPalette>
#include <QStyle>

namespace rvopen::browser {

namespace {

struct Shades {
    QRgb window;
    QRgb base;
    QRgb alternate;
    QRgb button;
    QRgb text;
    QRgb faint;
    QRgb highlight;
    QRgb highlighted;
    QRgb link;
};

// Each text has a contrast of at least 4.5 : 1 to what it stands on, as WCAG 2.1 asks for, but for
// what cannot be used.
constexpr Shades s_light{0xffeff0f1, 0xffffffff, 0xfff5f6f7, 0xffe8e9ea, 0xff1f2326,
                         0xff9a9fa3, 0xff2a5db0, 0xffffffff, 0xff1d4f9c};
constexpr Shades s_dark{0xff25282b, 0xff1b1d1f, 0xff212427, 0xff303438, 0xffe6e8ea,
                        0xff7d8388, 0xff3a6fc4, 0xffffffff, 0xff8ab4f8};

QPalette paletteOf(const Shades& shades)
{
    QPalette palette(QColor::fromRgba(shades.button), QColor::fromRgba(shades.window));
    const auto set = [&palette](QPalette::ColorRole role, QRgb colour) {
        palette.setColor(role, QColor::fromRgba(colour));
    };
    set(QPalette::Base, shades.base);
    set(QPalette::AlternateBase, shades.alternate);
    set(QPalette::ToolTipBase, shades.alternate);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        set(role, shades.text);
    set(QPalette::PlaceholderText, shades.faint);
    set(QPalette::Highlight, shades.highlight);
    set(QPalette::HighlightedText, shades.highlighted);
    set(QPalette::Link, shades.link);
    set(QPalette::LinkVisited, shades.link);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor::fromRgba(shades.faint));
    return palette;
}

} // namespace

void setAppearance(Appearance appearance)
{
    static const QString desktopStyle = QApplication::style()->objectName();
    if (appearance == Appearance::System) {
        if (QApplication::style()->objectName() != desktopStyle)
            QApplication::setStyle(desktopStyle);
        // What was not set is the desktop's.
        QApplication::setPalette(QPalette());
        return;
    }
    // Others draw some of their parts in the desktop's colours all the same.
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setPalette(paletteOf(appearance == Appearance::Dark ? s_dark : s_light));
}

} // namespace rvopen::browser
