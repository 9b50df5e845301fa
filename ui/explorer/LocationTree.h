#pragma once

#include "base/Event.h"
#include "core/LocationStore.h"
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

// The hierarchy of storage locations under its typed roots. Reads it when first shown; disabled locations are left out
// with all below them. Keeps one selection, and offers a context menu that its owner provides.
class LocationTree : public View {
    Q_OBJECT
    Q_PROPERTY(QColor BackColor READ BackColor WRITE SetBackColor RESET ResetBackColor)
    Q_PROPERTY(QColor ForeColor READ ForeColor WRITE SetForeColor RESET ResetForeColor)
    Q_PROPERTY(QColor RootColor READ RootColor WRITE SetRootColor RESET ResetRootColor)
    Q_PROPERTY(short Appearance READ Appearance WRITE SetAppearance)
    Q_PROPERTY(short BorderStyle READ BorderStyle WRITE SetBorderStyle)

public:
    explicit LocationTree(QWidget* parent = nullptr);
    ~LocationTree() override;
    std::string TypeName() const override { return "LocationTree"; }

    // Raised at every change of the selection but to nothing, and at every Refresh; the location may be null.
    Event<StorageLocationRef> LocationSelected;
    Event<> DblClick;
    // Asks the owner for a menu and its default entry, both null at first. DropHighlightLocation says what it is about;
    // a menu asked for by the keyboard is about SelectedLocation.
    Event<QMenu*&, QAction*&> GetContextMenu;

    const StorageLocationRef& SelectedLocation() const { return m_selectedLocation; }
    // A location without a node is selected all the same.
    void SetSelectedLocation(const StorageLocationRef& location);
    // The location on which a context menu is open, or null.
    StorageLocationRef DropHighlightLocation() const;
    // Reads the hierarchy anew; a selected location that has been deleted gives way to its parent.
    void Refresh();

    // A menu of the tree's own, for an owner that hands it back through GetContextMenu.
    QMenu* LocationMenu() const { return m_mnuLocation; }

    // Colours of the system until set; the ground, the text of locations, the text of roots.
    QColor BackColor() const;
    void SetBackColor(const QColor& color);
    void ResetBackColor();
    QColor ForeColor() const;
    void SetForeColor(const QColor& color);
    void ResetForeColor();
    QColor RootColor() const;
    void SetRootColor(const QColor& color);
    void ResetRootColor();
    // 0 flat, 1 raised.
    short Appearance() const { return m_appearance; }
    void SetAppearance(short appearance);
    // 0 none, 1 a single line.
    short BorderStyle() const { return m_borderStyle; }
    void SetBorderStyle(short borderStyle);
    // All five, each under its own name. A value that is absent or can't be read gives the property's initial value.
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
    void OnRightPressed(QTreeWidgetItem* node);
    void OnRightReleased(QTreeWidgetItem* node);
    void OfferContextMenu();
    void OnFocusChanged(QWidget* now);
    void PrepareLocationMenu();
    QTreeWidgetItem* MenuNode() const;

    void ApplyFrame();
    void ApplyBackColor();
    void ApplyTextColors();

    LocationTreeWidget* m_treeView;
    GroupBox* m_picLoading;
    StatePanel* m_picLoadingMessage = nullptr;
    QMenu* m_mnuLocation = nullptr;
    QAction* m_mnuExpandCollapse = nullptr;
    QHash<QString, QTreeWidgetItem*> m_nodes;

    std::shared_ptr<LocationStore> m_locationStore;
    StorageLocationRef m_selectedLocation;
    QTreeWidgetItem* m_priorNode = nullptr;
    bool m_hasFocus = false;
    bool m_isLoaded = false;
    std::optional<QColor> m_backColor;
    std::optional<QColor> m_foreColor;
    std::optional<QColor> m_rootColor;
    short m_appearance = 1;
    short m_borderStyle = 1;
    QMetaObject::Connection m_focusWatch;
    Subscription m_locationsChanged;
};

}  // namespace quellbrook
