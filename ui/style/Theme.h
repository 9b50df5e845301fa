#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

#include <cstdint>

namespace quellbrook {

// All colors, fonts and sizes. Light or dark according to the current palette.
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
    StripCaption,
    Hint,
    TagText
};

// Sets the palette and fonts of the application, dark or light.
void Install(bool dark);
bool IsDark(const QPalette& palette);
bool IsDark();  // the application's palette

QColor Get(Color color);
QFont Font(Type type);
// The height of one line of this type as the layout counts it, in pixels.
int LineHeight(Type type);

// A fixed color as 0xBBGGRR.
QColor FromBgr(int32_t color);
int32_t ToBgr(const QColor& color);

// Text color for a background: white if its contrast is at least 4.5 to 1, dark ink otherwise.
QColor TextOn(const QColor& background);
double Contrast(const QColor& a, const QColor& b);

// The band behind rows that are in the batch: the accent color mixed with white, or with Window in a dark palette.
QColor BatchTint();

// Sizes in pixels.
inline constexpr int Margin = 16, Radius = 2, FieldHeight = 36, TitleBarHeight = 40;

}  // namespace Theme

}  // namespace quellbrook
