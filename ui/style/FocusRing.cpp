#include "ui/style/FocusRing.h"

#include "ui/platform/Guard.h"
#include "ui/style/Theme.h"

#include <QApplication>
#include <QCommonStyle>
#include <QFocusFrame>
#include <QPainter>
#include <QPointer>
#include <QStyleOption>

namespace quellbrook {

namespace {

constexpr int Reach = 3;
constexpr const char* HasRing = "quellbrookFocusRing";
constexpr const char* RingSize = "quellbrookFocusRingSize";

// A separate style, so that the ring looks the same even if the host uses another style.
class RingStyle : public QCommonStyle {
public:
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
        if (metric != PM_FocusFrameHMargin && metric != PM_FocusFrameVMargin)
            return QCommonStyle::pixelMetric(metric, option, widget);
        const auto* ring = option ? qobject_cast<const QFocusFrame*>(option->styleObject) : nullptr;
        const QWidget* control = ring ? ring->widget() : nullptr;
        const QSize part = control ? control->property(RingSize).toSize() : QSize();
        if (part.isEmpty()) return Reach;
        const QSize surplus = control->size() - part;
        return Reach - (metric == PM_FocusFrameHMargin ? surplus.width() : surplus.height()) / 2;
    }

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override {
        if (hint == SH_FocusFrame_AboveWidget) return 1;
        if (hint != SH_FocusFrame_Mask || !widget) return QCommonStyle::styleHint(hint, option, widget, result);
        // QCommonStyle would cut off the sides at which the ring is inside the control.
        if (auto* mask = qstyleoption_cast<QStyleHintReturnMask*>(result))
            mask->region = QRegion(widget->rect()) - widget->rect().adjusted(Reach, Reach, -Reach, -Reach);
        return 1;
    }

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
        if (element != CE_FocusFrame) return QCommonStyle::drawControl(element, option, painter, widget);
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(Theme::Get(Theme::Color::Link), 2));
        painter->drawRoundedRect(QRectF(option->rect).adjusted(1, 1, -1, -1), Theme::Radius + 2, Theme::Radius + 2);
    }
};

// QFocusFrame hides itself when the control gets another style or style sheet.
class Ring : public QFocusFrame {
public:
    using QFocusFrame::QFocusFrame;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool handled = QFocusFrame::eventFilter(watched, event);
        if (event->type() == QEvent::StyleChange && watched == widget() && widget()->isVisible()) show();
        return handled;
    }
};

void MoveRing(QWidget* focused) {
    static QPointer<Ring> ring;
    delete ring;
    QWidget* control = focused;
    if (control && control->parentWidget() && control->parentWidget()->focusProxy() == control)
        control = control->parentWidget();
    if (!control || control->isWindow() || !control->property(HasRing).toBool()) return;
    ring = new Ring(control->window());
    auto* style = new RingStyle;
    style->setParent(ring);
    ring->setStyle(style);
    ring->setWidget(control);
}

}  // namespace

void FocusRing::Show(QWidget* control) {
    static QPointer<QObject> follower;
    control->setProperty(HasRing, true);
    if (follower) return;
    follower = new QObject(qApp);
    QObject::connect(qApp, &QApplication::focusChanged, follower,
                     [](QWidget*, QWidget* focused) { Guard([focused] { MoveRing(focused); }); });
}

void FocusRing::SetSize(QWidget* control, const QSize& size) { control->setProperty(RingSize, size); }

}  // namespace quellbrook
