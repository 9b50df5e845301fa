#pragma once

#include "base/ObjectList.h"
#include "core/CartStore.h"
#include "data/Types.h"
#include "ui/controls/View.h"
#include "ui/explorer/ActionMenuRules.h"

#include <functional>
#include <memory>

class QAction;
class QMenu;

namespace quellbrook {

class ActionMenu;
class BarcodeListenerControl;
class StatePanel;
class GroupBox;
class Label;
class Line;
class LocationTree;
class LocationView;

// The main screen: the tree of locations on the left, the contents of the selected one under a heading on the right,
// and one context menu for both, which depends on the selection, the batch and the user's rights. While the explorer is
// visible, a scanned location barcode selects the location and an item barcode opens the item.
class EvidenceExplorer : public View {
    Q_OBJECT

public:
    explicit EvidenceExplorer(QWidget* parent = nullptr);
    std::string TypeName() const override { return "EvidenceExplorer"; }

    const StorageLocationRef& SelectedLocation() const;
    void SetSelectedLocation(const StorageLocationRef& location);
    // Displays the contents again. If that fails, shows no rows, and the reason in the subtitle, and throws.
    void Refresh();
    // Enters a location or opens an item in its view; ignores anything else.
    void OpenItemRequest(const ObjectRef& item);

    // The objects that a command acts on: the selection of the focused pane, or the displayed location if neither pane
    // has the focus.
    std::shared_ptr<ObjectVector> GetSelectedObjects() const;

    LocationTree* LocationPane() const { return m_locationPane; }
    LocationView* ItemPane() const { return m_itemPane; }
    ActionMenu* Menu() const { return m_mnuItems; }

protected:
    void Shown() override;
    void Layout() override;
    void changeEvent(QEvent* event) override;

private:
    void MakeLeftColumn();
    void MakeHeading();
    void MakeLoadingCover();
    void ConnectPanes();
    void ConnectMenu();
    void MakeBarcodeListener();

    void DisplayCurrentLocation();
    void DisplayNoLocation();
    void DisplayLocation(const StorageLocationRef& location, int& step);
    void ShowCounts(StorageLocation& location);
    void ShowFailure(const Error& error);
    void LayoutView();

    void itemBarcodeListener_BarcodeScanned(int32_t barcodeType, const std::string& barcodeData);
    void OpenScannedLocation(const std::string& number);
    void OpenScannedItem(int32_t barcodeType, const std::string& number);

    QWidget* ActiveChild() const;
    void PrepareActionMenu(MenuSource source, QWidget* pane);
    void OfferMenu(MenuSource source, QWidget* pane, QMenu*& contextMenu, QAction*& defaultMenu);
    void Bind(MenuEntry entry, std::function<void()> command);
    ObjectRef SingleSelectedObject() const;
    StorageLocationRef GetContextLocation() const;
    void PromptAddLocation(const StorageLocationRef& parent);
    void PromptEditLocation(const StorageLocationRef& location);
    void PromptDeleteLocation(const StorageLocationRef& location);
    bool RefreshPanes();
    void PrintSelected();
    void ReadAgain();
    void RefreshContents(void (LocationView::*refresh)());
    void ApplyColors();

    GroupBox* m_picLeftPanel = nullptr;
    LocationTree* m_locationPane = nullptr;
    GroupBox* m_picInfobar = nullptr;
    Label* m_lblTitle = nullptr;
    Label* m_lblSubtitle = nullptr;
    LocationView* m_itemPane = nullptr;
    GroupBox* m_grpLoading = nullptr;
    StatePanel* m_grpMessage = nullptr;
    Line* m_lnDivider = nullptr;
    Line* m_lnSeparator = nullptr;
    ActionMenu* m_mnuItems = nullptr;
    BarcodeListenerControl* m_itemBarcodeListener = nullptr;
    std::shared_ptr<CartStore> m_cartstore;
};

}  // namespace quellbrook
