#include "ui/explorer/BusyPanel.h"

#include "ui/controls/FontIcon.h"
#include "ui/controls/Label.h"
#include "ui/platform/Twips.h"

namespace quellbrook {

namespace {

constexpr int ringSize = 32, titleTop = 44, sentenceTop = 72;

Label* AddLine(GroupBox* panel, const QString& text, Theme::Type type, int top, int width) {
    auto* label = new Label(panel);
    label->SetAutoSize(false);
    label->SetType(type);
    label->SetTextAlignment(Qt::AlignCenter);
    label->SetCaption(text);
    label->Move(0, ToTwips(top), ToTwips(width), ToTwips(Theme::LineHeight(type)));
    return label;
}

}  // namespace

BusyPanel::BusyPanel(const QString& title, const QString& sentence, int width, QWidget* parent) : GroupBox(parent) {
    auto* ring = new FontIcon(this);
    ring->SetIcon("busy", ringSize);
    ring->Move(ToTwips((width - ringSize) / 2.0), 0);
    m_title = AddLine(this, title, Theme::Type::Section, titleTop, width);
    m_sentence = AddLine(this, sentence, Theme::Type::Body, sentenceTop, width);
    m_sentence->SetForeColor(Theme::Color::GrayText);
    SetWidth(ToTwips(width));
    SetHeight(m_sentence->Bottom());
}

}  // namespace quellbrook
