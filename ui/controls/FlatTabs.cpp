#include "ui/controls/FlatTabs.h"

#include "ui/platform/Guard.h"
#include "ui/platform/Strings.h"
#include "ui/platform/Twips.h"
#include "ui/style/TextBlock.h"
#include "ui/style/Theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyleOptionTab>
#include <QTabBar>
#include <QWheelEvent>

#include <algorithm>

namespace quellbrook {

namespace {

constexpr int HeaderHeight = 40;
constexpr int UnderlineHeight = 3;
constexpr int SidePadding = 4;
constexpr int HalfGap = 12;
constexpr int RingReach = 4;  // of the focus ring beyond its caption

int SpaceBefore(int index) { return index > 0 ? HalfGap : RingReach; }

// Each of two adjacent captions includes half of the gap between them.
QRect CaptionRect(const QTabBar& bar, int index) {
    return bar.tabRect(index).adjusted(SpaceBefore(index), 0, -HalfGap, 0);
}

QString CaptionOf(const QTabBar& bar, int index) {
    return bar.tabText(index).replace(QLatin1String("&&"), QLatin1String("&"));
}

class FlatTabBar : public QTabBar {
public:
    explicit FlatTabBar(QWidget* parent) : QTabBar(parent) {
        setExpanding(false);
        setUsesScrollButtons(false);
        setCursor(Qt::PointingHandCursor);
        setFocusPolicy(Qt::StrongFocus);
    }

protected:
    // As wide as the bold caption, so that a selected tab does not move the others.
    QSize tabSizeHint(int index) const override {
        const int caption = TextWidth(Theme::Font(Theme::Type::BodySemiBold), CaptionOf(*this, index));
        return QSize(caption + 2 * SidePadding + SpaceBefore(index) + HalfGap, HeaderHeight);
    }
    QSize minimumTabSizeHint(int index) const override { return tabSizeHint(index); }

    void paintEvent(QPaintEvent*) override {
        GuardPainting([this] {
            QPainter painter(this);
            for (int index = 0; index < count(); ++index) PaintTab(painter, index);
        });
    }

    void keyPressEvent(QKeyEvent* event) override {
        if (event->modifiers() & Qt::AltModifier)
            event->ignore();
        else if (event->key() == Qt::Key_Home || event->key() == Qt::Key_End)
            setCurrentIndex(event->key() == Qt::Key_Home ? 0 : count() - 1);
        else
            QTabBar::keyPressEvent(event);
    }

    void wheelEvent(QWheelEvent* event) override { event->ignore(); }

private:
    void PaintTab(QPainter& painter, int index) const {
        using Theme::Color;
        QStyleOptionTab option;
        initStyleOption(&option, index);
        const bool selected = index == currentIndex();
        const bool strong = selected || (option.state & QStyle::State_MouseOver);
        const QRect caption = CaptionRect(*this, index);
        painter.setFont(Theme::Font(selected ? Theme::Type::BodySemiBold : Theme::Type::Body));
        painter.setPen(Theme::Get(!isEnabled() ? Color::DisabledText : strong ? Color::Text : Color::GrayText));
        painter.drawText(caption.adjusted(SidePadding, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextDontClip,
                         CaptionOf(*this, index));
        if (!selected) return;
        painter.fillRect(caption.left(), HeaderHeight - UnderlineHeight, caption.width(), UnderlineHeight,
                         Theme::Get(isEnabled() ? Color::Accent : Color::FieldBorder));
        if (!hasFocus()) return;
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Theme::Get(Color::Link), 2));
        painter.drawRoundedRect(QRectF(caption).adjusted(-3, 5, 3, -6), Theme::Radius + 2, Theme::Radius + 2);
        painter.setRenderHint(QPainter::Antialiasing, false);
    }
};

}  // namespace

FlatTabPage::FlatTabPage(QWidget* parent) : Control(parent) {}

void FlatTabPage::Layout() {
    Control* lone = nullptr;
    for (QObject* child : children()) {
        auto* control = qobject_cast<Control*>(child);
        if (!control || control->isWindow()) continue;
        if (lone) return;
        lone = control;
    }
    if (lone && lone->Align() == Alignment::None) lone->Move(0, 0, Width(), Height());
}

FlatTabs::FlatTabs(QWidget* parent) : Control(parent), m_bar(new FlatTabBar(this)), m_indent(Theme::Margin) {
    setFocusProxy(m_bar);
    setFocusPolicy(Qt::StrongFocus);
    connect(m_bar, &QTabBar::currentChanged, this, [this](int index) { Guard([&] { Select(index); }); });
    Control::Move(0, 0, ToTwips(400), ToTwips(200));
}

FlatTabPage* FlatTabs::AddTab(const QString& caption) {
    auto* page = new FlatTabPage(this);
    page->SetIndex(Count());
    page->setAccessibleName(caption);
    m_pages.push_back(page);
    const QSignalBlocker blocker(m_bar);
    const int index = m_bar->addTab(EscapeMnemonic(caption));
    page->setVisible(index == SelectedIndex());
    RunLayout();
    return page;
}

int FlatTabs::SelectedIndex() const { return std::max(0, m_bar->currentIndex()); }

void FlatTabs::SetSelectedIndex(int index) {
    if (index < 0 || index >= Count()) Raise(ErrorNumber::InvalidPropertyValue, "FlatTabs.SelectedIndex");
    m_bar->setCurrentIndex(index);
}

void FlatTabs::Select(int index) {
    for (FlatTabPage* page : m_pages)
        if (page != Page(index)) page->hide();
    Page(index)->show();
}

void FlatTabs::SetIndent(float indent) {
    m_indent = ToPixels(indent);
    RunLayout();
}

void FlatTabs::SetAccessibleCaption(const QString& name) { m_bar->setAccessibleName(name); }

QRect FlatTabs::TabRect(int index) const { return CaptionRect(*m_bar, index).translated(m_bar->pos()); }

void FlatTabs::Layout() {
    m_bar->setGeometry(m_indent - RingReach, 0, m_bar->sizeHint().width(), HeaderHeight);
    for (FlatTabPage* page : m_pages)
        page->Move(0, ToTwips(HeaderHeight), Width(), std::max(0.0f, Height() - ToTwips(HeaderHeight)));
}

void FlatTabs::paintEvent(QPaintEvent*) {
    GuardPainting(
        [this] { QPainter(this).fillRect(0, HeaderHeight - 1, width(), 1, Theme::Get(Theme::Color::Hairline)); });
}

}  // namespace quellbrook
