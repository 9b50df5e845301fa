#pragma once

#include "base/ObjectList.h"
#include "core/CartStore.h"
#include "data/Types.h"
#include "ui/controls/View.h"
#include "ui/explorer/ActionMenuRules.h"

#include <QScopeGuard>

#include <functional>
#include <memory>

class QAction;
class QMenu;

namespace quellbrook {

class ActionMenu;
class BarcodeListenerControl;
class CategorizedSearchResults;
class ExplorerHeading;
class FlatTextbox;
class GroupBox;
class Line;
class LocationTree;
class LocationView;
class StatePanel;

// The main screen: a search box and the tree of locations on the left, the contents of the selected location or search
// results under a heading on the right, and one context menu for all of them, which depends on the selection, the batch
// and the user's rights. While the explorer is visible, a scanned location barcode selects the location and an item
// barcode opens the item.
class EvidenceExplorer : public View {
    Q_OBJECT

public:
    explicit EvidenceExplorer(QWidget* parent = nullptr);
    ~EvidenceExplorer() override;
    std::string TypeName() const override { return "EvidenceExplorer"; }

    const StorageLocationRef& SelectedLocation() const;
    void SetSelectedLocation(const StorageLocationRef& location);
    // Displays the contents again. If that fails, shows no rows, and the reason in the subtitle, and throws.
    void Refresh();
    // Enters a location or opens an item in its view; ignores anything else.
    void OpenItemRequest(const ObjectRef& item);

    // Searches for the text and shows the results instead of a location, until a location is selected. Throws if a
    // search fails; then the results stay covered.
    void DoSearchRequest(const std::string& text);

    // The objects that a command acts on: the selection of the focused pane, or the displayed location if no control of
    // the explorer has the focus.
    std::shared_ptr<ObjectVector> GetSelectedObjects() const;

    LocationTree* LocationPane() const { return m_locationPane; }
    LocationView* ItemPane() const { return m_itemPane; }
    CategorizedSearchResults* SearchResultPane() const { return m_searchResultPane; }
    ActionMenu* Menu() const { return m_mnuItems; }

protected:
    void Shown() override;
    void Layout() override;
    void changeEvent(QEvent* event) override;

private:
    void MakeLeftColumn();
    void MakeSearchBox();
    void MakeHeading();
    void MakeLoadingCover();
    void ConnectPanes();
    void ConnectHeading();
    void ConnectMenu();
    void ConnectShortcuts();
    void MakeBarcodeListener();

    void DisplayCurrentLocation();
    // Displays the location if it is selected but could not be read. Otherwise returns false.
    bool DisplayUnlessShown(const StorageLocationRef& location);
    void DisplayNoLocation();
    void DisplayLocation(const StorageLocationRef& location, int& step);
    void ShowCounts(StorageLocation& location);
    void ShowFailure(const Error& error);
    void LayoutView();
    // If a control of the right side has the focus now and loses it before the guard ends, the guard returns the focus
    // to the visible pane, or to the tree if that pane is disabled.
    [[nodiscard]] QScopeGuard<std::function<void()>> KeepFocus();
    void ReturnFocus();
    void m_cartStore_OnChange();

    void search_KeyPressed(int keyCode);
    void GoToSearchBox();
    void SearchAgain();
    void ShowSearchHeading();

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
    void PromptDeleteLocation(StorageLocationRef location);
    void RefreshPanes();
    void PrintSelected();
    void PrintLabelsOf(const ObjectList& objects);
    void ReadAgain();
    void RefreshContents();
    // If somebody else has deleted the selected location, shows its container. Otherwise returns false.
    bool LeaveDeletedLocation();
    void ApplyColors();

    GroupBox* m_picLeftPanel = nullptr;
    GroupBox* m_grpSearch = nullptr;
    FlatTextbox* m_search = nullptr;
    LocationTree* m_locationPane = nullptr;
    ExplorerHeading* m_picInfobar = nullptr;
    LocationView* m_itemPane = nullptr;
    CategorizedSearchResults* m_searchResultPane = nullptr;
    GroupBox* m_grpLoading = nullptr;
    StatePanel* m_grpMessage = nullptr;
    Line* m_lnDivider = nullptr;
    ActionMenu* m_mnuItems = nullptr;
    BarcodeListenerControl* m_itemBarcodeListener = nullptr;
    std::string m_searchText;
    std::shared_ptr<CartStore> m_cartstore;
    Subscription m_cartChanged;
};

}  // namespace quellbrook
