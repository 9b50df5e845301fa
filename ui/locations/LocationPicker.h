#pragma once

#include "core/LocationStore.h"
#include "ui/controls/Control.h"

#include <QFont>

#include <memory>

namespace quellbrook {

class FlatDropdown;
class PropertyBag;

// A dropdown of the enabled locations of one category, each shown by its full path. The list is a snapshot: whoever
// wants the latest tree loads it again, which also clears the selection. The control has no ground of its own, so that
// its container's shows, and is as high as its dropdown.
class LocationPicker : public Control {
    Q_OBJECT
    Q_PROPERTY(QFont Font READ Font WRITE SetFont)

public:
    explicit LocationPicker(QWidget* parent = nullptr);
    std::string TypeName() const override { return "LocationPicker"; }

    // "(None)" and every location below the category's root whose containers are all enabled, depth first. Selects
    // "(None)". Does nothing inside a form designer.
    void LoadLocations(StorageLocationTypes locationType);
    // Whether the list has no entries, that is, LoadLocations has not run.
    bool IsEmpty() const;

    // Null for "(None)", and where the location's row has gone. Both raise Error 5 while the list is empty. Setting
    // null, a root or a location that is not in the list selects "(None)".
    StorageLocationRef SelectedLocation() const;
    void SetSelectedLocation(const StorageLocationRef& value);

    QFont Font() const { return font(); }
    void SetFont(const QFont& font) { setFont(font); }
    void SetAccessibleCaption(const QString& name);

    // "Font". A value that is absent or can't be read leaves the surroundings' font.
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
