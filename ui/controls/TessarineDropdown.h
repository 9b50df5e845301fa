#pragma once

#include "base/TaggedValue.h"
#include "ui/controls/FlatDropdown.h"

namespace quellbrook {

// The entries of one of the host's code tables. Its value is NULL until one is chosen; setting an empty or unknown
// value gives NULL. The table is read when its number is set, at run time only.
class TessarineDropdown : public FlatDropdown {
    Q_OBJECT
    Q_PROPERTY(int tablenumber READ TableNumber WRITE SetTableNumber)

public:
    using FlatDropdown::FlatDropdown;
    std::string TypeName() const override { return "TessarineDropdown"; }

    int TableNumber() const { return m_tableNumber; }
    void SetTableNumber(int tableNumber);
    TaggedValue Value() const;
    void SetValue(const TaggedValue& value);

private:
    int m_tableNumber = 0;
};

}  // namespace quellbrook
