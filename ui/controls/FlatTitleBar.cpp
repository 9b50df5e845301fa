#include "ui/controls/FlatTitleBar.h"

#include "ui/platform/Guard.h"
#include "ui/platform/Twips.h"
#include "ui/style/Icons.h"
#include "ui/style/TextBlock.h"
#include "ui/style/Theme.h"

#include <QPainter>

namespace quellbrook {

namespace {

constexpr int MarkSize = 20;
constexpr int MarkLeft = 17;
constexpr int CaptionLeft = 46;

}  // namespace

FlatTitleBar::FlatTitleBar(QWidget* parent) : Control(parent) { SetHeight(ToTwips(Theme::TitleBarHeight)); }

void FlatTitleBar::SetCaption(const QString& caption) {
    m_caption = caption;
    setAccessibleName(caption);
    update();
}

void FlatTitleBar::paintEvent(QPaintEvent*) {
    GuardPainting([this] {
        QPainter painter(this);
        painter.fillRect(rect(), Theme::Get(Theme::IsDark() ? Theme::Color::Panel : Theme::Color::Window));
        painter.fillRect(0, height() - 1, width(), 1, Theme::Get(Theme::Color::Hairline));

        const QRect mark(MarkLeft, (height() - MarkSize) / 2, MarkSize, MarkSize);
        const QColor background = Theme::Get(Theme::Color::Accent);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(background);
        painter.drawRoundedRect(mark, Theme::Radius, Theme::Radius);
        const QColor ink = Theme::TextOn(background);
        painter.drawPixmap(mark.adjusted(2, 2, -2, -2).topLeft(),
                           Icons::Pixmap(QStringLiteral("box"), MarkSize - 4, ink, devicePixelRatioF()));

        QFont font = Theme::Font(Theme::Type::RowHeading);
        font.setWeight(QFont::DemiBold);
        painter.setFont(font);
        painter.setPen(Theme::Get(Theme::Color::Text));
        const int available = std::max(0, width() - CaptionLeft - Theme::Margin);
        painter.drawText(QRect(CaptionLeft, 0, available, height()), Qt::AlignVCenter | Qt::AlignLeft,
                         ElidedTo(font, m_caption, available));
    });
}

}  // namespace quellbrook
