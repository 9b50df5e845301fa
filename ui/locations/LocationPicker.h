#pragma once

#include "core/LocationStore.h"
#include "ui/controls/Control.h"

#include <QFont>

#include <memory>

namespace quellbrook {

class FlatDropdown;
class PropertyBag;

// A dropdown of the enabled locations of one category, each shown by its full path. Typing shows those whose path
// contains the text. The list is a snapshot: loading it again reads the latest tree and clears the selection. The
// control is transparent and as tall as its dropdown.
class LocationPicker : public Control {
    Q_OBJECT
    Q_PROPERTY(QFont Font READ Font WRITE SetFont)

public:
    explicit LocationPicker(QWidget* parent = nullptr);
    std::string TypeName() const override { return "LocationPicker"; }

    // Lists "(None)" and, depth first, every enabled location below the category's root whose containers are all
    // enabled. Selects "(None)". After a failure the list is empty. Does nothing inside a form designer.
    void LoadLocations(StorageLocationTypes locationType);
    // True until LoadLocations has succeeded.
    bool IsEmpty() const;

    // Null for "(None)" or if the location has been deleted. Setting null, a root or a location that is not in the list
    // selects "(None)". Both raise Error 5 while the list is empty.
    StorageLocationRef SelectedLocation() const;
    void SetSelectedLocation(const StorageLocationRef& value);

    // Whether the user typed a text that matches no single location and either left the field with the mouse or is
    // still editing it. Restores the text of the selected location. Returns true only once.
    bool TakeDroppedText();

    QFont Font() const { return font(); }
    void SetFont(const QFont& font) { setFont(font); }
    void SetAccessibleCaption(const QString& name);

    // "Font". An absent or invalid value keeps the parent's font.
    void ReadProperties(const PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;

signals:
    // The user has chosen an entry. Not raised by LoadLocations and SetSelectedLocation.
    void Change();

protected:
    void Layout() override;
    void changeEvent(QEvent* event) override;

private:
    void AddSubtree(const StorageLocation& location);
    void CheckLoaded() const;
    void Select(int index);
    void TakeFont();

    FlatDropdown* m_cboLocations;
    std::shared_ptr<LocationStore> m_locationStore;
    bool m_isSelecting = false;
};

}  // namespace quellbrook
