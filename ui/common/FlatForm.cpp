#include "ui/common/FlatForm.h"

#include "ui/controls/FlatButton.h"
#include "ui/controls/FontIcon.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/Line.h"
#include "ui/platform/Guard.h"
#include "ui/platform/Twips.h"

namespace quellbrook {

namespace {

constexpr int TitlebarHeight = 48, IconSize = 22, IconToTitle = 9;
constexpr int ButtonStripHeight = 60, ButtonWidth = 96, ButtonGap = 9;

int CenteredIn(int height, int size) { return (height - size) / 2; }

}  // namespace

FlatForm::FlatForm(const QSize& size, QWidget* parent) : ModuleForm(parent), m_border(new GroupBox(this)) {
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    setFixedSize(size);
    m_border->setObjectName("shpBorder");
    m_border->SetBackColor(Theme::Color::Window);
    m_border->SetFramed(true);
    BuildTitlebar();
    LayoutFrame();
}

void FlatForm::BuildTitlebar() {
    m_titlebar = new GroupBox(this);
    m_titlebar->setObjectName("grpTitlebar");
    m_titlebar->SetHeight(ToTwips(TitlebarHeight));
    m_title = new Label(m_titlebar);
    m_title->setObjectName("lblTitle");
    m_title->SetType(Theme::Type::Section);
    m_title->Move(ToTwips(Inset - 1), ToTwips(CenteredIn(TitlebarHeight, Theme::LineHeight(Theme::Type::Section))));
}

void FlatForm::SetTitle(const QString& title) {
    m_title->SetCaption(title);
    setWindowTitle(title);
}

void FlatForm::SetTitleIcon(const char* iconName) {
    auto* icon = new FontIcon(m_titlebar);
    icon->setObjectName("Image1");
    icon->SetIcon(iconName, IconSize);
    icon->SetForeColor(Theme::Color::Link);
    icon->Move(ToTwips(Inset - 1), ToTwips(CenteredIn(TitlebarHeight, IconSize)));
    m_title->SetLeft(icon->Right() + ToTwips(IconToTitle));
}

void FlatForm::PlaceField(Control& field, const char* labelName, const char* caption, int top, int height) {
    auto* label = new Label(this);
    label->setObjectName(labelName);
    label->SetType(Theme::Type::BodySemiBold);
    label->SetCaption(caption);
    label->Move(ToTwips(Inset), ToTwips(top));
    field.Move(ToTwips(Inset), ToTwips(top + CaptionToField), ToTwips(width() - 2 * Inset), ToTwips(height));
}

void FlatForm::AddButtons() {
    m_buttons = new GroupBox(this);
    m_buttons->setObjectName("grpButtons");
    m_buttons->SetBackColor(Theme::Color::Panel);
    m_buttonRule = new Line(m_buttons);
    m_cancel = AddButton("btnCancel", "Cancel");
    m_cancel->SetInverted(true);
    connect(m_cancel, &FlatButton::Clicked, this, [this] { Guard([this] { OnCancel(); }); });
    m_save = AddButton("btnSave", "Save");
    connect(m_save, &FlatButton::Clicked, this, [this] { Guard([this] { btnSave_Click(); }); });
    LayoutFrame();
}

FlatButton* FlatForm::AddButton(const char* name, const char* caption) {
    auto* button = new FlatButton(m_buttons);
    button->setObjectName(name);
    button->SetCaption(caption);
    button->Move(0, ToTwips(CenteredIn(ButtonStripHeight, Theme::FieldHeight)), ToTwips(ButtonWidth),
                 ToTwips(Theme::FieldHeight));
    return button;
}

void FlatForm::resizeEvent(QResizeEvent* event) {
    ModuleForm::resizeEvent(event);
    GuardSilently([this] { LayoutFrame(); });
}

void FlatForm::LayoutFrame() {
    m_border->Move(0, 0, ToTwips(width()), ToTwips(height()));
    m_titlebar->Move(TwipsPerPixel, TwipsPerPixel, ToTwips(width() - 2), m_titlebar->Height());
    if (!m_buttons) return;
    m_buttons->Move(TwipsPerPixel, ToTwips(height() - ButtonStripHeight), ToTwips(width() - 2),
                    ToTwips(ButtonStripHeight - 1));
    m_buttonRule->Move(0, 0, m_buttons->Width(), TwipsPerPixel);
    m_save->SetLeft(ToTwips(width() - 1 - Inset - ButtonWidth));
    m_cancel->SetLeft(m_save->Left() - ToTwips(ButtonGap + ButtonWidth));
}

}  // namespace quellbrook
