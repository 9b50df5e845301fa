#include "ui/locations/LocationEditor.h"

#include "base/Screen.h"
#include "base/Text.h"
#include "data/StorageLocationStatic.h"
#include "ui/common/ViewHelpers.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/FlatDropdown.h"
#include "ui/controls/FlatTextbox.h"
#include "ui/controls/FontIcon.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/Line.h"
#include "ui/locations/LocationPicker.h"
#include "ui/platform/Guard.h"
#include "ui/platform/MousePointer.h"
#include "ui/platform/Strings.h"
#include "ui/platform/Twips.h"

#include <QScopeGuard>

namespace quellbrook {

namespace {

// Pixels.
constexpr int FormWidth = 480, TitlebarHeight = 48, Inset = 24, IconSize = 22, TitleLeft = 55;
constexpr int FirstField = 56, FieldPitch = 92, CaptionToField = 22, FieldToHint = 4;
constexpr int ButtonStripTop = 336, ButtonStripHeight = 60, ButtonWidth = 96, ButtonGap = 9;
constexpr int EnterKey = 13;

int CenteredIn(int height, int size) { return (height - size) / 2; }

}  // namespace

frmAddEditLocation::frmAddEditLocation(QWidget* parent) : ModuleForm(parent) {
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    setFixedSize(FormWidth, ButtonStripTop + ButtonStripHeight);
    auto* border = new GroupBox(this);
    border->setObjectName("shpBorder");
    border->SetBackColor(Theme::Color::Window);
    border->SetFramed(true);
    border->Move(0, 0, ToTwips(width()), ToTwips(height()));
    BuildTitlebar();
    BuildFields();
    BuildButtons();
}

void frmAddEditLocation::BuildTitlebar() {
    auto* titlebar = new GroupBox(this);
    titlebar->setObjectName("grpTitlebar");
    titlebar->Move(TwipsPerPixel, TwipsPerPixel, ToTwips(FormWidth - 2), ToTwips(TitlebarHeight));
    auto* icon = new FontIcon(titlebar);
    icon->setObjectName("Image1");
    icon->SetIcon("location", IconSize);
    icon->SetForeColor(Theme::Color::Link);
    icon->Move(ToTwips(Inset), ToTwips(CenteredIn(TitlebarHeight, IconSize)));
    m_title = new Label(titlebar);
    m_title->setObjectName("lblTitle");
    m_title->SetType(Theme::Type::Section);
    m_title->Move(ToTwips(TitleLeft), ToTwips(CenteredIn(TitlebarHeight, Theme::LineHeight(Theme::Type::Section))));
}

template <typename Field>
Field* frmAddEditLocation::AddField(Field* field, int index, const char* name, const char* caption, const char* hint) {
    constexpr const char* labels[][2] = {{"Label1", "Label4"}, {"Label2", "Label3"}, {"Label6", "Label5"}};
    const int top = FirstField + index * FieldPitch;
    auto* captionLabel = new Label(this);
    captionLabel->setObjectName(labels[index][0]);
    captionLabel->SetType(Theme::Type::BodySemiBold);
    captionLabel->SetCaption(caption);
    captionLabel->Move(ToTwips(Inset), ToTwips(top));
    field->setObjectName(name);
    field->SetAccessibleCaption(caption);
    field->setAccessibleDescription(hint);
    field->Move(ToTwips(Inset), ToTwips(top + CaptionToField), ToTwips(FormWidth - 2 * Inset),
                ToTwips(Theme::FieldHeight));
    auto* hintLabel = new Label(this);
    hintLabel->setObjectName(labels[index][1]);
    hintLabel->SetType(Theme::Type::Hint);
    hintLabel->SetForeColor(Theme::Color::GrayText);
    hintLabel->SetCaption(hint);
    hintLabel->Move(ToTwips(Inset), ToTwips(top + CaptionToField + Theme::FieldHeight + FieldToHint));
    return field;
}

void frmAddEditLocation::BuildFields() {
    m_txtName =
        AddField(new FlatTextbox(this), 0, "txtName", "Location Name", "The name used to identify this location.");
    m_cboLocation = AddField(new LocationPicker(this), 1, "cboLocation", "Container",
                             "The container that this location is grouped under.");
    m_cboType = AddField(new FlatDropdown(this), 2, "cboType", "Category",
                         "The type of location, which determines how it is treated.");
    connect(m_txtName, &FlatTextbox::KeyPressed, this, [this](int key) {
        if (key == EnterKey) btnSave_Click();
    });
    connect(m_cboType, &FlatDropdown::Clicked, this, [this] { Guard([this] { cboType_Click(); }); });
}

void frmAddEditLocation::BuildButtons() {
    auto* strip = new GroupBox(this);
    strip->setObjectName("grpButtons");
    strip->SetBackColor(Theme::Color::Panel);
    strip->Move(TwipsPerPixel, ToTwips(ButtonStripTop), ToTwips(FormWidth - 2), ToTwips(ButtonStripHeight - 1));
    auto* line = new Line(strip);
    line->Move(0, 0, strip->Width(), TwipsPerPixel);
    const int saveLeft = FormWidth - 1 - Inset - ButtonWidth;
    FlatButton* cancel = AddButton(strip, "btnCancel", "Cancel", saveLeft - ButtonGap - ButtonWidth);
    cancel->SetInverted(true);
    connect(cancel, &FlatButton::Clicked, this, [this] { Guard([this] { OnCancel(); }); });
    auto* btnSave = AddButton(strip, "btnSave", "Save", saveLeft);
    connect(btnSave, &FlatButton::Clicked, this, [this] { btnSave_Click(); });
}

FlatButton* frmAddEditLocation::AddButton(QWidget* strip, const char* name, const char* caption, int left) {
    auto* button = new FlatButton(strip);
    button->setObjectName(name);
    button->SetCaption(caption);
    button->Move(ToTwips(left), ToTwips(CenteredIn(ButtonStripHeight, Theme::FieldHeight)), ToTwips(ButtonWidth),
                 ToTwips(Theme::FieldHeight));
    return button;
}

void frmAddEditLocation::SetParent(const StorageLocationRef& sl) {
    if (!sl) Raise(ErrorNumber::General, "frmAddEditLocation.SetParent", "SetParent: sl cannot be Nothing");
    m_parent = sl;
}

void frmAddEditLocation::SetLocation(const StorageLocationRef& sl) {
    if (!sl) Raise(ErrorNumber::General, "frmAddEditLocation.SetLocation", "SetLocation: sl cannot be Nothing");
    m_location = sl;
    m_parent = sl->Parent();
    if (!m_parent) m_parent = GetStorageLocationStatic().GetRoot(sl->LocationType());  // its container was deleted
}

void frmAddEditLocation::OnLoad() {
    FillCategories();
    FillFields();
}

void frmAddEditLocation::showEvent(QShowEvent* event) {
    ModuleForm::showEvent(event);
    Guard([this] {
        SetMousePointer(MousePointer::Default);
        if (m_initialized) return;
        m_initialized = true;
        TrySetFocus(m_txtName);
    });
}

void frmAddEditLocation::FillCategories() {
    using Types = StorageLocationTypes;
    m_cboType->Clear();
    const auto add = [this](Types type) {
        m_cboType->AddItem(ToQString(GetStorageLocationStatic().GetRoot(type)->Name()), static_cast<int32_t>(type));
    };
    for (const Types type : {Types::Internal, Types::External, Types::DisposalLocation}) add(type);
    if (!GetStorageLocationStatic().GetRoot(Types::Other)->SubLocations().empty()) add(Types::Other);
}

void frmAddEditLocation::FillFields() {
    m_title->SetCaption(QString(m_location ? "Edit" : "Add New") + " Storage Location");
    setWindowTitle(m_title->Caption());
    if (m_location) m_txtName->SetText(ToQString(m_location->Name()));
    for (int index = 0; index < m_cboType->Count(); ++index) {
        if (m_cboType->ItemData(index) != static_cast<int32_t>(m_parent->LocationType())) continue;
        m_cboType->SetListIndex(index);
        break;
    }
    m_cboLocation->SetSelectedLocation(m_parent);
}

void frmAddEditLocation::cboType_Click() {
    const auto type = static_cast<StorageLocationTypes>(m_cboType->ItemData(m_cboType->ListIndex()));
    if (type != m_parent->LocationType()) m_parent = GetStorageLocationStatic().GetRoot(type);
    m_cboLocation->LoadLocations(m_parent->LocationType());
    FillFields();
}

void frmAddEditLocation::btnSave_Click() {
    Guard([this] { Save(); },
          [](const Error& error) { ShowMessage(error.Description(), MessageStyle::Critical, "Error"); });
}

// What was written before a failure remains.
void frmAddEditLocation::Save() {
    const QString text = m_txtName->Text();
    const std::string name = ToUtf8(text);
    if (Trim(name).empty()) {
        TrySetFocus(m_txtName);
        Raise(ErrorNumber::General, "frmAddEditLocation.Save", "You must enter a location name.");
    }
    StorageLocationRef parent = m_cboLocation->SelectedLocation();
    if (!parent) parent = GetStorageLocationStatic().GetRoot(m_parent->LocationType());
    if (!m_location) m_location = parent->CreateSubLocation(name);
    if (!parent->IsSame(m_location->Parent().get())) m_location->Move(parent);
    if (text.toLower() != ToQString(m_location->Name()).toLower()) m_location->Rename(name);
    m_saved = true;
    hide();
}

bool Dialogs::EditLocation(const StorageLocationRef& location) {
    SetMousePointer(MousePointer::Hourglass);
    const auto restorePointer = qScopeGuard([] { SetMousePointer(MousePointer::Default); });
    frmAddEditLocation form;
    form.SetLocation(location);
    ShowForm(form);
    return !form.Canceled();
}

StorageLocationRef Dialogs::AddLocation(const StorageLocationRef& parent) {
    SetMousePointer(MousePointer::Hourglass);
    const auto restorePointer = qScopeGuard([] { SetMousePointer(MousePointer::Default); });
    frmAddEditLocation form;
    form.SetParent(parent);
    ShowForm(form);
    return form.Canceled() ? nullptr : form.Location();
}

}  // namespace quellbrook
