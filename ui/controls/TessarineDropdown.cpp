#include "ui/controls/TessarineDropdown.h"

#include "host/CodeTableLookup.h"
#include "ui/controls/View.h"
#include "ui/platform/Guard.h"
#include "ui/platform/Strings.h"

namespace quellbrook {

void TessarineDropdown::SetTableNumber(int tableNumber) {
    m_tableNumber = tableNumber;
    Clear();
    if (IsInsideDesigner()) return;
    for (const CodeEntry& entry : CodeTableLookup().Entries(static_cast<int16_t>(tableNumber)))
        AddItem(ToQString(entry.text), entry.code);
}

TaggedValue TessarineDropdown::Value() const {
    const int index = ListIndex();
    if (index < 0) return Null();
    return ItemData(index);
}

void TessarineDropdown::SetValue(const TaggedValue& value) {
    int wanted = -1;
    GuardSilently([&] {
        if (value.HasNoValue()) return;
        const int32_t code = ToInt32(value);
        for (int index = 0; index < Count() && wanted < 0; ++index)
            if (ItemData(index) == code) wanted = index;
    });
    SetListIndex(wanted);
}

}  // namespace quellbrook
