#pragma once

#include "core/Actions.h"
#include "tests/support/ManualTimer.h"
#include "tests/support/ui/SmallDepartment.h"
#include "tests/support/ui/Widgets.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/Label.h"
#include "ui/controls/TessarineDropdown.h"
#include "ui/explorer/SearchResultList.h"
#include "ui/items/CartView.h"
#include "ui/locations/LocationPicker.h"
#include "ui/platform/Twips.h"
#include "ui/platform/WidgetMessageHook.h"

#include <QAction>
#include <QComboBox>
#include <QMenu>

namespace quellbrook::testing {

using Messages = std::vector<RecordingScreen::Message>;

// The transfer view in a window, with two items to transfer.
class CartViewTest : public SmallDepartment {
protected:
    CartViewTest() {
        m_laptop = AddProperty("2026-0417-03", "Laptop computer", shelf);
        AddProperty("E-0", "never in a batch", shelf);
        m_bar = AddProperty("2026-0417-02", "Pry bar", aisle, 6);
        m_environment->makeMessageHook = MakeWidgetMessageHook;
        m_window.resize(1280, 760);
        m_view = new CartView(&m_window);
        m_view->setObjectName("cart");
        m_view->Move(0, 0, ToTwips(1280), ToTwips(760));
        GetActions().NavigateTo(ViewNames::Explorer, nullptr);
        GetActions().NavigateTo(ViewNames::Cart, nullptr);
    }

    void Begin(int32_t type, std::initializer_list<ObjectRef> items) {
        GetActions().BeginTransaction(type, ListOf(items));
        ShowActive(m_window);
    }
    void BeginSignOut() { Begin(TransactionType::SignOut, {m_laptop, m_bar}); }

    TessarineDropdown* From() { return Find<TessarineDropdown>(*m_view, "receivedFromField"); }
    TessarineDropdown* By() { return Find<TessarineDropdown>(*m_view, "receivedByField"); }
    TessarineDropdown* Reason() { return Find<TessarineDropdown>(*m_view, "reasonField"); }
    LocationPicker* Destination() { return Find<LocationPicker>(*m_view, "locationField"); }
    SearchResultList* List() { return Find<SearchResultList>(*m_view, "itemList"); }
    FlatButton* Transfer() { return Find<FlatButton>(*m_view, "btnTransfer"); }
    FlatButton* Cancel() { return Find<FlatButton>(*m_view, "btnCancel"); }
    Control* Named(const char* name) { return Find<Control>(*m_view, name); }
    QString Text(const char* name) { return Find<Label>(*m_view, name)->Caption(); }
    QAction* Entry(const char* name) { return Find<QMenu>(*m_view, "mnuItems")->findChild<QAction*>(name); }

    void FillForm(int32_t destination) {
        From()->SetValue(11);
        By()->SetValue(12);
        Destination()->SetSelectedLocation(GetStores().Locations->GetLocation(destination));
        Reason()->SetValue(2);
    }

    QStringList Offered() {
        const auto* box = Destination()->findChild<QComboBox*>();
        QStringList texts;
        for (int i = 0; i < box->count(); ++i) texts += box->itemText(i);
        return texts;
    }

    bool HasFocus(const QWidget* control) {
        const QWidget* focused = QApplication::focusWidget();
        return focused && (focused == control || control->isAncestorOf(focused));
    }
    bool IsCurrent() { return GetStores().View->ViewName() == ViewNames::Cart; }

    ManualTimers m_timers{m_environment};
    QWidget m_window;
    CartView* m_view = nullptr;
    StoredItemRef m_laptop;
    StoredItemRef m_bar;
};

}  // namespace quellbrook::testing
