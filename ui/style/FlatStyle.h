#pragma once

#include <QProxyStyle>

namespace quellbrook {

// Draws standard Qt widgets in the colors and sizes of the theme: menus, scroll bars, tooltips, frames, lists of
// dropdowns, line edits and push buttons. A default button is the main one. Buttons, framed line edits and dropdowns
// have the focus ring of the controls.
class FlatStyle : public QProxyStyle {
    Q_OBJECT

public:
    // Set on a scroll bar to show arrows at its ends: 0 for both, 1 for only up, 2 for only down.
    static constexpr const char* ArrowsProperty = "quellbrookArrows";
    // Set on a scroll bar whose page step is not what is visible: the length of the thumb as a share of the track.
    static constexpr const char* ThumbShareProperty = "quellbrookThumbShare";

    FlatStyle();

    using QProxyStyle::polish;
    void polish(QWidget* widget) override;
    QRect subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
};

}  // namespace quellbrook
