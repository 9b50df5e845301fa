#pragma once

#include "base/Event.h"
#include "base/KeyedCollection.h"
#include "base/ObjectList.h"
#include "core/CartStore.h"
#include "ui/controls/Control.h"

#include <QColor>

#include <memory>
#include <optional>

class QAction;
class QMenu;

namespace quellbrook {

class ListView;
class ListPlaceholder;
class PropertyBag;
class StatePanel;

// What a storage location holds, in one list: its enabled sub-locations, then its stored items. Items in the transfer
// batch are marked. What may be done with them is the holder's affair.
class LocationView : public Control {
    Q_OBJECT
    Q_PROPERTY(QColor BackColor READ BackColor WRITE SetBackColor RESET ResetBackColor)

public:
    explicit LocationView(QWidget* parent = nullptr);
    std::string TypeName() const override { return "LocationView"; }

    // The location on show has changed; after its rows have been filled.
    Event<StorageLocationRef> LocationChanged;
    // The receiver sets the menu and the entry that is to look like the default one, both null at first.
    Event<QMenu*&, QAction*&> ItemContextMenu;
    // The user wishes to open this StoredItem or StorageLocation. An error of the receiver's is shown.
    Event<ObjectRef> ItemOpenRequest;

    const StorageLocationRef& Location() const { return m_location; }
    // Nothing happens for null after null, and for the same location again.
    void SetLocation(const StorageLocationRef& location);
    // Displays the location again.
    void Refresh();

    // The objects behind the selected rows, in the order of the rows.
    std::shared_ptr<ObjectVector> SelectedItems() const;
    void SelectAll();

    // The system's until set.
    QColor BackColor() const;
    void SetBackColor(const QColor& color);
    void ResetBackColor();
    // "BackColor". A value that is absent or can't be read gives the system's.
    void ReadProperties(const PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;

    ListView* List() const { return m_itemPane; }

protected:
    void Layout() override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakeList();
    void ConnectList();
    void DisplayCurrentLocation();
    void AddRows(int& step);
    void AddLocationRow(const StorageLocationRef& location);
    void AddItemRow(const StoredItemRef& item);
    void ShowState(bool hasRows);
    void UpdateCartMarks();
    void MarkRow(int row, bool isInCart);
    void ClearSelection();
    ObjectRef ObjectOf(int row) const;

    void OnMouseUp(int button, const QPoint& at);
    void OnDoubleClick();
    void OnKeyDown(int keyCode, bool ctrl);
    void OfferContextMenu();
    void ApplyBackColor();

    ListView* m_itemPane;
    StatePanel* m_picNoItems;
    ListPlaceholder* m_picPlaceholder;

    StorageLocationRef m_location;
    KeyedCollection<ObjectRef> m_rowObjects;
    int m_lastButton = 0;
    int m_lastHitRow = -1;
    std::optional<QColor> m_backColor;
    std::shared_ptr<CartStore> m_cartstore;
    Subscription m_cartChanged;
};

}  // namespace quellbrook
