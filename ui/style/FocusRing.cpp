#include "ui/style/FocusRing.h"

#include "ui/platform/Guard.h"
#include "ui/style/Theme.h"

#include <QEvent>
#include <QPainter>

namespace quellbrook {

namespace {

constexpr int Reach = 3;

QPointer<FocusRing>& Current() {
    static QPointer<FocusRing> ring;
    return ring;
}

QRect RingIn(const QWidget* host, const QWidget* control) {
    return QRect(control->mapTo(host, QPoint(0, 0)), control->size()).adjusted(-Reach, -Reach, Reach, Reach);
}

QWidget* HostFor(const QWidget* control) {
    QWidget* host = control->parentWidget();
    while (host && !host->isWindow() && host->parentWidget() && !host->rect().contains(RingIn(host, control)))
        host = host->parentWidget();
    return host;
}

}  // namespace

FocusRing::FocusRing(QWidget* host, QWidget* control) : QWidget(host), m_control(control) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    setFocusPolicy(Qt::NoFocus);
    for (QWidget* widget = control; widget && widget != host; widget = widget->parentWidget()) {
        m_watched.emplace_back(widget);
        widget->installEventFilter(this);
    }
    Place();
}

void FocusRing::Follow(QWidget* control) {
    delete Current();
    QWidget* host = control->isWindow() ? nullptr : HostFor(control);
    if (host) Current() = new FocusRing(host, control);
}

void FocusRing::Leave(QWidget* control) {
    if (Current() && Current()->m_control == control) delete Current();
}

void FocusRing::Place() {
    if (!m_control) return hide();
    setGeometry(RingIn(parentWidget(), m_control));
    setVisible(m_control->isVisibleTo(parentWidget()));
    raise();
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::ZOrderChange: Guard([this] { Place(); }); break;
    case QEvent::ParentChange:
    case QEvent::Destroy:
        deleteLater();
        hide();
        break;
    default: break;
    }
    return QWidget::eventFilter(watched, event);
}

void FocusRing::paintEvent(QPaintEvent*) {
    Guard([this] {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Theme::Get(Theme::Color::Link), 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), Theme::Radius + 2, Theme::Radius + 2);
    });
}

}  // namespace quellbrook
