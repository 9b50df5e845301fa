#include "data/BarcodeText.h"
#include "tests/support/FaultInjectingEngine.h"
#include "tests/support/ui/Scanner.h"
#include "tests/ui/explorer/ExplorerWindowTest.h"
#include "ui/controls/BarcodeListenerControl.h"

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string problem = "There was a problem with the barcode you scanned: \r\n\r\n";
const std::string invalid = "The barcode you scanned is invalid. If you believe the barcode is OK, try re-scanning it.";

class EvidenceExplorerBarcodeTest : public ExplorerWindowTest {
protected:
    EvidenceExplorerBarcodeTest() {
        m_vehicle = AddVehicle("ABC 123", m_shelf);
        GetStores();
        GetActions().NavigateTo(ViewNames::Explorer, nullptr);
        Show(m_shelf);
    }

    // Scans, and processes all resulting events.
    void ScanAndWait(const std::string& text) {
        Scan(text);
        EXPECT_EQ(m_timers.Tick(1), 1) << "no scan was delivered";
        m_clock.Advance(150);
    }
    void ScanAndWait(const char* letter, int32_t id) {
        const std::string barcode = MakeBarcodeText(letter, id);
        ScanAndWait(barcode.substr(1, barcode.size() - 2));
    }

    void ExpectMessage(const std::string& text, const std::string& title) {
        const std::vector<RecordingScreen::Message> expected = {{text, MessageStyle::Critical, title}};
        EXPECT_EQ(m_screen.TakeMessages(), expected);
    }

    static std::string OpenedItem() {
        const ViewStore& view = *GetStores().View;
        if (view.ViewName() != ViewNames::ItemView) return "";
        return ToObject<StoredItem>(view.ViewParameters()->Value("Item"))->DisplayID();
    }

    int32_t m_vehicle;
};

TEST_F(EvidenceExplorerBarcodeTest, ALocationsBarcodeSelectsIt) {
    ScanAndWait("L", m_bin);
    EXPECT_EQ(m_explorer->SelectedLocation()->ID(), m_bin);
    EXPECT_EQ(m_explorer->ItemPane()->Location()->ID(), m_bin);
    EXPECT_EQ(Title(), "Bin 1");
}

TEST_F(EvidenceExplorerBarcodeTest, AScanWithoutAnEndBlocksTheKeyboardForASecond) {
    m_list->Tree()->setFocus();
    TypeAsScanner("\x02P");
    TypeAsScanner("e");
    EXPECT_EQ(m_list->CurrentRow(), -1);
    m_timers.Tick(1000);
    TypeAsScanner("e");
    EXPECT_EQ(m_list->CellText(m_list->CurrentRow(), 1), "E-1");
    ScanAndWait("L", m_bin);
    EXPECT_EQ(m_explorer->SelectedLocation()->ID(), m_bin);
}

TEST_F(EvidenceExplorerBarcodeTest, AnItemsBarcodeOpensIt) {
    ScanAndWait("P", m_first);
    EXPECT_EQ(OpenedItem(), "E-1");
    GetActions().GoBack();
    ScanAndWait("V", m_vehicle);
    EXPECT_EQ(OpenedItem(), "ABC 123 (OR)");
    GetActions().GoBack();
    ScanAndWait("p" + std::to_string(m_first));
    EXPECT_EQ(OpenedItem(), "E-1") << "a small letter, no leading zeros";
}

TEST_F(EvidenceExplorerBarcodeTest, AScanClosesTheMenuThatIsOpen) {
    bool scanned = false;
    WhileMenuOpen([&](QMenu& menu) {
        ScanAndWait("L", m_bin);
        scanned = true;
        EXPECT_FALSE(menu.isVisible());
        EXPECT_EQ(Title(), "Bin 1");
    });
    RightClick(m_list->Tree()->viewport(), RowCenter("E-1"));
    EXPECT_TRUE(scanned);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(EvidenceExplorerBarcodeTest, AnItemIsFoundByItsTypeAndKey) {
    ASSERT_EQ(m_first, m_vehicle) << "one key for a piece of property and a vehicle";
    ScanAndWait("V", m_first);
    EXPECT_EQ(OpenedItem(), "ABC 123 (OR)");
}

TEST_F(EvidenceExplorerBarcodeTest, ADeletedLocationIsNotFound) {
    ScanAndWait("L", 4711);
    ExpectMessage("The location barcode you scanned refers to a location that is no longer in your database.",
                  "Location Not Found");
    EXPECT_EQ(Title(), "Shelf A");
}

TEST_F(EvidenceExplorerBarcodeTest, ALocationThatAnotherWorkstationHasCreatedIsFound) {
    const int32_t created = m_database.AddLocation("Temp A", StorageLocationTypes::Internal, m_shelf);
    ScanAndWait("L", created);
    EXPECT_EQ(Title(), "Temp A");
    EXPECT_EQ(m_widget->currentItem()->text(0), "Temp A");
}

TEST_F(EvidenceExplorerBarcodeTest, ADeletedItemIsNotFound) {
    for (const char* letter : {"P", "V"}) {
        ScanAndWait(letter, 4711);
        ExpectMessage("The barcode you scanned refers to a item that is no longer in your database.", "Item Not Found");
    }
    EXPECT_EQ(OpenedItem(), "");
}

TEST_F(EvidenceExplorerBarcodeTest, AnotherKindOfBarcodeDoesNothing) {
    for (const char* text : {"X9", "", "0000000012", "\xC3\xBC"}) ScanAndWait(text);
    EXPECT_THAT(m_screen.TakeMessages(), IsEmpty());
    EXPECT_EQ(OpenedItem(), "");
    EXPECT_EQ(Title(), "Shelf A");
}

TEST_F(EvidenceExplorerBarcodeTest, ABarcodeWithoutANumberIsInvalid) {
    for (const char* text : {"Lshelf", "P", "V12 3", "P1e3", "L0x1F", "P1,2", "P'; DROP TABLE Property"}) {
        ScanAndWait(text);
        ExpectMessage(problem + invalid, "Barcode Scan Error");
    }
    EXPECT_EQ(Title(), "Shelf A");
}

TEST_F(EvidenceExplorerBarcodeTest, ANumberOfMoreThan32BitsIsAScanError) {
    for (const char* text : {"L99999999999", "P99999999999", "V2147483648"}) {
        ScanAndWait(text);
        ExpectMessage(problem + ErrorText(ErrorNumber::Overflow), "Barcode Scan Error");
    }
}

TEST_F(EvidenceExplorerBarcodeTest, ADatabaseErrorIsReportedAndTheViewIsUnchanged) {
    const auto engine = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(engine);
    engine->FailAtStatement(1, Error(ErrorNumber::General, "The engine", "The server is gone."));
    ScanAndWait("P", m_first);
    ExpectMessage(problem + "The server is gone.", "Barcode Scan Error");
    EXPECT_EQ(OpenedItem(), "");
    EXPECT_EQ(Title(), "Shelf A");
}

TEST_F(EvidenceExplorerBarcodeTest, IgnoresScansWhileHidden) {
    m_explorer->hide();
    Scan("P" + std::to_string(m_first));
    EXPECT_EQ(m_timers.Tick(1), 0);
    EXPECT_EQ(OpenedItem(), "");
}

TEST_F(EvidenceExplorerBarcodeTest, ItsListenerHasTheNameByWhichItIsKnown) {
    EXPECT_NE(Find<BarcodeListenerControl>(*m_explorer, "itemBarcodeListener"), nullptr);
}

}  // namespace
}  // namespace quellbrook::testing
