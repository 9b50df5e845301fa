#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

#include <cstdint>

namespace quellbrook {

// The one place of colours, type and measures. Light or dark after the palette in use.
namespace Theme {

enum class Color {
    Window,
    Panel,
    Text,
    GrayText,
    Hairline,
    RowHairline,
    FieldBorder,
    Accent,
    Strong,
    StrongText,
    Link,
    Tint,
    Highlight,
    HighlightText,
    SelectedInactive,
    DisabledGround,
    DisabledText,
    Toast,
    ToastText,
    Secured,
    Shade,
    Thumb,
    StrongHover,
    StrongPressed
};

enum class Type {
    Title,
    ItemHeading,
    ItemHeadingRegular,
    Section,
    RowHeading,
    RowHeadingBold,
    Body,
    BodyBold,
    BodySemiBold,
    Subtitle,
    LinkText,
    Hint,
    TagText,
    StripCaption
};

// Sets the palette and fonts of the application, dark or light.
void Install(bool dark);
bool IsDark(const QPalette& palette);
bool IsDark();  // the application's palette

QColor Get(Color color);
QFont Font(Type type);
// The height of one line of this type as the layout counts it, in pixels.
int LineHeight(Type type);

// A colour fixed as 0xBBGGRR.
QColor FromBgr(int32_t color);
int32_t ToBgr(const QColor& color);

// Black or white text for a ground, by luminance: white where it reaches 4.5 to 1, the dark ink otherwise.
QColor TextOn(const QColor& ground);
double Contrast(const QColor& a, const QColor& b);

// The band behind rows in the batch: AccentColor's shade in a light palette, mixed towards Window in a dark one.
QColor BatchTint();

// Measures, pixels.
inline constexpr int Margin = 16, Grid = 4, Radius = 2, FieldHeight = 36, TitleBarHeight = 40, InfoBarHeight = 42;

}  // namespace Theme

}  // namespace quellbrook
