#include "ui/controls/FlatTabs.h"

#include "ui/platform/Guard.h"
#include "ui/platform/Twips.h"
#include "ui/style/TextBlock.h"
#include "ui/style/Theme.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace quellbrook {

namespace {

constexpr int HeaderHeight = 40;
constexpr int UnderlineHeight = 3;
constexpr int SidePadding = 4;
constexpr int Gap = 24;

// Captions keep their place when the selected one grows bolder.
int CaptionWidth(const QString& caption) { return TextWidth(Theme::Font(Theme::Type::BodySemiBold), caption); }

}  // namespace

FlatTabPage::FlatTabPage(QWidget* parent) : Control(parent) {}

void FlatTabPage::Layout() {
    Control* lone = nullptr;
    for (QObject* child : children()) {
        auto* control = qobject_cast<Control*>(child);
        if (!control || control->isWindow()) continue;
        if (lone) return;
        lone = control;
    }
    if (lone && lone->Align() == Alignment::None) lone->Move(0, 0, Width(), Height());
}

FlatTabs::FlatTabs(QWidget* parent) : Control(parent), m_indent(Theme::Margin) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    Control::Move(0, 0, ToTwips(400), ToTwips(200));
}

FlatTabPage* FlatTabs::AddTab(const QString& caption) {
    auto* page = new FlatTabPage(this);
    page->SetIndex(Count());
    page->setAccessibleName(caption);
    m_captions.push_back(caption);
    m_pages.push_back(page);
    page->setVisible(page->Index() == m_selected);
    RunLayout();
    update();
    return page;
}

QString FlatTabs::Caption(int index) const { return m_captions.at(static_cast<size_t>(index)); }

void FlatTabs::SetSelectedIndex(int index) {
    if (index < 0 || index >= Count()) Raise(ErrorNumber::InvalidPropertyValue, "FlatTabs.SelectedIndex");
    if (index == m_selected) return;
    Page(m_selected)->hide();
    m_selected = index;
    Page(m_selected)->show();
    update();
    Guard([this] { emit SelectionChanged(m_selected); });
}

void FlatTabs::SetIndent(float indent) {
    m_indent = ToPixels(indent);
    update();
}

QRect FlatTabs::TabRect(int index) const {
    int left = m_indent;
    for (int i = 0; i < index; ++i) left += CaptionWidth(Caption(i)) + 2 * SidePadding + Gap;
    return QRect(left, 0, CaptionWidth(Caption(index)) + 2 * SidePadding, HeaderHeight);
}

int FlatTabs::TabAt(const QPoint& at) const {
    for (int i = 0; i < Count(); ++i)
        if (TabRect(i).contains(at)) return i;
    return -1;
}

void FlatTabs::Layout() {
    for (FlatTabPage* page : m_pages)
        page->Move(0, ToTwips(HeaderHeight), Width(), std::max(0.0f, Height() - ToTwips(HeaderHeight)));
}

void FlatTabs::paintEvent(QPaintEvent*) {
    Guard([this] {
        using Theme::Color;
        QPainter painter(this);
        painter.fillRect(0, HeaderHeight - 1, width(), 1, Theme::Get(Color::Hairline));
        for (int i = 0; i < Count(); ++i) {
            const QRect place = TabRect(i);
            const bool selected = i == m_selected;
            const bool strong = selected || i == m_hovered;
            painter.setFont(Theme::Font(selected ? Theme::Type::BodySemiBold : Theme::Type::Body));
            painter.setPen(Theme::Get(!isEnabled() ? Color::DisabledText : strong ? Color::Text : Color::GrayText));
            painter.drawText(place.adjusted(SidePadding, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextDontClip,
                             Caption(i));
            if (!selected) continue;
            painter.fillRect(place.left(), HeaderHeight - UnderlineHeight, place.width(), UnderlineHeight,
                             Theme::Get(isEnabled() ? Color::Accent : Color::FieldBorder));
            if (!hasFocus()) continue;
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(QPen(Theme::Get(Color::Link), 2));
            painter.setBrush(Qt::NoBrush);
            painter.drawRoundedRect(QRectF(place).adjusted(-3, 5, 3, -6), Theme::Radius + 2, Theme::Radius + 2);
            painter.setRenderHint(QPainter::Antialiasing, false);
        }
    });
}

void FlatTabs::mousePressEvent(QMouseEvent* event) {
    const int index = TabAt(event->position().toPoint());
    if (index < 0 || event->button() != Qt::LeftButton) return event->ignore();
    Guard([this, index] { SetSelectedIndex(index); });
}

void FlatTabs::mouseMoveEvent(QMouseEvent* event) {
    m_hovered = TabAt(event->position().toPoint());
    if (m_hovered >= 0)
        setCursor(Qt::PointingHandCursor);
    else
        unsetCursor();
    update();
}

void FlatTabs::leaveEvent(QEvent* event) {
    Control::leaveEvent(event);
    m_hovered = -1;
    update();
}

void FlatTabs::keyPressEvent(QKeyEvent* event) {
    int wanted = m_selected;
    switch (event->key()) {
    case Qt::Key_Left: wanted = std::max(0, m_selected - 1); break;
    case Qt::Key_Right: wanted = std::min(Count() - 1, m_selected + 1); break;
    case Qt::Key_Home: wanted = 0; break;
    case Qt::Key_End: wanted = Count() - 1; break;
    default: return Control::keyPressEvent(event);
    }
    if (Count() > 0) Guard([this, wanted] { SetSelectedIndex(wanted); });
}

void FlatTabs::focusInEvent(QFocusEvent* event) {
    Control::focusInEvent(event);
    update();
}

void FlatTabs::focusOutEvent(QFocusEvent* event) {
    Control::focusOutEvent(event);
    update();
}

}  // namespace quellbrook
