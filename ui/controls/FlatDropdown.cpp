#include "ui/controls/FlatDropdown.h"

#include "ui/platform/Guard.h"
#include "ui/platform/Twips.h"
#include "ui/style/FieldFrame.h"
#include "ui/style/FocusRing.h"
#include "ui/style/Icons.h"
#include "ui/style/TextBlock.h"
#include "ui/style/Theme.h"

#include <QComboBox>
#include <QListView>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QWheelEvent>

#include <algorithm>

namespace quellbrook {

namespace {

constexpr int SideMargin = 10;
constexpr int ArrowSize = 20;
constexpr int EntryHeight = 32;
constexpr int MostVisible = 12;

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
            const QRect textRect = option.rect.adjusted(SideMargin, 0, -SideMargin, 0);
            painter->drawText(textRect, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                              ElidedTo(painter->font(), index.data().toString(), textRect.width()));
        });
    }
};

// Paints the choice and the arrow. FlatDropdown paints the background and border.
class DropdownBox : public QComboBox {
public:
    explicit DropdownBox(QWidget* parent);

    // The list is as wide as its widest entry, up to half of the screen.
    void showPopup() override;

protected:
    void paintEvent(QPaintEvent* event) override;
    // The wheel scrolls the form and does not change the choice.
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

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
    const int limit = screen()->availableSize().width() / 2;
    const int widest = view()->sizeHintForColumn(0) + view()->verticalScrollBar()->sizeHint().width();
    view()->setMinimumWidth(std::max(width() - 2, std::min(widest, limit)));
    // The frame around the list takes its color from the window's text color.
    QPalette framed = palette();
    framed.setColor(QPalette::WindowText, Theme::Get(Theme::Color::FieldBorder));
    view()->parentWidget()->setPalette(framed);
    QComboBox::showPopup();
}

void DropdownBox::paintEvent(QPaintEvent*) {
    GuardPainting([this] {
        QPainter painter(this);
        const bool chosen = currentIndex() >= 0;
        QColor ink = Theme::Get(chosen ? Theme::Color::Text : Theme::Color::GrayText);
        if (!isEnabled()) ink = Theme::Get(Theme::Color::DisabledText);
        painter.setPen(ink);
        const QRect textRect = rect().adjusted(SideMargin + 1, 0, -SideMargin - ArrowSize, 0);
        const QString text = chosen ? currentText() : placeholderText();
        painter.drawText(textRect, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                         ElidedTo(painter.font(), text, textRect.width()));
        const QColor arrow = Theme::Get(isEnabled() ? Theme::Color::GrayText : Theme::Color::DisabledText);
        painter.drawPixmap(width() - SideMargin - ArrowSize, (height() - ArrowSize) / 2,
                           Icons::Pixmap(QStringLiteral("chevron"), ArrowSize, arrow, devicePixelRatioF()));
    });
}

}  // namespace

FlatDropdown::FlatDropdown(QWidget* parent) : Control(parent), m_box(new DropdownBox(this)) {
    setFocusProxy(m_box);
    setFocusPolicy(Qt::StrongFocus);
    FocusRing::Show(this);
    m_box->installEventFilter(this);
    m_box->view()->installEventFilter(this);
    m_box->view()->viewport()->installEventFilter(this);
    connect(m_box, &QComboBox::currentIndexChanged, this, [this] {
        m_raised = true;
        RaiseClicked();
    });
    connect(m_box, &QComboBox::activated, this, [this] {
        if (!m_raised) RaiseClicked();
        m_raised = false;
    });
    Control::Move(0, 0, ToTwips(200), ToTwips(Theme::FieldHeight));
}

void FlatDropdown::RaiseClicked() {
    Guard([this] { emit Clicked(); });
}

void FlatDropdown::Clear() {
    const QSignalBlocker quiet(m_box);
    m_box->clear();
}

void FlatDropdown::AddItem(const QString& text, int32_t itemData) {
    const QSignalBlocker quiet(m_box);
    const int before = m_box->currentIndex();
    m_box->addItem(text, itemData);
    if (m_box->currentIndex() != before) m_box->setCurrentIndex(before);
}

int FlatDropdown::Count() const { return m_box->count(); }
QString FlatDropdown::ItemText(int index) const { return m_box->itemText(index); }
int32_t FlatDropdown::ItemData(int index) const { return m_box->itemData(index).toInt(); }
int FlatDropdown::ListIndex() const { return m_box->currentIndex(); }

void FlatDropdown::SetListIndex(int index) {
    if (index < -1 || index >= Count()) Raise(ErrorNumber::InvalidPropertyValue, "FlatDropdown.ListIndex");
    if (index == ListIndex()) return;
    m_box->setCurrentIndex(index);
    m_raised = false;
}

void FlatDropdown::SetAccessibleCaption(const QString& name) { m_box->setAccessibleName(name); }
void FlatDropdown::SetPlaceholder(const QString& text) { m_box->setPlaceholderText(text); }

void FlatDropdown::Layout() { m_box->setGeometry(rect()); }

void FlatDropdown::paintEvent(QPaintEvent*) {
    GuardPainting([this] { PaintField(*this, isEnabled()); });
}

bool FlatDropdown::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease: m_raised = false; break;
    default: break;
    }
    return Control::eventFilter(watched, event);
}

}  // namespace quellbrook
