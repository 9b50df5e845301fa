#include "ui/controls/Link.h"

#include "ui/platform/Guard.h"
#include "ui/platform/Twips.h"
#include "ui/style/FocusRing.h"
#include "ui/style/Icons.h"
#include "ui/style/TextBlock.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>

namespace quellbrook {

namespace {

constexpr int IconGap = 4;
constexpr int CrossSize = 24;

// Drawn as an icon, since not every font contains it.
const QString Cross = QStringLiteral("\u2715");

}  // namespace

Link::Link(QWidget* parent) : Pressable(parent) {
    setCursor(Qt::PointingHandCursor);
    FitToText();
}

void Link::SetQuiet(bool quiet) {
    m_quiet = quiet;
    update();
}

void Link::SetType(Theme::Type type) {
    m_type = type;
    FitToText();
    update();
}

QSize Link::sizeHint() const {
    if (Caption() == Cross) return QSize(CrossSize, CrossSize);
    const int text = TextWidth(Theme::Font(m_type), Caption());
    const int gap = IconSize() > 0 && text > 0 ? IconGap : 0;
    return QSize(IconSize() + gap + text, std::max(IconSize(), Theme::LineHeight(m_type)));
}

void Link::FitToText() {
    const QSize size = sizeHint();
    FocusRing::SetSize(this, Caption().isEmpty() ? size : QSize());  // a view may make the link of an icon higher
    Control::Move(Left(), Top(), ToTwips(size.width()), ToTwips(size.height()));
}

void Link::paintEvent(QPaintEvent*) {
    GuardPainting([this] {
        QPainter painter(this);
        QColor ink = Theme::Get(m_quiet ? Theme::Color::GrayText : Theme::Color::Link);
        if (m_quiet && IsHovered()) ink = Theme::Get(Theme::Color::Text);
        if (!isEnabled()) ink = Theme::Get(Theme::Color::DisabledText);
        const qreal ratio = devicePixelRatioF();
        if (Caption() == Cross) {
            const QPoint at((width() - CrossSize) / 2, (height() - CrossSize) / 2);
            painter.drawPixmap(at, Icons::Pixmap(QStringLiteral("close"), CrossSize, ink, ratio));
            return;
        }
        int left = 0;
        if (IconSize() > 0) {
            const int iconLeft = Caption().isEmpty() ? (width() - IconSize()) / 2 : 0;
            painter.drawPixmap(iconLeft, (height() - IconSize()) / 2,
                               Icons::Pixmap(IconName(), IconSize(), ink, ratio));
            left = IconSize() + IconGap;
        }
        QFont font = Theme::Font(m_type);
        font.setUnderline(IsHovered() && isEnabled());
        painter.setFont(font);
        painter.setPen(ink);
        painter.drawText(QRect(left, 0, width() - left, height()), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextDontClip,
                         ElidedTo(font, Caption(), width() - left));
    });
}

void Link::changeEvent(QEvent* event) {
    Pressable::changeEvent(event);
    if (event->type() == QEvent::EnabledChange) {
        if (isEnabled())
            setCursor(Qt::PointingHandCursor);
        else
            unsetCursor();
    }
}

}  // namespace quellbrook
