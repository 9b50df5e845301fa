#include "ui/controls/FlatScrollBar.h"

#include "ui/controls/MouseEvents.h"
#include "ui/platform/Guard.h"
#include "ui/platform/Twips.h"
#include "ui/style/FlatStyle.h"

#include <QApplication>
#include <QScrollBar>

#include <algorithm>
#include <cstdint>
#include <limits>

namespace quellbrook {

namespace {

constexpr int BarWidth = 16;
constexpr int Notch = 120;
constexpr int TrackBit = 1, PositionBit = 4;

int Checked(int value, const char* source) {
    if (value < std::numeric_limits<int16_t>::min() || value > std::numeric_limits<int16_t>::max())
        Raise(ErrorNumber::Overflow, source);
    return value;
}

}  // namespace

FlatScrollBar::FlatScrollBar(QWidget* parent) : Control(parent), m_bar(new QScrollBar(Qt::Vertical, this)) {
    // A separate style, so that the arrows follow the property even if the host uses another style.
    auto* style = new FlatStyle;
    style->setParent(m_bar);
    m_bar->setStyle(style);
    SetArrows(Both);
    new ScrollWheelSupport(m_bar, this);
    m_bar->setRange(0, std::numeric_limits<int16_t>::max());
    m_bar->setSingleStep(1);
    m_bar->setPageStep(1);
    connect(m_bar, &QScrollBar::valueChanged, this, [this] { Guard([this] { emit Changed(); }); });
    connect(m_bar, &QScrollBar::actionTriggered, this,
            [this](int action) { Guard([this, action] { Filter(action); }); });
    Control::Move(0, 0, ToTwips(BarWidth), ToTwips(100));
}

int FlatScrollBar::Min() const { return m_bar->minimum(); }
int FlatScrollBar::Max() const { return m_bar->maximum(); }
int FlatScrollBar::Value() const { return m_bar->value(); }
int FlatScrollBar::SmallChange() const { return m_bar->singleStep(); }
int FlatScrollBar::LargeChange() const { return m_bar->pageStep(); }

void FlatScrollBar::SetMin(int min) { m_bar->setMinimum(Checked(min, "FlatScrollBar.Min")); }
void FlatScrollBar::SetMax(int max) { m_bar->setMaximum(Checked(max, "FlatScrollBar.Max")); }

void FlatScrollBar::SetValue(int value) {
    Checked(value, "FlatScrollBar.Value");
    if (value < Min() || value > Max()) Raise(ErrorNumber::InvalidPropertyValue, "FlatScrollBar.Value");
    m_bar->setValue(value);
}

void FlatScrollBar::SetSmallChange(int step) { m_bar->setSingleStep(Checked(step, "FlatScrollBar.SmallChange")); }
void FlatScrollBar::SetLargeChange(int step) { m_bar->setPageStep(Checked(step, "FlatScrollBar.LargeChange")); }

void FlatScrollBar::SetArrows(int arrows) {
    m_arrows = arrows;
    m_bar->setProperty(FlatStyle::ArrowsProperty, arrows);
    m_bar->update();
}

void FlatScrollBar::SetThumbShare(float share) {
    m_bar->setProperty(FlatStyle::ThumbShareProperty, share);
    m_bar->update();
}

int FlatScrollBar::FilterScrollCode(int code) {
    constexpr int both = TrackBit | PositionBit;
    return (code & both) == both ? code & ~TrackBit : code;
}

void FlatScrollBar::Filter(int action) {
    constexpr int top = 6, bottom = 7;
    if (!m_thumbFilter || action != QAbstractSlider::SliderToMaximum) return;
    if (FilterScrollCode(bottom) == top) m_bar->setSliderPosition(Min());
}

void FlatScrollBar::TurnWheel(int angleDelta) {
    if ((m_wheelRest < 0) != (angleDelta < 0)) m_wheelRest = 0;
    m_wheelRest += angleDelta;
    const int lines = std::max(1, QApplication::wheelScrollLines());
    const int steps = m_wheelRest * lines / Notch;
    m_wheelRest -= steps * Notch / lines;
    m_bar->setValue(Value() - steps * SmallChange());
}

void FlatScrollBar::Layout() { m_bar->setGeometry(rect()); }

}  // namespace quellbrook
