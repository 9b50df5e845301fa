#pragma once

#include "data/StorageLocation.h"
#include "ui/common/FlatForm.h"

#include <QString>

namespace quellbrook {

class FlatDropdown;
class FlatTextbox;
class LocationPicker;

// The dialog that adds or edits a location: its name, container and category. For a single use: call SetParent to add,
// or SetLocation to edit, show it with ShowFormCentered, then read Canceled and Location.
class frmAddEditLocation : public FlatForm {
    Q_OBJECT

public:
    explicit frmAddEditLocation(QWidget* parent = nullptr);

    // Error 5 for null.
    void SetParent(const StorageLocationRef& sl);
    void SetLocation(const StorageLocationRef& sl);

    const StorageLocationRef& Location() const { return m_location; }  // after an addition, the new location
    bool Canceled() const { return !m_saved; }

protected:
    void OnLoad() override;
    void showEvent(QShowEvent* event) override;
    void btnSave_Click() override;

private:
    void BuildFields();
    template <typename Field>
    Field* AddFieldWithHint(Field* field, int index, const char* name, const char* caption, const char* hint);
    void FillCategories();
    void FillFields();
    void cboType_Click();
    void Save();

    bool m_saved = false;
    StorageLocationRef m_parent;  // the container at first; after a change of the category, its root
    StorageLocationRef m_location;
    bool m_initialized = false;

    FlatTextbox* m_txtName = nullptr;
    LocationPicker* m_cboLocation = nullptr;
    FlatDropdown* m_cboType = nullptr;
};

}  // namespace quellbrook
