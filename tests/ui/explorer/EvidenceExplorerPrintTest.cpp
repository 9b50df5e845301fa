#include "data/BarcodeText.h"
#include "tests/support/LabelServices.h"
#include "tests/ui/explorer/ExplorerTest.h"
#include "ui/controls/ListView.h"
#include "ui/explorer/ActionMenu.h"
#include "ui/explorer/EvidenceExplorer.h"
#include "ui/explorer/LocationView.h"

#include <QAction>

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;

class EvidenceExplorerPrintTest : public ExplorerTest {
protected:
    EvidenceExplorerPrintTest() {
        m_shelf = AddLocation("Shelf A");
        m_bin = AddLocation("Bin 1", m_shelf);
        m_first = AddItem("E-1", m_shelf);
        m_second = AddItem("E-2", m_shelf);
        m_window.resize(1280, 760);
        m_explorer = new EvidenceExplorer(&m_window);
        m_explorer->setGeometry(0, 0, 1280, 760);
        ShowActive(m_window);
        m_explorer->SetSelectedLocation(LocationOf(m_shelf));
    }

    void PrintAll() {
        m_explorer->ItemPane()->List()->Tree()->setFocus();
        m_explorer->ItemPane()->SelectAll();
        Print();
    }
    void Print() { m_explorer->Menu()->Entry(MenuEntry::Print)->trigger(); }

    std::vector<std::string> PrintedBarcodes() const {
        std::vector<std::string> texts;
        for (const FilledLabel& label : m_labels.printer->labels) texts.push_back(label.barcodes.at(0).text);
        return texts;
    }

    LabelServices m_labels;
    int32_t m_shelf, m_bin, m_first, m_second;
    QWidget m_window;
    EvidenceExplorer* m_explorer;
};

TEST_F(EvidenceExplorerPrintTest, PrintsALabelOfEverySelectedItem) {
    PrintAll();
    EXPECT_THAT(PrintedBarcodes(),
                ::testing::UnorderedElementsAre(MakeBarcodeText("L", m_bin), MakeBarcodeText("P", m_first),
                                                MakeBarcodeText("P", m_second)));
}

TEST_F(EvidenceExplorerPrintTest, PrintsTheLabelOfASelectedLocation) {
    m_explorer->setFocus();
    m_window.setFocus();
    Print();
    EXPECT_THAT(PrintedBarcodes(), ElementsAre(MakeBarcodeText("L", m_shelf)));
}

TEST_F(EvidenceExplorerPrintTest, AFailureIsToldAndEndsThePrinting) {
    m_labels.printer->refusal = "Out of labels.";
    m_explorer->ItemPane()->List()->Tree()->setFocus();
    m_explorer->ItemPane()->SelectAll();
    Print();
    const std::vector<RecordingScreen::Message> messages = m_screen.TakeMessages();
    ASSERT_EQ(messages.size(), 1u) << "no second try";
    EXPECT_THAT(messages[0].prompt, ::testing::EndsWith(": Out of labels."));
    EXPECT_EQ(messages[0].buttons, MessageStyle::Critical);
    EXPECT_EQ(messages[0].title, "Error");
}

}  // namespace
}  // namespace quellbrook::testing
