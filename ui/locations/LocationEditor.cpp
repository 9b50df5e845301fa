#include "ui/locations/LocationEditor.h"

#include "base/Screen.h"
#include "base/Text.h"
#include "data/StorageLocationStatic.h"
#include "ui/common/ViewHelpers.h"
#include "ui/controls/Activation.h"
#include "ui/controls/FlatDropdown.h"
#include "ui/controls/FlatTextbox.h"
#include "ui/controls/Label.h"
#include "ui/locations/LocationPicker.h"
#include "ui/platform/Guard.h"
#include "ui/platform/MousePointer.h"
#include "ui/platform/Strings.h"
#include "ui/platform/Twips.h"

#include <QScopeGuard>

namespace quellbrook {

namespace {

// Pixels.
constexpr int FormWidth = 480, FormHeight = 396;
constexpr int FirstField = 56, FieldPitch = 92, FieldToHint = 4;

void ShowError(const std::string& description) { ShowMessage(description, MessageStyle::Critical, "Error"); }

}  // namespace

frmAddEditLocation::frmAddEditLocation(QWidget* parent) : FlatForm(QSize(FormWidth, FormHeight), parent) {
    SetTitleIcon("location");
    BuildFields();
    AddButtons();
}

template <typename Field>
Field* frmAddEditLocation::AddFieldWithHint(Field* field, int index, const char* name, const char* caption,
                                            const char* hint) {
    constexpr const char* labels[][2] = {{"Label1", "Label4"}, {"Label2", "Label3"}, {"Label6", "Label5"}};
    const int top = FirstField + index * FieldPitch;
    AddField(field, name, labels[index][0], caption, top, Theme::FieldHeight);
    field->setAccessibleDescription(hint);
    auto* hintLabel = new Label(this);
    hintLabel->setObjectName(labels[index][1]);
    hintLabel->SetType(Theme::Type::Hint);
    hintLabel->SetForeColor(Theme::Color::GrayText);
    hintLabel->SetCaption(hint);
    hintLabel->Move(ToTwips(Inset), ToTwips(top + CaptionToField + Theme::FieldHeight + FieldToHint));
    return field;
}

void frmAddEditLocation::BuildFields() {
    m_txtName = AddFieldWithHint(new FlatTextbox(this), 0, "txtName", "Location Name",
                                 "The name used to identify this location.");
    m_cboLocation = AddFieldWithHint(new LocationPicker(this), 1, "cboLocation", "Container",
                                     "The container that this location is grouped under.");
    m_cboType = AddFieldWithHint(new FlatDropdown(this), 2, "cboType", "Category",
                                 "The type of location, which determines how it is treated.");
    connect(m_txtName, &FlatTextbox::KeyPressed, this, [this](int key) {
        if (key == KeyCode::Enter) btnSave_Click();
    });
    connect(m_cboType, &FlatDropdown::Clicked, this, [this] { Guard([this] { cboType_Click(); }); });
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
    Guard([this] { FillFields(); }, [this](const Error& error) { m_fieldError = error.Description(); });
}

void frmAddEditLocation::showEvent(QShowEvent* event) {
    ModuleForm::showEvent(event);
    Guard([this] {
        SetMousePointer(MousePointer::Default);
        if (m_initialized) return;
        m_initialized = true;
        if (!m_fieldError.empty())
            QMetaObject::invokeMethod(
                this, [this] { Guard([this] { ShowError(m_fieldError); }); }, Qt::QueuedConnection);
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
    SetTitle(QString(m_location ? "Edit" : "Add New") + " Storage Location");
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
    Guard([this] { Save(); }, [](const Error& error) { ShowError(error.Description()); });
}

// What was written before a failure remains.
void frmAddEditLocation::Save() {
    const QString text = m_txtName->Text();
    const std::string name = ToUtf8(text);
    if (Trim(name).empty()) {
        TrySetFocus(m_txtName);
        Raise(ErrorNumber::General, "frmAddEditLocation.Save", "You must enter a location name.");
    }
    // The container of before must not be taken for the one that was typed.
    if (m_cboLocation->TakeDroppedText()) return TrySetFocus(m_cboLocation);
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
