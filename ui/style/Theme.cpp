#include "ui/style/Theme.h"

#include <QApplication>
#include <QToolTip>

#include <cmath>
#include <map>

namespace quellbrook::Theme {

namespace {

struct Shades {
    QRgb light;
    QRgb dark;
};

constexpr QRgb Ink = 0xFF0B0F0E;

Shades ShadesOf(Color color) {
    switch (color) {
    case Color::Window: return {0xFFFFFFFF, 0xFF1A1E1F};
    case Color::Panel: return {0xFFF4F6F6, 0xFF212728};
    case Color::Text: return {0xFF1B2326, 0xFFE7ECEC};
    case Color::GrayText: return {0xFF56636A, 0xFFA7B2B4};
    case Color::Hairline: return {0xFFDDE3E4, 0xFF363E40};
    case Color::RowHairline: return {0xFFEBEFEF, 0xFF2A3132};
    case Color::FieldBorder: return {0xFF87949A, 0xFF76848A};
    case Color::Accent: return {0xFF24AD87, 0xFF24AD87};
    case Color::Strong: return {0xFF0B7A5B, 0xFF24AD87};
    case Color::StrongText: return {0xFFFFFFFF, Ink};
    case Color::Link: return {0xFF0B7A5B, 0xFF4CCBA6};
    case Color::Tint: return {0xFFE9F7F3, 0xFF1C3A33};
    case Color::Highlight: return {0xFF2B5C8C, 0xFF2F6398};
    case Color::HighlightText: return {0xFFFFFFFF, 0xFFFFFFFF};
    case Color::SelectedInactive: return {0xFFE1E7E8, 0xFF343D3F};
    case Color::DisabledGround: return {0xFFE9EDED, 0xFF2A3132};
    case Color::DisabledText: return {0xFF6B787D, 0xFF8C999C};
    case Color::Toast: return {0xFF1F2D2A, 0xFFE7ECEC};
    case Color::ToastText: return {0xFFFFFFFF, 0xFF1A1E1F};
    case Color::Secured: return {0xFFDC5C1C, 0xFFDC5C1C};
    case Color::Shade: return {0xFF141C1E, 0xFF141C1E};
    case Color::Thumb: return {0xFFB4BFC2, 0xFF586266};
    case Color::StrongHover: return {0xFF096A4F, 0xFF35BE98};
    case Color::StrongPressed: return {0xFF075840, 0xFF1C9C78};
    }
    return {0xFF000000, 0xFF000000};
}

QColor Shade(Color color, bool dark) { return QColor::fromRgba(dark ? ShadesOf(color).dark : ShadesOf(color).light); }

QPalette MakePalette(bool dark) {
    const auto shade = [dark](Color color) { return Shade(color, dark); };
    QPalette palette(shade(Color::Text), shade(Color::Panel), shade(Color::Window), shade(Color::FieldBorder),
                     shade(Color::Hairline), shade(Color::Text), shade(Color::Window), shade(Color::Window),
                     shade(Color::Window));
    palette.setColor(QPalette::AlternateBase, shade(Color::Panel));
    palette.setColor(QPalette::Highlight, shade(Color::Highlight));
    palette.setColor(QPalette::HighlightedText, shade(Color::HighlightText));
    palette.setColor(QPalette::PlaceholderText, shade(Color::GrayText));
    palette.setColor(QPalette::Link, shade(Color::Link));
    palette.setColor(QPalette::LinkVisited, shade(Color::Link));
    palette.setColor(QPalette::ToolTipBase, shade(Color::Toast));
    palette.setColor(QPalette::ToolTipText, shade(Color::ToastText));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, shade(Color::GrayText));
    return palette;
}

double Luminance(const QColor& color) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

struct Face {
    int size;
    int line;
    QFont::Weight weight;
};

Face FaceOf(Type type) {
    switch (type) {
    case Type::Title: return {20, 28, QFont::DemiBold};
    case Type::ItemHeading: return {20, 28, QFont::DemiBold};
    case Type::ItemHeadingRegular: return {20, 28, QFont::Normal};
    case Type::Section: return {16, 24, QFont::DemiBold};
    case Type::RowHeading: return {15, 20, QFont::Normal};
    case Type::RowHeadingBold: return {15, 20, QFont::Bold};
    case Type::Body: return {14, 20, QFont::Normal};
    case Type::BodyBold: return {14, 20, QFont::Bold};
    case Type::BodySemiBold: return {14, 20, QFont::DemiBold};
    case Type::Subtitle: return {13, 20, QFont::Normal};
    case Type::LinkText: return {13, 20, QFont::Medium};
    case Type::StripCaption: return {13, 20, QFont::DemiBold};
    case Type::Hint: return {12, 16, QFont::Normal};
    case Type::TagText: return {12, 16, QFont::DemiBold};
    }
    return {14, 20, QFont::Normal};
}

}  // namespace

void Install(bool dark) {
    QApplication::setPalette(MakePalette(dark));
    QToolTip::setPalette(MakePalette(dark));
    QApplication::setFont(Font(Type::Body));
    QToolTip::setFont(Font(Type::Hint));
}

bool IsDark(const QPalette& palette) {
    return Luminance(palette.color(QPalette::Window)) < Luminance(palette.color(QPalette::WindowText));
}

bool IsDark() { return IsDark(QApplication::palette()); }

QColor Get(Color color) {
    const QPalette palette = QApplication::palette();
    switch (color) {
    case Color::Window: return palette.color(QPalette::Active, QPalette::Window);
    case Color::Text: return palette.color(QPalette::Active, QPalette::WindowText);
    case Color::GrayText: return palette.color(QPalette::Disabled, QPalette::WindowText);
    case Color::Highlight: return palette.color(QPalette::Active, QPalette::Highlight);
    case Color::HighlightText: return palette.color(QPalette::Active, QPalette::HighlightedText);
    default: return Shade(color, IsDark(palette));
    }
}

namespace {

QFont MakeFont(const Face& face) {
    QFont font;
    font.setFamilies({"Inter", "Inter Variable", "Segoe UI", "Helvetica Neue", "Noto Sans", "DejaVu Sans"});
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(face.size);
    font.setWeight(face.weight);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

}  // namespace

// One font per type, never freed, so that Qt resolves each font face only once.
QFont Font(Type type) {
    static auto& fonts = *new std::map<Type, QFont>;
    const auto found = fonts.find(type);
    return found != fonts.end() ? found->second : fonts.emplace(type, MakeFont(FaceOf(type))).first->second;
}

int LineHeight(Type type) { return FaceOf(type).line; }

QColor FromBgr(int32_t color) { return QColor(color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF); }
int32_t ToBgr(const QColor& color) { return color.red() | (color.green() << 8) | (color.blue() << 16); }

QColor TextOn(const QColor& background) {
    return Contrast(Qt::white, background) >= 4.5 ? QColor(Qt::white) : QColor::fromRgba(Ink);
}

double Contrast(const QColor& a, const QColor& b) {
    const double first = Luminance(a) + 0.05;
    const double second = Luminance(b) + 0.05;
    return first > second ? first / second : second / first;
}

QColor BatchTint() {
    constexpr double share = 0.9;
    const QColor accent = Shade(Color::Accent, false);
    const QColor background = IsDark() ? Get(Color::Window) : QColor(Qt::white);
    const auto mix = [](int from, int to) { return qRound(from + (to - from) * share); };
    return QColor(mix(accent.red(), background.red()), mix(accent.green(), background.green()),
                  mix(accent.blue(), background.blue()));
}

}  // namespace quellbrook::Theme
