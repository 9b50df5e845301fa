#include "ui/common/ModalDialog.h"

#include "base/Screen.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/FontIcon.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/Line.h"
#include "ui/controls/Link.h"
#include "ui/platform/Guard.h"
#include "ui/platform/KeyRepetition.h"
#include "ui/platform/Strings.h"
#include "ui/platform/Twips.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollArea>

#include <algorithm>

namespace quellbrook {

namespace {

constexpr float FormWidth = 7500;
constexpr float Margin = 360;
constexpr float TitlebarHeight = 720;
constexpr float TitleHeight = 360;
constexpr float CloseSize = 360;
constexpr int IconSize = 32;
constexpr float ButtonStripHeight = 900;
constexpr float ButtonWidth = 1440;
constexpr float ButtonHeight = 540;
constexpr int ScreenMargin = 16;

Box BoxOf(const Control& control) { return {control.Left(), control.Top(), control.Width(), control.Height()}; }
void MoveTo(Control& control, const Box& box) { control.Move(box.left, box.top, box.width, box.height); }

QColor PictureColor(const QString& icon) {
    const bool dark = Theme::IsDark();
    if (icon == "error") return dark ? QColor(0xFF8A80) : QColor(0xC00000);
    if (icon == "warning") return dark ? QColor(0xFFB454) : QColor(0x9A5B00);
    return Theme::Get(Theme::Color::Link);
}

}  // namespace

frmModal::frmModal(QWidget* parent) : ModuleForm(parent) {
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    BuildStrips();
    BuildMessage();
    resize(ToPixels(FormWidth), ToPixels(TitlebarHeight + ButtonStripHeight));
}

void frmModal::BuildStrips() {
    m_border = new GroupBox(this);
    m_border->setObjectName("shpBorder");
    m_border->SetBackColor(Theme::Color::Window);
    m_border->SetFramed(true);

    m_titlebar = new GroupBox(this);
    m_titlebar->setObjectName("grpTitlebar");
    m_titlebar->SetHeight(TitlebarHeight);
    m_titleLabel = new Label(m_titlebar);
    m_titleLabel->setObjectName("lblTitle");
    m_titleLabel->SetType(Theme::Type::Section);
    m_titleLabel->SetAutoSize(false);
    m_titleLabel->SetWordWrap(true);
    // Placed beside the close control, although its strip is inside the frame.
    m_titleLabel->Move(0, (TitlebarHeight - TitleHeight) / 2 - TwipsPerPixel, 0, TitleHeight);

    m_buttonStrip = new GroupBox(this);
    m_buttonStrip->setObjectName("grpButtons");
    m_buttonStrip->SetBackColor(Theme::Color::Panel);
    m_buttonStrip->SetHeight(ButtonStripHeight);
    m_stripLine = new Line(m_buttonStrip);
    LoadMember(m_buttons, m_buttonStrip)->setObjectName("button");

    m_close = new Link(this);
    m_close->setObjectName("lnkClose");
    m_close->SetCaption(QString::fromUtf8("✕"));
    m_close->SetQuiet(true);
    m_close->SetAccessibleCaption(tr("Close"));
    m_close->Move(0, (TitlebarHeight - CloseSize) / 2, CloseSize, CloseSize);
    connect(m_close, &Link::Clicked, this, [this] { Guard([this] { OnCancel(); }); });
}

void frmModal::BuildMessage() {
    m_icon = new FontIcon(this);
    m_icon->setObjectName("imgIcon");
    m_icon->SetIcon(QString(), IconSize);
    m_message = new Label(this);
    m_message->setObjectName("lblMessage");
    m_message->SetTextAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_message->SetAutoSize(false);
    m_message->SetWordWrap(true);
    m_message->Move(Margin, TitlebarHeight, FormWidth - 2 * Margin, 0);
}

void frmModal::OnLoad() {
    m_titleLabel->SetCaption(ToQString(m_title));
    setWindowTitle(ToQString(m_title));
    if (m_title.empty()) {
        m_message->SetTop(m_close->Height() + m_close->Top() + m_message->Left());
        m_titlebar->hide();
    }
    m_message->SetCaption(ToQString(m_prompt));
    m_message->SetAutoSize(true);
    for (const ModalButton& button : ModalButtons(m_style)) AddButton(button);
    SetPicture();
    setTabOrder(m_buttons.back(), m_close);
    Arrange();
    m_buttons.front()->setFocus();
}

void frmModal::AddButton(const ModalButton& button) {
    FlatButton* member = m_buttons.front();
    if (!member->Tag().isEmpty()) {
        QWidget* previous = m_buttons.back();
        member = LoadMember(m_buttons, member->parentWidget());
        member->SetInverted(true);
        setTabOrder(previous, member);
    }
    member->SetCaption(button.caption);
    member->SetTag(QString::number(button.result));
    member->Move(0, (ButtonStripHeight - ButtonHeight) / 2, std::max(ButtonWidth, ToTwips(member->sizeHint().width())),
                 ButtonHeight);
    member->show();
    connect(member, &FlatButton::Clicked, this, [this, member] { Guard([&] { FinishWith(member->Tag().toInt()); }); });
    if (button.isCancel) m_cancelResult = button.result;
}

void frmModal::SetPicture() {
    const QString icon = ModalIcon(m_style);
    m_icon->SetIcon(icon, IconSize);
    m_icon->SetForeColor(PictureColor(icon));
}

void frmModal::changeEvent(QEvent* event) {
    ModuleForm::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_icon) m_icon->SetForeColor(PictureColor(m_icon->IconName()));
}

void frmModal::FinishWith(int32_t result) {
    m_result = result;
    done(result);
}

void frmModal::OnCancel() { FinishWith(m_cancelResult); }

// Only the focused button handles Enter. A repeated Enter, which no button accepts, must not answer a question that the
// user has not read.
void frmModal::keyPressEvent(QKeyEvent* event) {
    if (event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) return ModuleForm::keyPressEvent(event);
    bool handled = true;
    Guard([&] {
        switch (event->key()) {
        case Qt::Key_Left:
        case Qt::Key_Up: return MoveFocus(-1);
        case Qt::Key_Right:
        case Qt::Key_Down: return MoveFocus(1);
        case Qt::Key_Y: handled = !IsRepetition(*event) && Answer(MessageAnswer::Yes); return;
        case Qt::Key_N: handled = !IsRepetition(*event) && Answer(MessageAnswer::No); return;
        default: handled = false;
        }
    });
    if (!handled) ModuleForm::keyPressEvent(event);
}

// Presses the button with this result, if the form has one.
bool frmModal::Answer(int32_t result) {
    for (FlatButton* button : m_buttons) {
        if (button->Tag().toInt() != result) continue;
        button->Click();
        return true;
    }
    return false;
}

// Moves the focus from one button to the next, around the ends.
void frmModal::MoveFocus(int step) {
    const auto focused = std::find(m_buttons.begin(), m_buttons.end(), focusWidget());
    if (focused == m_buttons.end()) return;
    const auto count = static_cast<int>(m_buttons.size());
    const auto index = static_cast<int>(focused - m_buttons.begin());
    m_buttons[static_cast<size_t>((index + step + count) % count)]->setFocus(Qt::TabFocusReason);
}

void frmModal::showEvent(QShowEvent* event) {
    ModuleForm::showEvent(event);
    if (!event->spontaneous()) GuardSilently([this] { Announce(); });
}

// Lets a screen reader read the message, not only the focused button.
void frmModal::Announce() {
    setAccessibleName(ToQString(m_title.empty() ? m_prompt : m_title));
    setAccessibleDescription(ToQString(m_prompt));
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void frmModal::resizeEvent(QResizeEvent* event) {
    ModuleForm::resizeEvent(event);
    GuardSilently([this] { Arrange(); });
}

void frmModal::Measure(ModalLayout& layout) const {
    const QWidget* parent = GetDialogs().GetParent();
    const QSize available = (parent ? parent : this)->screen()->availableSize();
    layout.maxWidth = ToTwips(available.width() - 2 * ScreenMargin);
    layout.maxHeight = ToTwips(available.height() - 2 * ScreenMargin);
    layout.width = ToTwips(width());
    layout.height = ToTwips(height());
    layout.titlebar.height = TitlebarHeight;
    layout.title = BoxOf(*m_titleLabel);
    layout.close = BoxOf(*m_close);
    layout.icon = BoxOf(*m_icon);
    layout.message = BoxOf(*m_message);
    layout.buttonStrip.height = ButtonStripHeight;
    for (const FlatButton* button : m_buttons) layout.buttons.push_back(BoxOf(*button));
    layout.hasPicture = !m_icon->IconName().isEmpty();
    layout.titleTextWidth = m_title.empty() ? 0 : ToTwips(m_titleLabel->sizeHint().width());
    layout.titleHeight = [this](float width) { return ToTwips(m_titleLabel->heightForWidth(ToPixels(width))); };
    layout.messageHeight = [this](float width) { return ToTwips(m_message->heightForWidth(ToPixels(width))); };
}

void frmModal::Arrange() {
    if (m_arranging) return;
    m_arranging = true;
    ModalLayout layout;
    Measure(layout);
    layout.Settle();
    Place(layout);
    m_arranging = false;
}

void frmModal::Place(const ModalLayout& layout) {
    resize(ToPixels(layout.width), ToPixels(layout.height));
    MoveTo(*m_border, layout.border);
    MoveTo(*m_titlebar, layout.titlebar);
    MoveTo(*m_titleLabel, layout.title);
    MoveTo(*m_close, layout.close);
    MoveTo(*m_icon, layout.icon);
    PlaceMessage(layout);
    MoveTo(*m_buttonStrip, layout.buttonStrip);
    m_stripLine->Move(0, 0, layout.buttonStrip.width, TwipsPerPixel);
    for (size_t i = 0; i < m_buttons.size(); ++i) MoveTo(*m_buttons[i], layout.buttons[i]);
}

void frmModal::PlaceMessage(const ModalLayout& layout) {
    if (layout.MessageOverflows())
        LetMessageScroll(layout);
    else
        MoveTo(*m_message, layout.message);
}

void frmModal::LetMessageScroll(const ModalLayout& layout) {
    if (!m_scroll) {
        m_scroll = new QScrollArea(this);
        m_scroll->setObjectName("scrMessage");
        m_scroll->setAccessibleName(ToQString(m_title.empty() ? m_prompt : m_title));
        m_scroll->setFrameShape(QFrame::NoFrame);
        m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        m_scroll->setWidget(m_message);
        setTabOrder(m_buttons.back(), m_scroll);
        setTabOrder(m_scroll, m_close);
        m_scroll->show();
    }
    // The scroll bar is in the margin beside the text.
    const Box band = layout.Band();
    const int left = ToPixels(layout.message.left);
    m_scroll->setGeometry(left, ToPixels(band.top), ToPixels(layout.width) - left - 1, ToPixels(band.height));
    m_message->Move(0, 0, layout.message.width, layout.message.height);
}

}  // namespace quellbrook
