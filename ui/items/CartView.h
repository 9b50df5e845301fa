#pragma once

#include "base/Event.h"
#include "core/CartStore.h"
#include "ui/controls/View.h"

#include <utility>
#include <vector>

class QAction;
class QMenu;

namespace quellbrook {

class FlatButton;
class GroupBox;
class Label;
class Line;
class Link;
class LocationPicker;
class SearchResultList;
class TessarineDropdown;

// The screen that completes a batch: the items of the current transfer, and a form for who transfers them, who receives
// them, where they go and why. Validates the form and starts the transfer through the actions.
class CartView : public View {
    Q_OBJECT

public:
    explicit CartView(QWidget* parent = nullptr);
    std::string TypeName() const override { return "CartView"; }

    // The list of items after a look at one of them, otherwise the form.
    QWidget* FirstFocus() override;

protected:
    void Shown() override;
    void Layout() override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void BuildTitleArea();
    void BuildFormPanel();
    void BuildListPanel();
    void BuildMenu();
    void BuildBarcodeListener();

    void RefreshFromStore();
    void ShowTransactionType(int32_t transactionType);
    void LoadTransferData();
    bool ValidateForm();
    std::shared_ptr<TransferData> MakeTransferData() const;
    bool TransferItems();

    void LayoutControls();
    void LayoutFormPanel();
    void LayoutFields();

    void OpenItem(const StoredItemRef& item);
    void CartStore_OnChange();
    void TransferButton_Click();
    void RemoveItem_Click();
    void itemBarcodeLicenser_BarcodeScanned(int32_t barcodeType, const std::string& barcodeData);

    bool m_shown = false;
    bool m_returnsToList = false;
    GroupBox* m_titleArea = nullptr;
    Label* m_title = nullptr;
    Link* m_close = nullptr;
    GroupBox* m_formPanel = nullptr;
    std::vector<std::pair<Label*, Control*>> m_fields;  // each with its caption, from top to bottom
    TessarineDropdown* m_receivedFrom = nullptr;
    TessarineDropdown* m_receivedBy = nullptr;
    LocationPicker* m_location = nullptr;
    StorageLocationTypes m_destinationType{};  // that m_location offers
    TessarineDropdown* m_reason = nullptr;
    FlatButton* m_cancel = nullptr;
    FlatButton* m_transfer = nullptr;
    GroupBox* m_listPanel = nullptr;
    Label* m_listCaption = nullptr;
    Label* m_itemCount = nullptr;
    Line* m_underline = nullptr;
    SearchResultList* m_itemList = nullptr;
    QMenu* m_itemsMenu = nullptr;
    QAction* m_openEntry = nullptr;
    std::shared_ptr<CartStore> m_cartStore;
    Subscription m_cartSubscription;
};

}  // namespace quellbrook
