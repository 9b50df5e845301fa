#include "ui/common/StatePanel.h"

#include "ui/controls/FontIcon.h"
#include "ui/controls/Label.h"
#include "ui/platform/Twips.h"

namespace quellbrook {

namespace {

// Pixels.
constexpr int IconSize = 32, TitleTop = 44, SentenceTop = 72;

}  // namespace

StatePanel::StatePanel(const QString& iconName, const QString& title, const QString& sentence, QWidget* parent,
                       int width)
    : GroupBox(parent), m_icon(new FontIcon(this)) {
    SetBackColor(Theme::Color::Window);
    SetWidth(ToTwips(width));
    m_icon->SetIcon(iconName, IconSize);
    m_icon->SetForeColor(Theme::Color::GrayText);
    m_icon->SetDimsWhenDisabled(false);
    m_icon->Move(ToTwips((width - IconSize) / 2.0), 0);
    m_title = AddText(title, Theme::Type::Section, TitleTop);
    m_sentence = AddText(sentence, Theme::Type::Body, SentenceTop);
    m_sentence->SetForeColor(Theme::Color::GrayText);
    SetHeight(m_sentence->Bottom());
}

Label* StatePanel::AddText(const QString& text, Theme::Type type, int top) {
    auto* label = new Label(this);
    label->SetType(type);
    label->SetDimsWhenDisabled(false);
    label->SetTextAlignment(Qt::AlignHCenter | Qt::AlignTop);
    label->SetWordWrap(true);
    label->Move(0, ToTwips(top), Width(), 0);
    label->SetCaption(text);
    return label;
}

}  // namespace quellbrook
