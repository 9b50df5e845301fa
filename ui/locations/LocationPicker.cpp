#include "ui/locations/LocationPicker.h"

#include "core/Stores.h"
#include "ui/common/PropertyBag.h"
#include "ui/controls/FlatDropdown.h"
#include "ui/controls/View.h"
#include "ui/platform/Guard.h"
#include "ui/platform/Strings.h"

#include <QComboBox>
#include <QEvent>
#include <QScopedValueRollback>

namespace quellbrook {

namespace {

constexpr const char* pathSeparator = " \u00BB ";
constexpr int noneIndex = 0;

}  // namespace

LocationPicker::LocationPicker(QWidget* parent)
    : Control(parent), m_cboLocations(new FlatDropdown(this, FlatDropdown::Typing::Filters)) {
    m_cboLocations->setObjectName("cboLocations");
    setFocusProxy(m_cboLocations);
    setFocusPolicy(Qt::StrongFocus);
    if (!IsInsideDesigner()) m_locationStore = GetStores().Locations;
    TakeFont();
    SetHeight(m_cboLocations->Height());
    connect(m_cboLocations, &FlatDropdown::Clicked, this, [this] {
        Guard([this] {
            if (!m_isSelecting) emit Change();
        });
    });
}

void LocationPicker::LoadLocations(StorageLocationTypes locationType) {
    if (IsInsideDesigner()) return;
    const QScopedValueRollback<bool> selecting(m_isSelecting, true);
    m_cboLocations->Clear();
    try {
        m_cboLocations->AddItem("(None)", 0);
        AddSubtree(*m_locationStore->GetRootLocation(locationType));
    } catch (...) {
        m_cboLocations->Clear();
        throw;
    }
    Layout();
    m_cboLocations->SetListIndex(noneIndex);
}

void LocationPicker::AddSubtree(const StorageLocation& location) {
    if (!location.Enabled()) return;
    for (const StorageLocationRef& sub : location.SubLocations()) {
        if (sub->Enabled()) m_cboLocations->AddItem(ToQString(sub->FullPath(pathSeparator, false)), sub->ID());
        AddSubtree(*sub);
    }
}

bool LocationPicker::IsEmpty() const { return m_cboLocations->Count() == 0; }

StorageLocationRef LocationPicker::SelectedLocation() const {
    CheckLoaded();
    const int index = m_cboLocations->ListIndex();
    const int32_t id = index < 0 ? 0 : m_cboLocations->ItemData(index);
    return id == 0 ? nullptr : m_locationStore->GetLocation(id);
}

void LocationPicker::SetSelectedLocation(const StorageLocationRef& value) {
    CheckLoaded();
    if (!value || value->IsRoot()) return Select(noneIndex);
    for (int index = noneIndex + 1; index < m_cboLocations->Count(); ++index) {
        if (m_cboLocations->ItemData(index) == value->ID()) return Select(index);
    }
    Select(noneIndex);
}

bool LocationPicker::TakeDroppedText() { return m_cboLocations->TakeDroppedText(); }

void LocationPicker::Select(int index) {
    const QScopedValueRollback<bool> selecting(m_isSelecting, true);
    m_cboLocations->SetListIndex(index);
}

void LocationPicker::CheckLoaded() const {
    if (IsEmpty()) {
        Raise(ErrorNumber::General, "LocationPicker.SelectedLocation",
              Name() + " has not been loaded yet. Call LoadLocations first.");
    }
}

void LocationPicker::SetAccessibleCaption(const QString& name) {
    setAccessibleName(name);
    m_cboLocations->SetAccessibleCaption(name);
}

void LocationPicker::ReadProperties(const PropertyBag& bag) {
    GuardSilently([&] {
        QFont font;
        if (font.fromString(ToQString(ToText(bag.ReadProperty("Font", ""))))) SetFont(font);
    });
}

void LocationPicker::WriteProperties(PropertyBag& bag) const {
    bag.WriteProperty("Font", testAttribute(Qt::WA_SetFont) ? ToUtf8(font().toString()) : "", "");
}

void LocationPicker::Layout() {
    m_cboLocations->Move(0, 0);
    m_cboLocations->SetWidth(Width());
    SetHeight(m_cboLocations->Height());
}

void LocationPicker::TakeFont() { m_cboLocations->Box()->setFont(font()); }

void LocationPicker::changeEvent(QEvent* event) {
    Guard([this, event] {
        Control::changeEvent(event);
        if (event->type() == QEvent::FontChange) TakeFont();
    });
}

}  // namespace quellbrook
