#include "tests/desktop/scanner/ScannerTest.h"

#include <QDialog>

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

class OtherWindowTest : public ScannerTest {
protected:
    OtherWindowTest() { ShowExplorer(); }

    // A scan into the other window is lost; text typed by hand arrives there.
    void ExpectConsumedIn(QWidget& window) {
        QLineEdit field("kept", &window);
        field.setAccessibleName("field of the other window");
        Activate(window);
        field.setFocus();
        field.selectAll();
        for (const char* barcode : {"P0000000123", "l12", "V7", "x", ""}) {
            ScanAndAwait(barcode);
            Pause(gap);
        }
        EXPECT_THAT(m_scans, IsEmpty());
        EXPECT_EQ(field.text(), "kept");
        EXPECT_EQ(field.selectedText(), "kept");
        TypeByHand("by hand");
        EXPECT_EQ(field.text(), "by hand");
        ExpectNothingTyped();
    }

    void ExpectHeardAgain() {
        Activate(m_window);
        ScanAndAwait("x123");
        EXPECT_THAT(m_scans, ElementsAre(Pair(BarcodeType::Unknown, "123")));
    }
};

TEST_F(OtherWindowTest, WithAModalDialogActiveAScanIsConsumedAndLost) {
    {
        QDialog dialog(&m_window);
        dialog.setModal(true);
        ExpectConsumedIn(dialog);
        dialog.close();
    }
    ExpectHeardAgain();
}

TEST_F(OtherWindowTest, WithAnotherWindowActiveAScanIsConsumedAndLost) {
    {
        QWidget window;
        window.setWindowTitle("another");
        window.resize(300, 200);
        ExpectConsumedIn(window);
    }
    ExpectHeardAgain();
}

}  // namespace
}  // namespace quellbrook::testing
