#include "ui/controls/Control.h"

#include "ui/platform/Guard.h"
#include "ui/platform/Strings.h"
#include "ui/platform/TabOrder.h"
#include "ui/platform/Twips.h"

#include <QEvent>
#include <QResizeEvent>

#include <algorithm>

namespace quellbrook {

struct Control::Geometry {
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;
    QRect pixels;  // the widget geometry that these lengths correspond to
};

namespace {

uint64_t NextSerial() {
    static uint64_t serial = 0;
    return ++serial;
}

}  // namespace

Control::Control(QWidget* parent) : QWidget(parent), m_geometry(std::make_unique<Geometry>()), m_serial(NextSerial()) {}

Control::~Control() = default;

std::string Control::Name() const { return ToUtf8(objectName()); }

void Control::TakeOver() const {
    Geometry& kept = *m_geometry;
    const QRect now = geometry();
    if (now == kept.pixels) return;
    if (now.x() != kept.pixels.x()) kept.left = ToTwips(now.x());
    if (now.y() != kept.pixels.y()) kept.top = ToTwips(now.y());
    if (now.width() != kept.pixels.width()) kept.width = ToTwips(now.width());
    if (now.height() != kept.pixels.height()) kept.height = ToTwips(now.height());
    kept.pixels = now;
}

void Control::Apply() {
    Geometry& kept = *m_geometry;
    const QSize before = size();
    kept.pixels = QRect(ToPixels(kept.left), ToPixels(kept.top), ToPixels(kept.width), ToPixels(kept.height));
    const QRect asked = kept.pixels;
    setGeometry(asked);
    TakeOver();
    if (size() != before && !isVisible()) OnResized();
}

float Control::Left() const {
    TakeOver();
    return m_geometry->left;
}

float Control::Top() const {
    TakeOver();
    return m_geometry->top;
}

float Control::Width() const {
    TakeOver();
    return m_geometry->width;
}

float Control::Height() const {
    TakeOver();
    return m_geometry->height;
}

void Control::SetLeft(float twips) { Move(twips, Top()); }
void Control::SetTop(float twips) { Move(Left(), twips); }
void Control::SetWidth(float twips) { Move(Left(), Top(), twips, Height()); }
void Control::SetHeight(float twips) { Move(Left(), Top(), Width(), twips); }
void Control::Move(float left, float top) { Move(left, top, Width(), Height()); }

void Control::Move(float left, float top, float width, float height) {
    TakeOver();
    m_geometry->left = left;
    m_geometry->top = top;
    m_geometry->width = std::max(width, 0.0f);
    m_geometry->height = std::max(height, 0.0f);
    Apply();
}

void Control::SetTabIndex(int index) {
    m_tabIndex = index;
    if (index == 0) MoveFirstInTabOrder(this);
}

void Control::SetAlign(Alignment align) {
    if (m_align == align) return;
    m_align = align;
    LayoutParent();
}

void Control::SetOverlaying(bool overlaying) {
    if (m_overlaying == overlaying) return;
    m_overlaying = overlaying;
    LayoutParent();
}

void Control::LayoutDockedChildren() {
    std::vector<Control*> docked;
    for (QObject* child : children()) {
        auto* control = qobject_cast<Control*>(child);
        if (control && control->m_align != Alignment::None && control->IsShown()) docked.push_back(control);
    }
    const auto createdBefore = [](const Control* a, const Control* b) { return a->m_serial < b->m_serial; };
    std::sort(docked.begin(), docked.end(), createdBefore);

    float top = 0;
    float bottom = ClientHeight();
    m_docking = true;
    for (Control* control : docked) {
        control->SetWidth(ClientWidth());
        const float height = control->Height();
        const bool atTop = control->m_align == Alignment::Top;
        if (control->m_overlaying) {
            control->Move(0, atTop ? top : bottom - height);
        } else if (atTop) {
            control->Move(0, top);
            top += height;
        } else {
            bottom -= height;
            control->Move(0, bottom);
        }
    }
    m_docking = false;
}

void Control::RunLayout() {
    GuardSilently([this] { LayoutDockedChildren(); });
    GuardSilently([this] { Layout(); });
}

void Control::LayoutParent() {
    auto* parent = qobject_cast<Control*>(parentWidget());
    if (parent && !parent->m_docking) parent->RunLayout();
}

void Control::OnResized() {
    RunLayout();
    if (m_align != Alignment::None) LayoutParent();
}

void Control::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    OnResized();
}

bool Control::event(QEvent* event) {
    const bool handled = QWidget::event(event);
    const bool visibilityChanged = event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent;
    if (visibilityChanged && m_align != Alignment::None) LayoutParent();
    return handled;
}

}  // namespace quellbrook
