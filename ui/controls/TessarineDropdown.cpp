#include "ui/controls/TessarineDropdown.h"

#include "host/CodeTableLookup.h"
#include "ui/controls/FlatDropdown.h"
#include "ui/controls/View.h"
#include "ui/platform/Guard.h"
#include "ui/platform/Strings.h"
#include "ui/platform/Twips.h"
#include "ui/style/Theme.h"

namespace quellbrook {

TessarineDropdown::TessarineDropdown(QWidget* parent) : Control(parent), m_dropdown(new FlatDropdown(this)) {
    setFocusProxy(m_dropdown);
    setFocusPolicy(Qt::StrongFocus);
    connect(m_dropdown, &FlatDropdown::Clicked, this, [this] { Guard([this] { emit Changed(); }); });
    Control::Move(0, 0, ToTwips(200), ToTwips(Theme::FieldHeight));
}

void TessarineDropdown::SetTableNumber(int tableNumber) {
    m_tableNumber = tableNumber;
    m_dropdown->Clear();
    if (IsInsideDesigner()) return;
    for (const CodeEntry& entry : CodeTableLookup().Entries(static_cast<int16_t>(tableNumber)))
        m_dropdown->AddItem(ToQString(entry.text), entry.code);
}

TaggedValue TessarineDropdown::Value() const {
    const int index = m_dropdown->ListIndex();
    if (index < 0) return Null();
    return m_dropdown->ItemData(index);
}

void TessarineDropdown::SetValue(const TaggedValue& value) {
    int wanted = -1;
    GuardSilently([&] {
        if (value.HasNoValue()) return;
        const int32_t code = ToInt32(value);
        for (int index = 0; index < m_dropdown->Count() && wanted < 0; ++index)
            if (m_dropdown->ItemData(index) == code) wanted = index;
    });
    m_dropdown->SetListIndex(wanted);
}

void TessarineDropdown::SetAccessibleCaption(const QString& name) { m_dropdown->SetAccessibleCaption(name); }

void TessarineDropdown::Layout() { m_dropdown->Move(0, 0, Width(), Height()); }

}  // namespace quellbrook
