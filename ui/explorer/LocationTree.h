#pragma once

#include "base/Event.h"
#include "core/LocationStore.h"
#include "ui/controls/FocusLook.h"
#include "ui/controls/View.h"

#include <QColor>
#include <QHash>

#include <memory>
#include <optional>

class QAction;
class QMenu;
class QTreeWidgetItem;

namespace quellbrook {

class StatePanel;
class GroupBox;
class LocationTreeWidget;
class PropertyBag;

// Shows the hierarchy of storage locations under its typed roots, read when the tree is first shown. Disabled locations
// and everything below them are left out. Has a single selection and a context menu that its owner provides.
class LocationTree : public View {
    Q_OBJECT
    Q_PROPERTY(QColor BackColor READ BackColor WRITE SetBackColor RESET ResetBackColor)
    Q_PROPERTY(QColor ForeColor READ ForeColor WRITE SetForeColor RESET ResetForeColor)
    Q_PROPERTY(QColor RootColor READ RootColor WRITE SetRootColor RESET ResetRootColor)
    Q_PROPERTY(short Appearance READ Appearance WRITE SetAppearance)
    Q_PROPERTY(short BorderStyle READ BorderStyle WRITE SetBorderStyle)

public:
    explicit LocationTree(QWidget* parent = nullptr);
    std::string TypeName() const override { return "LocationTree"; }

    // Raised when the selection changes, except to null, and on every Refresh, then possibly with null.
    Event<StorageLocationRef> LocationSelected;
    // The user clicked the selected location, which stays selected.
    Event<> ClickedAgain;
    Event<> DblClick;
    // The receiver sets the menu and its default entry, both initially null. The menu is for DropHighlightLocation, or
    // for SelectedLocation if the keyboard opened it.
    Event<QMenu*&, QAction*&> GetContextMenu;

    const StorageLocationRef& SelectedLocation() const { return m_selectedLocation; }
    // A location without a node can be selected too.
    void SetSelectedLocation(const StorageLocationRef& location);
    // The location on which a context menu is open, or null.
    StorageLocationRef DropHighlightLocation() const;
    // Reads the hierarchy again; the parent replaces a selected location that has been deleted.
    void Refresh();
    // Whether the loading message covers the tree: during a load, and after one that failed.
    bool IsCovered() const;
    // Refreshes and restores the scroll position, and for each node of before whether it is expanded. If the selected
    // node was visible, it is visible afterwards.
    void RefreshInPlace();

    // The tree's own menu, for an owner that returns it through GetContextMenu.
    QMenu* LocationMenu() const { return m_mnuLocation; }

    // Background, text of locations, text of roots; the system colors until set.
    QColor BackColor() const;
    void SetBackColor(const QColor& color) { SetColor(m_backColor, color); }
    void ResetBackColor() { SetColor(m_backColor, std::nullopt); }
    QColor ForeColor() const;
    void SetForeColor(const QColor& color) { SetColor(m_foreColor, color); }
    void ResetForeColor() { SetColor(m_foreColor, std::nullopt); }
    QColor RootColor() const;
    void SetRootColor(const QColor& color) { SetColor(m_rootColor, color); }
    void ResetRootColor() { SetColor(m_rootColor, std::nullopt); }
    // 0 flat, 1 raised.
    short Appearance() const { return m_appearance; }
    void SetAppearance(short appearance);
    // 0 none, 1 a single line.
    short BorderStyle() const { return m_borderStyle; }
    void SetBorderStyle(short borderStyle);
    // All five, each under its own name. An absent or invalid value sets the property's initial value.
    void ReadProperties(const PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;

protected:
    void Shown() override;
    void Layout() override;
    void changeEvent(QEvent* event) override;

private:
    void MakeLoadingPanel();
    void MakeMenu();
    void ConnectTree();

    void LoadLocations(const StorageLocationRef& selected, bool raisesSelection);
    void StartLoading();
    void ClearNodes();
    void AddRoots();
    void AddChildren(QTreeWidgetItem* node, const StorageLocation& location);
    std::unique_ptr<QTreeWidgetItem> MakeNode(const StorageLocation& location, const QTreeWidgetItem* parent);
    void SelectNodeOf(const StorageLocation& location);
    StorageLocationRef LocationOf(const QTreeWidgetItem* node) const;

    void OnLeftReleased(QTreeWidgetItem* node);
    void OnClicked(const StorageLocationRef& location);
    void OnRightPressed(QTreeWidgetItem* node);
    void OnRightReleased(QTreeWidgetItem* node);
    void OfferContextMenu(const std::optional<QPoint>& at = std::nullopt);
    void PrepareLocationMenu();
    bool PrintLabel() const;
    QTreeWidgetItem* MenuNode() const;

    void ApplyFrame();
    void SetColor(std::optional<QColor>& property, const std::optional<QColor>& color);
    void ApplyColors();

    LocationTreeWidget* m_treeView;
    GroupBox* m_picLoading;
    StatePanel* m_picLoadingMessage = nullptr;
    QMenu* m_mnuLocation = nullptr;
    QAction* m_mnuExpandCollapse = nullptr;
    QHash<QString, QTreeWidgetItem*> m_nodes;

    std::shared_ptr<LocationStore> m_locationStore;
    StorageLocationRef m_selectedLocation;
    QTreeWidgetItem* m_priorNode = nullptr;
    bool m_isLoaded = false;
    std::optional<QColor> m_backColor;
    std::optional<QColor> m_foreColor;
    std::optional<QColor> m_rootColor;
    short m_appearance = 1;
    short m_borderStyle = 1;
    FocusLook m_focusLook;
    Subscription m_locationsChanged;
};

}  // namespace quellbrook
