#include "ui/controls/DropdownBox.h"

#include "ui/platform/Guard.h"
#include "ui/style/Icons.h"
#include "ui/style/TextBlock.h"
#include "ui/style/Theme.h"

#include <QListView>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QWheelEvent>

#include <algorithm>

namespace quellbrook {

namespace {

constexpr int SideMargin = 10;
constexpr int ArrowSize = 20;
constexpr int EntryHeight = 32;
constexpr int MostVisible = 12;

class EntryDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QSize(TextWidth(option.font, index.data().toString()) + 2 * SideMargin, EntryHeight);
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        Guard([&] {
            const bool chosen = option.state & (QStyle::State_Selected | QStyle::State_MouseOver);
            painter->fillRect(option.rect, Theme::Get(chosen ? Theme::Color::Highlight : Theme::Color::Window));
            painter->setFont(option.font);
            painter->setPen(Theme::Get(chosen ? Theme::Color::HighlightText : Theme::Color::Text));
            const QRect place = option.rect.adjusted(SideMargin, 0, -SideMargin, 0);
            painter->drawText(place, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                              ElidedTo(painter->font(), index.data().toString(), place.width()));
        });
    }
};

}  // namespace

DropdownBox::DropdownBox(QWidget* parent) : QComboBox(parent) {
    auto* list = new QListView(this);
    list->setUniformItemSizes(true);
    list->setFrameShape(QFrame::NoFrame);
    setView(list);
    setItemDelegate(new EntryDelegate(this));
    setMaxVisibleItems(MostVisible);
    setFont(Theme::Font(Theme::Type::Body));
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumSize(0, 0);
}

void DropdownBox::showPopup() {
    const int room = screen()->availableSize().width() / 2;
    const int widest = view()->sizeHintForColumn(0) + view()->verticalScrollBar()->sizeHint().width();
    view()->setMinimumWidth(std::max(width() - 2, std::min(widest, room)));
    // The frame around the list is drawn in its window's text colour.
    QPalette framed = palette();
    framed.setColor(QPalette::WindowText, Theme::Get(Theme::Color::FieldBorder));
    view()->parentWidget()->setPalette(framed);
    QComboBox::showPopup();
}

void DropdownBox::paintEvent(QPaintEvent*) {
    Guard([this] {
        QPainter painter(this);
        const bool chosen = currentIndex() >= 0;
        QColor ink = Theme::Get(chosen ? Theme::Color::Text : Theme::Color::GrayText);
        if (!isEnabled()) ink = Theme::Get(Theme::Color::DisabledText);
        painter.setPen(ink);
        const QRect place = rect().adjusted(SideMargin + 1, 0, -SideMargin - ArrowSize, 0);
        const QString text = chosen ? currentText() : placeholderText();
        painter.drawText(place, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                         ElidedTo(painter.font(), text, place.width()));
        const QColor arrow = Theme::Get(isEnabled() ? Theme::Color::GrayText : Theme::Color::DisabledText);
        painter.drawPixmap(width() - SideMargin - ArrowSize, (height() - ArrowSize) / 2,
                           Icons::Pixmap(QStringLiteral("chevron"), ArrowSize, arrow, devicePixelRatioF()));
    });
}

void DropdownBox::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace quellbrook
