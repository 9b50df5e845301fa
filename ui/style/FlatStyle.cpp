#include "ui/style/FlatStyle.h"

#include "ui/style/ButtonLook.h"
#include "ui/style/FieldFrame.h"
#include "ui/style/FocusRing.h"
#include "ui/style/Icons.h"
#include "ui/style/Theme.h"

#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QStyleFactory>
#include <QStyleOptionButton>
#include <QStyleOptionFrame>
#include <QStyleOptionMenuItem>
#include <QStyleOptionSlider>

namespace quellbrook {

namespace {

constexpr int BarExtent = 12;
constexpr int ThumbWidth = 8;
constexpr int ArrowSize = 12;
constexpr int OnlyUp = 1, OnlyDown = 2;
constexpr int ShortestThumb = 32;
constexpr int FieldMargin = 8;  // besides the 2 px of QLineEdit
constexpr int MenuEntryHeight = 30;
constexpr int MenuSeparatorHeight = 9;
constexpr int MenuTextLeft = 36;
constexpr int MenuTextRight = 28;

QFont MenuFont(bool isDefault) {
    QFont font = Theme::Font(Theme::Type::Subtitle);
    if (isDefault) font.setWeight(QFont::Bold);
    return font;
}

bool IsDefault(const QStyleOptionMenuItem& item) { return item.menuItemType == QStyleOptionMenuItem::DefaultItem; }

bool IsBold(const QStyleOptionMenuItem& item) { return IsDefault(item) || item.font.bold(); }

QString CaptionOf(const QStyleOptionMenuItem& item) { return item.text.section(QLatin1Char('\t'), 0, 0); }

void DrawMenuEntry(const QStyleOptionMenuItem& item, QPainter& painter, const QWidget* widget) {
    const QRect rect = item.rect;
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        painter.fillRect(rect.left(), rect.center().y(), rect.width(), 1, Theme::Get(Theme::Color::Hairline));
        return;
    }
    const bool enabled = item.state & QStyle::State_Enabled;
    const bool chosen = enabled && (item.state & QStyle::State_Selected);
    if (chosen) painter.fillRect(rect, Theme::Get(Theme::Color::Highlight));
    QColor ink = Theme::Get(Theme::Color::Text);
    if (!enabled) ink = Theme::Get(Theme::Color::DisabledText);
    if (chosen) ink = Theme::Get(Theme::Color::HighlightText);

    const qreal ratio = widget ? widget->devicePixelRatioF() : 1.0;
    const QPoint iconAt(rect.left() + 10, rect.center().y() - 8);
    if (item.checked)
        painter.drawPixmap(iconAt, Icons::Pixmap(QStringLiteral("check"), 18, ink, ratio));
    else if (!item.icon.isNull())
        item.icon.paint(&painter, QRect(iconAt, QSize(18, 18)));

    painter.setFont(MenuFont(IsBold(item)));
    painter.setPen(ink);
    const QRect textRect = rect.adjusted(MenuTextLeft, 0, -12, 0);
    painter.drawText(textRect, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine | Qt::TextHideMnemonic,
                     CaptionOf(item));
    const QString shortcut = item.text.section(QLatin1Char('\t'), 1);
    if (!shortcut.isEmpty()) painter.drawText(textRect, Qt::AlignVCenter | Qt::AlignRight, shortcut);
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu)
        painter.drawPixmap(rect.right() - 24, rect.center().y() - 8,
                           Icons::Pixmap(QStringLiteral("chevron_r"), 16, ink, ratio));
}

// Without icons and menus, which no button has.
void DrawButton(const QStyleOptionButton& button, QPainter& painter) {
    const auto is = [&](QStyle::StateFlag state) { return bool(button.state & state); };
    const bool inverted = !(button.features & QStyleOptionButton::DefaultButton);
    const ButtonLook look =
        LookOfButton(is(QStyle::State_Enabled), inverted, is(QStyle::State_MouseOver), is(QStyle::State_Sunken));
    painter.save();
    PaintButtonGround(painter, button.rect, look);
    painter.setFont(Theme::Font(Theme::Type::BodySemiBold));
    painter.setPen(look.ink);
    painter.drawText(button.rect, Qt::AlignCenter | Qt::TextSingleLine | Qt::TextHideMnemonic, button.text);
    painter.restore();
}

bool IsFramed(const QStyleOption* option) {
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
    return frame && frame->lineWidth > 0;
}

QRect ThumbOf(const QRect& slider, Qt::Orientation orientation) {
    QRect thumb = slider;
    if (orientation == Qt::Vertical) {
        thumb.setWidth(ThumbWidth);
        thumb.moveLeft(slider.left() + (slider.width() - ThumbWidth) / 2);
    } else {
        thumb.setHeight(ThumbWidth);
        thumb.moveTop(slider.top() + (slider.height() - ThumbWidth) / 2);
    }
    return thumb;
}

void DrawArrow(QPainter& painter, const QRect& part, bool up, const QColor& ink) {
    painter.save();
    painter.translate(QRectF(part).center());
    if (up) painter.rotate(180);
    painter.drawPixmap(QPointF(-ArrowSize / 2.0, -ArrowSize / 2.0),
                       Icons::Pixmap(QStringLiteral("chevron"), ArrowSize, ink, painter.device()->devicePixelRatioF()));
    painter.restore();
}

}  // namespace

FlatStyle::FlatStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

int FlatStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
    case PM_ScrollBarExtent: return BarExtent;
    case PM_ScrollBarSliderMin: return ShortestThumb;
    case PM_ScrollView_ScrollBarSpacing: return 0;
    case PM_MenuPanelWidth: return 1;
    case PM_MenuVMargin: return 4;
    case PM_MenuHMargin: return 0;
    case PM_SmallIconSize: return 20;
    case PM_FocusFrameHMargin: return 0;
    case PM_FocusFrameVMargin: return 0;
    case PM_ToolTipLabelFrameWidth: return 5;
    default: return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int FlatStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* result) const {
    switch (hint) {
    case SH_ComboBox_Popup: return 0;
    case SH_ComboBox_PopupFrameStyle: return QFrame::Box | QFrame::Plain;
    case SH_ScrollBar_Transient: return 0;
    case SH_UnderlineShortcut: return 0;
    case SH_EtchDisabledText: return 0;
    case SH_DitherDisabledText: return 0;
    case SH_ItemView_ActivateItemOnSingleClick: return 0;
    case SH_ToolTipLabel_Opacity: return 255;
    case SH_Menu_SubMenuPopupDelay: return 150;
    default: return QProxyStyle::styleHint(hint, option, widget, result);
    }
}

void FlatStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    const auto* edit = qobject_cast<QLineEdit*>(widget);
    const bool isButton = qobject_cast<QPushButton*>(widget);
    if (isButton) widget->setAttribute(Qt::WA_Hover);
    if (isButton || (edit && edit->hasFrame()) || qobject_cast<QComboBox*>(widget)) FocusRing::Show(widget);
}

QRect FlatStyle::subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const {
    if (element == SE_LineEditContents && IsFramed(option))
        return option->rect.adjusted(FieldMargin, 1, -FieldMargin, -1);
    return QProxyStyle::subElementRect(element, option, widget);
}

QSize FlatStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                  const QWidget* widget) const {
    if (type == CT_LineEdit && IsFramed(option)) return QSize(size.width() + 2 * FieldMargin, Theme::FieldHeight);
    if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option); button && type == CT_PushButton) {
        const QFontMetrics metrics(Theme::Font(Theme::Type::BodySemiBold));
        const int text = metrics.size(Qt::TextSingleLine | Qt::TextHideMnemonic, button->text).width();
        return QSize(text + 2 * ButtonMargin, Theme::FieldHeight);
    }
    if (type == CT_MenuItem) {
        if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option)) {
            if (item->menuItemType == QStyleOptionMenuItem::Separator) return QSize(10, MenuSeparatorHeight);
            // Measured in bold, because a menu keeps its size when another entry becomes the default.
            const int width =
                QFontMetrics(MenuFont(true)).size(Qt::TextSingleLine | Qt::TextHideMnemonic, CaptionOf(*item)).width();
            const QString shortcut = item->text.section(QLatin1Char('\t'), 1);
            const int more = shortcut.isEmpty() ? 0 : QFontMetrics(MenuFont(false)).horizontalAdvance(shortcut) + 24;
            return QSize(MenuTextLeft + width + more + MenuTextRight, MenuEntryHeight);
        }
    }
    return QProxyStyle::sizeFromContents(type, option, size, widget);
}

QRect FlatStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                const QWidget* widget) const {
    const auto* bar = control == CC_ScrollBar ? qstyleoption_cast<const QStyleOptionSlider*>(option) : nullptr;
    if (!bar) return QProxyStyle::subControlRect(control, option, part, widget);

    const bool vertical = bar->orientation == Qt::Vertical;
    const int total = vertical ? bar->rect.height() : bar->rect.width();
    const bool hasArrows = widget && widget->property(ArrowsProperty).isValid();
    const int arrow = hasArrows ? qMin(total / 2, vertical ? bar->rect.width() : bar->rect.height()) : 0;
    const int length = total - 2 * arrow;
    const double range = double(bar->maximum) - bar->minimum;
    const QVariant set = widget ? widget->property(ThumbShareProperty) : QVariant();
    const double share = set.isValid() ? set.toDouble() : bar->pageStep / (range + bar->pageStep);
    const int slider = range > 0 ? qBound(qMin(ShortestThumb, length), int(length * share), length) : length;
    const int start = arrow + sliderPositionFromValue(bar->minimum, bar->maximum, bar->sliderPosition, length - slider,
                                                      bar->upsideDown);
    const auto rect = [&](int from, int to) {
        return vertical ? QRect(bar->rect.left(), bar->rect.top() + from, bar->rect.width(), to - from)
                        : visualRect(bar->direction, bar->rect,
                                     QRect(bar->rect.left() + from, bar->rect.top(), to - from, bar->rect.height()));
    };
    switch (part) {
    case SC_ScrollBarSubLine: return rect(0, arrow);
    case SC_ScrollBarAddLine: return rect(total - arrow, total);
    case SC_ScrollBarGroove: return rect(arrow, total - arrow);
    case SC_ScrollBarSlider: return rect(start, start + slider);
    case SC_ScrollBarSubPage: return rect(arrow, start);
    case SC_ScrollBarAddPage: return rect(start + slider, total - arrow);
    default: return QRect();
    }
}

void FlatStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    switch (element) {
    case PE_FrameFocusRect: return;
    case PE_PanelLineEdit:
        if (!IsFramed(option)) return QProxyStyle::drawPrimitive(element, option, painter, widget);
        painter->save();
        PaintField(*painter, option->rect, option->state & State_Enabled);
        return painter->restore();
    case PE_PanelMenu: painter->fillRect(option->rect, Theme::Get(Theme::Color::Window)); return;
    case PE_FrameMenu:
        painter->setPen(Theme::Get(Theme::Color::FieldBorder));
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
        return;
    case PE_PanelScrollAreaCorner: painter->fillRect(option->rect, option->palette.color(QPalette::Base)); return;
    case PE_PanelTipLabel: painter->fillRect(option->rect, option->palette.color(QPalette::ToolTipBase)); return;
    default: QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void FlatStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    if (element == CE_MenuItem) {
        if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option))
            return DrawMenuEntry(*item, *painter, widget);
    }
    if (element == CE_PushButton) {
        if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option))
            return DrawButton(*button, *painter);
    }
    if (element == CE_MenuEmptyArea) return painter->fillRect(option->rect, Theme::Get(Theme::Color::Window));
    QProxyStyle::drawControl(element, option, painter, widget);
}

void FlatStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                   const QWidget* widget) const {
    const auto* bar = control == CC_ScrollBar ? qstyleoption_cast<const QStyleOptionSlider*>(option) : nullptr;
    if (!bar) return QProxyStyle::drawComplexControl(control, option, painter, widget);

    const QVariant arrows = widget ? widget->property(ArrowsProperty) : QVariant();
    const bool enabled = bar->state & State_Enabled;
    painter->fillRect(bar->rect,
                      arrows.isValid() ? Theme::Get(Theme::Color::Panel) : bar->palette.color(QPalette::Base));
    if (arrows.isValid()) {
        const QColor ink = Theme::Get(enabled ? Theme::Color::GrayText : Theme::Color::Thumb);
        const auto part = [&](SubControl end) { return subControlRect(CC_ScrollBar, bar, end, widget); };
        if (arrows.toInt() != OnlyDown) DrawArrow(*painter, part(SC_ScrollBarSubLine), true, ink);
        if (arrows.toInt() != OnlyUp) DrawArrow(*painter, part(SC_ScrollBarAddLine), false, ink);
        if (!enabled) return;
    } else if (bar->maximum <= bar->minimum) {
        return;
    }
    const bool active = (bar->state & State_MouseOver) || (bar->activeSubControls & SC_ScrollBarSlider);
    const QRect slider = subControlRect(CC_ScrollBar, bar, SC_ScrollBarSlider, widget);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(Theme::Get(active ? Theme::Color::FieldBorder : Theme::Color::Thumb));
    painter->drawRoundedRect(ThumbOf(slider, bar->orientation), Theme::Radius, Theme::Radius);
    painter->restore();
}

}  // namespace quellbrook
