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

// The contents of a storage location in one list: its enabled sub-locations, then its stored items. Items in the
// transfer batch are marked. The parent handles actions on them.
class LocationView : public Control {
    Q_OBJECT
    Q_PROPERTY(QColor BackColor READ BackColor WRITE SetBackColor RESET ResetBackColor)

public:
    explicit LocationView(QWidget* parent = nullptr);
    std::string TypeName() const override { return "LocationView"; }

    // The displayed location has changed; raised after its rows have been filled.
    Event<StorageLocationRef> LocationChanged;
    // The receiver sets the menu and the entry to show as the default one, both initially null.
    Event<QMenu*&, QAction*&> ItemContextMenu;
    // The user wants to open this StoredItem or StorageLocation. An error from the receiver is shown.
    Event<ObjectRef> ItemOpenRequest;

    const StorageLocationRef& Location() const { return m_location; }
    // Does nothing if the location is already displayed, or for null after null.
    void SetLocation(const StorageLocationRef& location);
    // Displays the location again.
    void Refresh();
    // Displays no location, without raising LocationChanged.
    void Clear();
    // Refreshes and restores the selection and the scroll position.
    void RefreshInPlace();

    // The objects of the selected rows, in row order.
    std::shared_ptr<ObjectVector> SelectedItems() const;
    void SelectAll();

    // The system color until set.
    QColor BackColor() const;
    void SetBackColor(const QColor& color);
    void ResetBackColor();
    // "BackColor". An absent or invalid value sets the system color.
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
    ObjectRef ObjectOf(int row) const;

    void OnMouseUp(int button, const QPoint& at);
    void OnDoubleClick();
    void OnKeyDown(int keyCode, bool ctrl);
    void OfferContextMenu(const std::optional<QPoint>& at = std::nullopt);
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
