#include "tests/desktop/scanner/ScannerTest.h"
#include "ui/explorer/EvidenceExplorer.h"
#include "ui/explorer/LocationTree.h"

#include <QShortcut>

#include <gmock/gmock.h>

#include <random>

namespace quellbrook::testing {
namespace {

// Barcodes of every type with numbers that do not exist in the department.
class RandomBarcodes {
public:
    struct Barcode {
        QString text;
        std::pair<int32_t, std::string> scan;
    };

    Barcode Next() {
        static constexpr std::string_view letters = "LlPpVvXx";
        const char letter = letters[m_random() % letters.size()];
        std::string number = std::to_string(100 + m_random() % 2'000'000'000);
        if (m_random() % 2 == 0) number.insert(0, 10 - number.size(), '0');
        const auto type = std::string_view("lpv").find(static_cast<char>(std::tolower(letter)));
        const int32_t expected = type == std::string_view::npos ? BarcodeType::Unknown : static_cast<int32_t>(type) + 1;
        return {QLatin1Char(letter) + QString::fromStdString(number), {expected, number}};
    }

private:
    std::mt19937 m_random{20261120};
};

// Scans without internal pauses, at intervals that a person needs between two items.
class ScanSeriesTest : public ScannerTest {
protected:
    ScanSeriesTest() { ShowExplorer(); }

    void ScanSeries() {
        RandomBarcodes barcodes;
        Scans expected;
        size_t told = 0;  // the explorer reports each as unknown
        for (int scan = 0; scan < CountOf(1000); ++scan) {
            const auto barcode = barcodes.Next();
            expected.push_back(barcode.scan);
            told += barcode.scan.first != BarcodeType::Unknown;
            m_keyboard.Scan(barcode.text);
            ASSERT_TRUE(Until([&] { return m_scans.size() >= expected.size(); })) << barcode.text.toStdString();
            ASSERT_EQ(m_scans.back(), expected.back());
            Pause(gap);
        }
        AwaitKeys();
        EXPECT_EQ(m_scans, expected);
        EXPECT_EQ(m_screen.TakeMessages().size(), told);
        ExpectNothingTyped();
    }
};

TEST_F(ScanSeriesTest, WithATextBoxFocusedEachIsRaisedOnceAndItsSelectedTextStays) {
    ScanSeries();
    EXPECT_EQ(m_edit->selectedText(), m_edit->text());
    TypeByHand("by hand");
    EXPECT_EQ(m_edit->text(), "by hand");
}

TEST_F(ScanSeriesTest, WithShortcutsOnItsKeysEachIsRaisedOnceAndNoShortcutFires) {
    int firedB = 0, firedC = 0;
    QShortcut shortcutB(QKeySequence("Ctrl+B"), &m_window, [&firedB] { ++firedB; });
    QShortcut shortcutC(QKeySequence("Ctrl+C"), &m_window, [&firedC] { ++firedC; });
    m_explorer->LocationPane()->setFocus();
    ASSERT_FALSE(m_edit->hasFocus());
    const StorageLocationRef selected = m_explorer->SelectedLocation();
    ScanSeries();
    EXPECT_EQ(firedB, 0);
    EXPECT_EQ(firedC, 0);
    EXPECT_EQ(m_explorer->SelectedLocation(), selected);
    Pause(gap);
    m_keyboard.Press("ctrl+c");
    AwaitKeys();
    EXPECT_EQ(firedC, 1) << "by hand, outside a scan";
    m_edit->setFocus();
    TypeByHand("x");
    EXPECT_TRUE(m_edit->text().endsWith("x"));
}

TEST_F(ScanSeriesTest, WithAMenuOpenEachIsRaisedOnceAndTheFirstClosesTheMenu) {
    int triggered = 0;
    for (const char* entry : {"&Label", "&Print", "&View", "&0 none", "&1 one"})
        m_menu->addAction(entry, &m_window, [&triggered] { ++triggered; });
    m_keyboard.Press("alt+f");
    ASSERT_TRUE(Until([this] { return m_menu->isVisible(); }));
    ScanSeries();
    EXPECT_FALSE(m_menu->isVisible());
    EXPECT_EQ(triggered, 0);
    m_keyboard.Press("alt+f");
    ASSERT_TRUE(Until([this] { return m_menu->isVisible(); }));
    m_keyboard.Type("p");
    EXPECT_TRUE(Until([this] { return !m_menu->isVisible(); })) << "by hand, after the rest";
    EXPECT_EQ(triggered, 1);
    m_edit->setFocus();
    TypeByHand("x");
    EXPECT_TRUE(m_edit->text().endsWith("x"));
}

}  // namespace
}  // namespace quellbrook::testing
