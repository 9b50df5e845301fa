#include "ui/common/PropertyBag.h"
#include "ui/common/StatePanel.h"
#include "ui/controls/GroupBox.h"
#include "ui/explorer/LocationTree.h"
#include "ui/explorer/LocationTreeWidget.h"
#include "ui/platform/Guard.h"
#include "ui/style/Theme.h"

#include <QEvent>

namespace quellbrook {

namespace {

constexpr short defaultAppearance = 1, defaultBorderStyle = 1;

std::optional<QColor> ReadColor(const PropertyBag& bag, const char* key) {
    std::optional<QColor> color;
    GuardSilently([&] {
        const TaggedValue value = bag.ReadProperty(key);
        if (!value.HasNoValue()) color = Theme::FromBgr(ToInt32(value));
    });
    return color;
}

short ReadNumber(const PropertyBag& bag, const char* key, short defaultValue) {
    short number = defaultValue;
    GuardSilently([&] { number = ToInt16(bag.ReadProperty(key, static_cast<int32_t>(defaultValue))); });
    return number;
}

void WriteColor(PropertyBag& bag, const char* key, const std::optional<QColor>& color) {
    bag.WriteProperty(key, color ? TaggedValue(Theme::ToBgr(*color)) : TaggedValue());
}

}  // namespace

void LocationTree::ReadProperties(const PropertyBag& bag) {
    m_backColor = ReadColor(bag, "BackColor");
    m_foreColor = ReadColor(bag, "ForeColor");
    m_rootColor = ReadColor(bag, "RootColor");
    m_appearance = ReadNumber(bag, "Appearance", defaultAppearance);
    m_borderStyle = ReadNumber(bag, "BorderStyle", defaultBorderStyle);
    ApplyColors();
    ApplyFrame();
}

void LocationTree::WriteProperties(PropertyBag& bag) const {
    WriteColor(bag, "BackColor", m_backColor);
    WriteColor(bag, "ForeColor", m_foreColor);
    WriteColor(bag, "RootColor", m_rootColor);
    bag.WriteProperty("Appearance", int32_t{m_appearance}, int32_t{defaultAppearance});
    bag.WriteProperty("BorderStyle", int32_t{m_borderStyle}, int32_t{defaultBorderStyle});
}

QColor LocationTree::BackColor() const { return m_backColor.value_or(palette().color(QPalette::Base)); }

QColor LocationTree::ForeColor() const { return m_foreColor.value_or(palette().color(QPalette::Text)); }

QColor LocationTree::RootColor() const { return m_rootColor.value_or(palette().color(QPalette::Text)); }

void LocationTree::SetColor(std::optional<QColor>& property, const std::optional<QColor>& color) {
    property = color;
    ApplyColors();
}

void LocationTree::SetAppearance(short appearance) {
    m_appearance = appearance;
    ApplyFrame();
}

void LocationTree::SetBorderStyle(short borderStyle) {
    m_borderStyle = borderStyle;
    ApplyFrame();
}

void LocationTree::ApplyFrame() {
    const bool isRaised = m_appearance == 1;
    m_picLoading->SetFramed(isRaised);
    m_treeView->setFrameShape(m_borderStyle == 0 ? QFrame::NoFrame : isRaised ? QFrame::StyledPanel : QFrame::Box);
}

void LocationTree::ApplyColors() {
    const QColor color = BackColor();
    QPalette colors;
    colors.setColor(QPalette::Base, color);
    m_treeView->setPalette(colors);
    for (QTreeWidgetItem* node : m_nodes) {
        node->setBackground(0, color);
        node->setForeground(0, node->parent() ? ForeColor() : RootColor());
    }
    m_picLoading->SetBackColor(color);
    m_picLoadingMessage->SetBackColor(color);
    m_treeView->viewport()->update();
}

void LocationTree::changeEvent(QEvent* event) {
    Guard([this, event] {
        View::changeEvent(event);
        if (event->type() == QEvent::PaletteChange) ApplyColors();
    });
}

}  // namespace quellbrook
