#pragma once

#include "data/StorageLocation.h"
#include "ui/common/FlatForm.h"

#include <QString>

#include <string>

namespace quellbrook {

class FlatDropdown;
class FlatTextbox;
class LocationPicker;

// The dialog that adds or edits a location: its name, container and category. For a single use: call SetParent to add,
// or SetLocation to edit, show it with ShowFormCentered, then read Canceled and Location. If a field cannot be filled,
// the form shows the error and stays open.
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
    std::string m_fieldError;     // why the fields could not be filled; shown once the form is open
    StorageLocationRef m_parent;  // the container at first; after a change of the category, its root
    StorageLocationRef m_location;
    bool m_initialized = false;

    FlatTextbox* m_txtName = nullptr;
    LocationPicker* m_cboLocation = nullptr;
    FlatDropdown* m_cboType = nullptr;
};

}  // namespace quellbrook
