#include "core/ActionTypes.h"
#include "data/BarcodeText.h"
#include "tests/support/Callbacks.h"
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
    std::vector<TaggedValue> Notices() const {
        std::vector<TaggedValue> notices;
        for (const Action& action : m_actions->actions) {
            if (action.ActionType == ActionTypes::NOTIFY_USER) notices.push_back(action.Payload);
        }
        return notices;
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
    EXPECT_THAT(Notices(), ElementsAre(TaggedValue("Added 1 item ('Telephone') scanned from barcode")));
    EXPECT_THAT(m_screen.TakeMessages(), IsEmpty());
}

TEST_F(CartViewBarcodeTest, AnItemOfTheBatchIsNotAddedTwice) {
    ScanAndWait("P", m_bar->ID());
    ScanAndWait("P", m_bar->ID());
    EXPECT_THAT(BatchIds(), ElementsAre("2026-0417-03", "2026-0417-02"));
    const TaggedValue notice("Added 1 item ('Pry bar') scanned from barcode");
    EXPECT_THAT(Notices(), ElementsAre(notice, notice));
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
    EXPECT_THAT(Notices(), IsEmpty());
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
