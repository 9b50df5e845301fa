#include "ui/explorer/StatePanel.h"

#include "ui/platform/Guard.h"
#include "ui/platform/Twips.h"
#include "ui/style/Icons.h"
#include "ui/style/TextBlock.h"

#include <QPainter>

namespace quellbrook {

namespace {

// Pixels.
constexpr int PanelWidth = 340, IconSize = 32, TitleTop = 44, SentenceTop = 72;

TextBlock SentenceBlock(const QString& sentence) { return {sentence, Theme::Type::Body, PanelWidth}; }

}  // namespace

StatePanel::StatePanel(const QString& iconName, const QString& title, const QString& sentence, QWidget* parent)
    : GroupBox(parent), m_icon(iconName), m_title(title), m_sentence(sentence) {
    SetBackColor(Theme::Color::Window);
    setAccessibleName(title + " " + sentence);
    SetWidth(ToTwips(PanelWidth));
    SetHeight(ToTwips(SentenceTop + SentenceBlock(sentence).Height()));
}

void StatePanel::paintEvent(QPaintEvent* event) {
    GroupBox::paintEvent(event);
    Guard([this] {
        QPainter painter(this);
        const QColor gray = Theme::Get(Theme::Color::GrayText);
        const Qt::Alignment centred = Qt::AlignHCenter | Qt::AlignTop;
        painter.drawPixmap((width() - IconSize) / 2, 0, Icons::Pixmap(m_icon, IconSize, gray, devicePixelRatioF()));
        painter.setPen(Theme::Get(Theme::Color::Text));
        TextBlock(m_title, Theme::Type::Section).Draw(painter, QRect(0, TitleTop, width(), SentenceTop), centred);
        painter.setPen(gray);
        SentenceBlock(m_sentence).Draw(painter, rect().adjusted(0, SentenceTop, 0, 0), centred);
    });
}

}  // namespace quellbrook
