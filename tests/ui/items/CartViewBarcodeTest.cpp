#include "core/ActionTypes.h"
#include "data/BarcodeText.h"
#include "tests/support/Callbacks.h"
#include "tests/support/FaultInjectingEngine.h"
#include "tests/support/ui/Scanner.h"
#include "tests/ui/items/CartViewTest.h"

#include <QAbstractItemView>

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CartViewBarcodeTest : public CartViewTest {
protected:
    CartViewBarcodeTest() {
        BeginSignOut();
        GetDispatcher()->Register(m_actions);
    }

    void ScanAndWait(const char* letter, int32_t id) {
        const std::string barcode = MakeBarcodeText(letter, id);
        Scan(barcode.substr(1, barcode.size() - 2));
        EXPECT_EQ(m_timers.Tick(1), 1) << "no scan was delivered";
        m_clock.Advance(150);
    }
    static std::vector<std::string> BatchIds() {
        std::vector<std::string> ids;
        const auto items = GetStores().Cart->GetItems();
        for (int32_t i = 0; i < items->Count(); ++i) ids.push_back(items->ItemAt(i)->DisplayID());
        return ids;
    }

    std::shared_ptr<RecordingCallback> m_actions = std::make_shared<RecordingCallback>();
};

TEST_F(CartViewBarcodeTest, AnItemsBarcodeAddsItToTheBatch) {
    const StoredItemRef phone = AddProperty("2026-0417-04", "Telephone", shelf);
    ScanAndWait("P", phone->ID());
    EXPECT_THAT(BatchIds(), ElementsAre("2026-0417-03", "2026-0417-02", "2026-0417-04"));
    EXPECT_EQ(Text("lblItemCount"), " (3)");
    EXPECT_THAT(m_actions->Notices(), ElementsAre("Added 1 item ('Telephone') scanned from barcode"));
    EXPECT_THAT(m_screen.TakeMessages(), IsEmpty());
}

TEST_F(CartViewBarcodeTest, AVehiclesBarcodeAddsItToTheBatch) {
    m_database.NumberVehiclesApart();
    const StoredItemRef car = AddVehicle("KTR4821", shelf);
    ScanAndWait("V", car->ID());
    EXPECT_THAT(BatchIds(), ElementsAre("2026-0417-03", "2026-0417-02", car->DisplayID()));
    EXPECT_THAT(m_actions->Notices(), ElementsAre("Added 1 item ('" + car->Description() + "') scanned from barcode"));
}

TEST_F(CartViewBarcodeTest, AScanThatFailsIsUnexpectedAndChangesNothing) {
    std::vector<std::string> reported;
    m_environment->reportUnexpected = [&](const Error& error) { reported.push_back(error.Description()); };
    Scan("Pabc");
    EXPECT_EQ(m_timers.Tick(1), 1);
    m_clock.Advance(150);
    EXPECT_EQ(reported.size(), 1u);
    auto faults = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(faults);
    faults->FailAtStatement(1, Error(7, "Engine", "The link is down."));
    ScanAndWait("P", m_bar->ID());
    ASSERT_EQ(reported.size(), 2u);
    EXPECT_EQ(reported[1], "The link is down.");
    EXPECT_THAT(BatchIds(), ElementsAre("2026-0417-03", "2026-0417-02"));
    EXPECT_THAT(m_actions->Notices(), IsEmpty());
    EXPECT_THAT(m_screen.TakeMessages(), IsEmpty());
}

TEST_F(CartViewBarcodeTest, AnItemThatCannotBeAddedIsNotAnnounced) {
    const StoredItemRef phone = AddProperty("2026-0417-04", "Telephone", shelf);
    GetDispatcher()->Register(std::make_shared<FunctionCallback>("Failing", [](const Action& action) {
        if (action.ActionType == ActionTypes::CART_ADD_ITEMS)
            Raise(ErrorNumber::General, "Failing", "The batch is full.");
    }));
    int reported = 0;
    m_environment->reportUnexpected = [&](const Error&) { ++reported; };
    ScanAndWait("P", phone->ID());
    EXPECT_EQ(reported, 1);
    EXPECT_THAT(m_actions->Notices(), IsEmpty());
}

TEST_F(CartViewBarcodeTest, AnItemOfTheBatchIsNotAddedTwice) {
    ScanAndWait("P", m_bar->ID());
    ScanAndWait("P", m_bar->ID());
    EXPECT_THAT(BatchIds(), ElementsAre("2026-0417-03", "2026-0417-02"));
    const std::string notice("Added 1 item ('Pry bar') scanned from barcode");
    EXPECT_THAT(m_actions->Notices(), ElementsAre(notice, notice));
}

TEST_F(CartViewBarcodeTest, WhateverElseIsScannedIsReported) {
    ScanAndWait("P", 4711);
    ScanAndWait("V", 4711);
    ScanAndWait("L", shelf);
    const RecordingScreen::Message message{
        "The barcode you scanned refers to a item that is no longer in your database.", MessageStyle::Critical,
        "Item Not Found"};
    EXPECT_THAT(m_screen.TakeMessages(), ElementsAre(message, message, message));
    EXPECT_EQ(BatchIds().size(), 2u);
    EXPECT_THAT(m_actions->Notices(), IsEmpty());
}

TEST_F(CartViewBarcodeTest, AScanChoosesNothingInAField) {
    for (TessarineDropdown* field : {From(), By(), Reason()}) {
        auto* box = field->findChild<QComboBox*>();
        box->setFocus();
        ScanAndWait("P", m_bar->ID());
        EXPECT_EQ(box->currentIndex(), -1);
    }
}

TEST_F(CartViewBarcodeTest, AScanWhileADropdownIsOpenReturnsToItsField) {
    const StoredItemRef phone = AddProperty("2026-0417-04", "Telephone", shelf);
    auto* box = By()->findChild<QComboBox*>();
    box->setFocus();
    box->showPopup();
    ScanAndWait("P", phone->ID());
    EXPECT_EQ(BatchIds().size(), 3u);
    EXPECT_FALSE(box->view()->isVisible());
    EXPECT_TRUE(HasFocus(By()));
}

}  // namespace
}  // namespace quellbrook::testing
