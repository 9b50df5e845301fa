#include "data/BarcodeText.h"
#include "tests/support/Callbacks.h"
#include "tests/support/LabelServices.h"
#include "tests/ui/explorer/ExplorerWindowTest.h"
#include "ui/explorer/ExplorerHeading.h"

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;

class EvidenceExplorerPrintTest : public ExplorerWindowTest {
protected:
    EvidenceExplorerPrintTest() {
        Show(m_shelf);
        GetDispatcher()->Register(m_actions);
    }

    void PrintAll() {
        m_list->Tree()->setFocus();
        m_view->SelectAll();
        Print();
    }
    void Print() { m_explorer->Menu()->Entry(MenuEntry::Print)->trigger(); }

    std::vector<std::string> PrintedBarcodes() const {
        std::vector<std::string> texts;
        for (const FilledLabel& label : m_labels.printer->labels) texts.push_back(label.barcodes.at(0).text);
        return texts;
    }

    LabelServices m_labels;
    std::shared_ptr<RecordingCallback> m_actions = std::make_shared<RecordingCallback>();
};

TEST_F(EvidenceExplorerPrintTest, PrintsALabelOfEverySelectedItem) {
    PrintAll();
    EXPECT_THAT(PrintedBarcodes(),
                ::testing::UnorderedElementsAre(MakeBarcodeText("L", m_bin), MakeBarcodeText("P", m_first),
                                                MakeBarcodeText("P", m_second)));
    EXPECT_THAT(m_actions->Notices(), ElementsAre("Sent 3 labels to the printer 'Front Desk'."));
    EXPECT_THAT(m_screen.TakeMessages(), ::testing::IsEmpty());
}

TEST_F(EvidenceExplorerPrintTest, PrintsTheLabelOfASelectedLocation) {
    m_explorer->setFocus();
    m_window->setFocus();
    Print();
    EXPECT_THAT(PrintedBarcodes(), ElementsAre(MakeBarcodeText("L", m_shelf)));
    EXPECT_THAT(m_actions->Notices(), ElementsAre("Sent 1 label to the printer 'Front Desk'."));
}

TEST_F(EvidenceExplorerPrintTest, NoLocationGivesNoLabel) {
    m_explorer->SetSelectedLocation(nullptr);
    emit Find<ExplorerHeading>(*m_explorer, "picInfobar")->PrintRequested();
    EXPECT_THAT(PrintedBarcodes(), ElementsAre());
    EXPECT_THAT(m_actions->Notices(), ElementsAre());
}

TEST_F(EvidenceExplorerPrintTest, AFailureIsReportedAndEndsPrinting) {
    m_labels.printer->refusal = "Out of labels.";
    m_list->Tree()->setFocus();
    m_view->SelectAll();
    Print();
    EXPECT_EQ(m_screen.TakeMessages(),
              OneMessage("Error printing barcode label for location 'Bin 1': Out of labels.", 16, "Error"));
    EXPECT_THAT(m_actions->Notices(), ElementsAre()) << "no label was printed";
}

TEST_F(EvidenceExplorerPrintTest, AFailureAfterTheFirstLabelSaysHowManyWerePrinted) {
    m_labels.printer->refuseAfter = 2;
    PrintAll();
    EXPECT_EQ(m_screen.TakeMessages(),
              OneMessage("Error printing barcode label for property 'E-2': Out of labels.", 16, "Error"));
    EXPECT_THAT(m_actions->Notices(), ElementsAre("Sent 2 labels to the printer 'Front Desk'."));
}

}  // namespace
}  // namespace quellbrook::testing
