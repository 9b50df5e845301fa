#pragma once

#include "base/TaggedValue.h"
#include "ui/controls/Control.h"

namespace quellbrook {

class FlatDropdown;

// The entries of one of the host's code tables. Its value is NULL until one is chosen; an empty or unknown value set
// gives NULL. The table is read when its number is set, at run time only.
// Who asks what:
// - CartView: tablenumber 9999 twice and 38; Value NULL until chosen, set again at each refresh; takes the focus by
//   TrySetFocus.
// - frmFinalDisposition (dispositionField): tablenumber 30; Value NULL until chosen, then a whole number.
class TessarineDropdown : public Control {
    Q_OBJECT
    Q_PROPERTY(int tablenumber READ TableNumber WRITE SetTableNumber)

public:
    explicit TessarineDropdown(QWidget* parent = nullptr);
    std::string TypeName() const override { return "TessarineDropdown"; }

    int TableNumber() const { return m_tableNumber; }
    void SetTableNumber(int tableNumber);
    TaggedValue Value() const;
    void SetValue(const TaggedValue& value);
    void SetAccessibleCaption(const QString& name);
    FlatDropdown* Dropdown() const { return m_dropdown; }

signals:
    void Changed();

protected:
    void Layout() override;

private:
    FlatDropdown* m_dropdown;
    int m_tableNumber = 0;
};

}  // namespace quellbrook
