#include "ui/controls/DropdownBox.h"

#include "ui/platform/Guard.h"
#include "ui/style/Icons.h"
#include "ui/style/TextBlock.h"
#include "ui/style/Theme.h"

#include <QApplication>
#include <QLineEdit>
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
constexpr int SingleLine = Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine;

// The current entry follows the pointer, so only that one is highlighted.
class EntryDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QSize(TextWidth(option.font, index.data().toString()) + 2 * SideMargin, EntryHeight);
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        GuardPainting([&] {
            const bool chosen = option.state & QStyle::State_Selected;
            painter->fillRect(option.rect, Theme::Get(chosen ? Theme::Color::Highlight : Theme::Color::Window));
            painter->setFont(option.font);
            painter->setPen(Theme::Get(chosen ? Theme::Color::HighlightText : Theme::Color::Text));
            QRect textRect = option.rect.adjusted(SideMargin, 0, -SideMargin, 0);
            if (const auto* list = qobject_cast<const QAbstractItemView*>(option.widget))
                textRect.setRight(std::min(textRect.right(), list->viewport()->width() - SideMargin - 1));
            painter->drawText(textRect, SingleLine,
                              ElidedTo(painter->font(), index.data().toString(), textRect.width()));
        });
    }
};

}  // namespace

DropdownBox::DropdownBox(QWidget* parent) : QComboBox(parent) {
    auto* list = new QListView(this);
    list->setFrameShape(QFrame::NoFrame);
    setView(list);
    SetUp(*list);
    setMaxVisibleItems(MostVisible);
    setFont(Theme::Font(Theme::Type::Body));
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumSize(0, 0);
    const auto measureAgain = [this] { m_widest = -1; };
    connect(model(), &QAbstractItemModel::rowsInserted, this, measureAgain);
    connect(model(), &QAbstractItemModel::rowsRemoved, this, measureAgain);
}

void DropdownBox::SetUp(QListView& list) {
    list.setUniformItemSizes(true);
    list.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);  // long entries are cut
    list.setItemDelegate(new EntryDelegate(&list));
}

// A frame takes its color from the window's text color.
void DropdownBox::SetFrameColor(QWidget& framed) {
    QPalette palette = QApplication::palette();
    palette.setColor(QPalette::WindowText, Theme::Get(Theme::Color::FieldBorder));
    framed.setPalette(palette);
}

// Measuring thousands of entries takes longer than a key press, so it is done once.
int DropdownBox::ListWidth() {
    if (m_widest < 0) m_widest = view()->sizeHintForColumn(0);
    const int limit = screen()->availableSize().width() / 2;
    const int widest = m_widest + view()->verticalScrollBar()->sizeHint().width() + 2;
    return std::max(width(), std::min(widest, limit));
}

int DropdownBox::ListHeight(int entries) const { return std::min(entries, maxVisibleItems()) * EntryHeight + 2; }

void DropdownBox::showPopup() {
    view()->setMinimumWidth(ListWidth() - 2);
    SetFrameColor(*view()->parentWidget());
    QComboBox::showPopup();
}

QRect DropdownBox::TextRect() const { return rect().adjusted(SideMargin + 1, 0, -SideMargin - ArrowSize, 0); }

void DropdownBox::paintEvent(QPaintEvent*) {
    GuardPainting([this] {
        QPainter painter(this);
        if (!lineEdit() || lineEdit()->isHidden()) PaintText(painter);
        const QColor arrow = Theme::Get(isEnabled() ? Theme::Color::GrayText : Theme::Color::DisabledText);
        painter.drawPixmap(width() - SideMargin - ArrowSize, (height() - ArrowSize) / 2,
                           Icons::Pixmap(QStringLiteral("chevron"), ArrowSize, arrow, devicePixelRatioF()));
    });
}

void DropdownBox::PaintText(QPainter& painter) const {
    const bool chosen = currentIndex() >= 0;
    const QRect textRect = TextRect();
    const QString text = ElidedTo(painter.font(), chosen ? currentText() : placeholderText(), textRect.width());
    QColor ink = Theme::Get(chosen ? Theme::Color::Text : Theme::Color::GrayText);
    if (!isEnabled()) ink = Theme::Get(Theme::Color::DisabledText);
    if (ShowsSelectedText()) {
        QRect selected(0, 0, TextWidth(painter.font(), text), painter.fontMetrics().height());
        selected.moveCenter(textRect.center());
        selected.moveLeft(textRect.left());
        painter.fillRect(selected, Theme::Get(Theme::Color::Highlight));
        ink = Theme::Get(Theme::Color::HighlightText);
    }
    painter.setPen(ink);
    painter.drawText(textRect, SingleLine, text);
}

void DropdownBox::changeEvent(QEvent* event) {
    QComboBox::changeEvent(event);
    if (event->type() == QEvent::FontChange) m_widest = -1;
}

void DropdownBox::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace quellbrook
