#include "app/scanner/LabelPreview.h"
#include "app/scanner/PrinterChoice.h"
#include "app/scanner/ScanField.h"
#include "app/scanner/ScannerPage.h"
#include "base/Error.h"
#include "component/Labels.h"
#include "host/DatabaseSession.h"
#include "tests/app/SampleCopyTest.h"
#include "tests/app/ScratchWorkstation.h"
#include "tests/support/ManualTimer.h"
#include "tests/support/ui/QtTestMain.h"
#include "tests/support/ui/ScaledProcess.h"
#include "tests/support/ui/Scanner.h"
#include "tests/support/ui/Widgets.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quellbrook::testing {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

// The page in its own window.
class ScannerPageTest : public SampleCopyTest {
protected:
    void SetUp() override {
        SampleCopyTest::SetUp();
        HostServices::Current().SetSession(std::make_shared<DatabaseSession>());
    }

    void TearDown() override {
        m_page.reset();
        SampleCopyTest::TearDown();
    }

    QString File() const { return QString::fromStdString(m_workstation.ChoiceFile()); }

    ScannerPage& Open() {
        m_page = std::make_unique<ScannerPage>(File());
        m_page->resize(1280, 760);
        m_page->Load();
        ShowActive(*m_page);
        m_page->setFocus();
        return *m_page;
    }

    ScanField& Field() const { return *Find<ScanField>(*m_page, "scanField"); }
    void EndBurst() { EXPECT_EQ(m_timers.Tick(ScanField::BurstPause), 1); }
    std::string Text(const char* name) const { return Find<QLabel>(*m_page, name)->text().toStdString(); }
    QComboBox& Printers() const { return *Find<QComboBox>(*m_page, "printers"); }
    std::vector<std::string> PrinterTexts() const {
        std::vector<std::string> texts;
        for (int index = 0; index < Printers().count(); ++index)
            texts.push_back(Printers().itemText(index).toStdString());
        return texts;
    }
    QLineEdit& Folder() const { return *Find<QLineEdit>(*m_page, "folder"); }
    void PrintTestLabel() { Click(Find(*m_page, "printTestLabel")); }

    static void Choose(QComboBox& box, Qt::Key key) {
        box.setFocus();
        Press(&box, key);
    }

    EnvironmentScope m_environment;
    ManualTimers m_timers{m_environment};
    ScratchWorkstation m_workstation;
    std::unique_ptr<ScannerPage> m_page;
};

}  // namespace

TEST_F(ScannerPageTest, AScanOfTheTestLabelIsReadAndUnderstood) {
    Open();
    EXPECT_FALSE(Find(*m_page, "reading")->isVisible());
    TypeAsScanner(TestBarcodeText());
    EXPECT_FALSE(Find(*m_page, "reading")->isVisible()) << "more keys may come";
    EndBurst();
    EXPECT_TRUE(Find(*m_page, "reading")->isVisible());
    EXPECT_EQ(Text("keys"), "<STX>P0000000000<ETX>");
    EXPECT_EQ(Text("meaning"), "Property, number 0");
    EXPECT_EQ(Text("sentences"), "This scanner is set up correctly.");
    EXPECT_THAT(Text("verdict"), HasSubstr("This scanner works"));
}

TEST_F(ScannerPageTest, CaptionsOfAReadingDoNotTouchTheirValues) {
    Open();
    TypeAsScanner(TestBarcodeText());
    EndBurst();
    for (const int width : {1280, 800}) {
        m_page->resize(width, 490);
        ServeEvents();
        const auto* value = Find<QLabel>(*m_page, "keys");
        const QLabel* caption = nullptr;
        for (const QLabel* label : m_page->findChildren<QLabel*>())
            if (label->text() == "Characters received:") caption = label;
        ASSERT_NE(caption, nullptr);
        const int captionEnd = caption->x() + caption->fontMetrics().horizontalAdvance(caption->text());
        EXPECT_GE(value->x() - captionEnd, 8) << width;
        EXPECT_LT(caption->height(), 2 * caption->fontMetrics().height()) << width;
    }
}

TEST_F(ScannerPageTest, EachReadingReplacesThePreviousOne) {
    Open();
    TypeAsScanner("P0000004711\r");
    EndBurst();
    EXPECT_EQ(Text("keys"), "P0000004711<Enter>");
    EXPECT_EQ(Text("meaning"), "Nothing");
    EXPECT_THAT(Text("sentences"), HasSubstr("STX is missing"));
    EXPECT_THAT(Text("sentences"), HasSubstr("\n\n<Enter> came after"));
    Scan("V0000000012");
    EndBurst();
    EXPECT_EQ(Text("keys"), "<STX>V0000000012<ETX>");
    EXPECT_EQ(Text("meaning"), "Vehicle, number 12");
}

TEST_F(ScannerPageTest, KeysWithPausesBetweenLookLikeTyping) {
    Open();
    for (const Qt::Key key : {Qt::Key_P, Qt::Key_4}) {
        Press(&Field(), key);
        EndBurst();
        EXPECT_THAT(Text("sentences"), HasSubstr("looks like typing"));
    }
    EXPECT_EQ(Text("keys"), "4");
}

TEST_F(ScannerPageTest, EachKeyRestartsThePause) {
    Open();
    Press(&Field(), Qt::Key_P);
    ManualTimer* pause = m_timers.Running().at(0);
    EXPECT_TRUE(pause->IsSingleShot());
    const int starts = pause->Starts();
    Press(&Field(), Qt::Key_4);
    EXPECT_EQ(pause->Starts(), starts + 1);
    EndBurst();
    EXPECT_FALSE(pause->IsRunning());
}

TEST_F(ScannerPageTest, AScanTriggersNoShortcut) {
    Open();
    int fired = 0;
    for (const char* keys : {"Ctrl+B", "Ctrl+C", "P", "0", "F2", "Return"}) {
        auto* shortcut = new QShortcut(QKeySequence(QString::fromLatin1(keys)), m_page.get());
        QObject::connect(shortcut, &QShortcut::activated, m_page.get(), [&] { ++fired; });
        QObject::connect(shortcut, &QShortcut::activatedAmbiguously, m_page.get(), [&] { ++fired; });
    }
    Scan("P0000000012\r");
    Press(&Field(), Qt::Key_F2);
    EndBurst();
    EXPECT_EQ(fired, 0);
    EXPECT_EQ(Text("keys"), "<STX>P0000000012<Enter><ETX><F2>");
    Find(*m_page, "printTestLabel")->setFocus();
    Press(QApplication::focusWidget(), Qt::Key_F2);
    EXPECT_EQ(fired, 1) << "the shortcut works elsewhere";
}

TEST_F(ScannerPageTest, AKeyWithoutACharacterHasAName) {
    Open();
    for (const int key : {int(Qt::Key_F5), int(Qt::Key_Insert), int(Qt::Key_Dead_Acute), int(Qt::Key_unknown)}) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&Field(), &press);
    }
    EndBurst();
    EXPECT_THAT(Text("keys"), ::testing::MatchesRegex("<F5><Ins><[^<>]+><[^<>]+>"));
}

TEST_F(ScannerPageTest, ShiftAndCtrlAloneAreNotAReading) {
    Open();
    for (const Qt::Key key : {Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_CapsLock}) Press(&Field(), key);
    EXPECT_TRUE(m_timers.Running().empty());
}

TEST_F(ScannerPageTest, TabAndEscAloneLeaveTheField) {
    Open();
    Press(&Field(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &Printers());
    Press(&Printers(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget(), &Field());
    Press(&Field(), Qt::Key_Escape);
    EXPECT_EQ(QApplication::focusWidget(), &Printers());
    Field().setFocus();
    Press(&Field(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_FALSE(Field().hasFocus());
    EXPECT_TRUE(m_timers.Running().empty()) << "they were no reading";
}

TEST_F(ScannerPageTest, TabAndEscWithinAReadingArePartOfIt) {
    Open();
    TypeAsScanner("P0000004711");
    Press(&Field(), Qt::Key_Tab);
    Press(&Field(), Qt::Key_Escape);
    EXPECT_TRUE(Field().hasFocus());
    EndBurst();
    EXPECT_EQ(Text("keys"), "P0000004711<Tab><Esc>");
    Press(&Field(), Qt::Key_Tab);
    EXPECT_FALSE(Field().hasFocus());
}

TEST_F(ScannerPageTest, AHeldKeyHasALimitedReading) {
    Open();
    for (size_t i = 0; i < 2 * ScanField::LongestBurst; ++i) Press(&Field(), Qt::Key_7);
    EndBurst();
    EXPECT_EQ(Text("keys"), std::string(ScanField::LongestBurst, '7'));
    EXPECT_EQ(m_page->width(), 1280);
}

TEST_F(ScannerPageTest, TheTestSymbolIsBlackOnWhiteInBothPalettes) {
    Open();
    QWidget* symbol = Find(*m_page, "testSymbol");
    for (const bool dark : {false, true}) {
        if (dark) m_page->setPalette(QPalette(Qt::black));
        const QImage picture = Grab(*symbol);
        const QRect bars(12, 12, symbol->width() - 24, 64);
        int changes = 0;
        for (int x = bars.left(); x < bars.right(); ++x) {
            const QColor here = PixelAt(picture, {x, bars.center().y()});
            EXPECT_TRUE(here == Qt::black || here == Qt::white) << here.name().toStdString();
            changes += here != PixelAt(picture, {x + 1, bars.center().y()});
        }
        EXPECT_GT(changes, 60);
        EXPECT_EQ(PixelAt(picture, {4, 4}), QColor(Qt::white));
        EXPECT_EQ(PixelAt(picture, {bars.left() + 10, bars.center().y()}), QColor(Qt::white)) << "the quiet zone";
    }
    EXPECT_EQ(symbol->accessibleName(), "Test label on the screen, P0000000000");
}

TEST(ScannerPageAtScaleTwo, HasTheSameSymbol) {
    const char* const test = "ScannerPageTest.TheTestSymbolIsBlackOnWhiteInBothPalettes";
    ExpectTheSameAtScaleTwo(QString::fromLatin1(test), test);
}

TEST_F(ScannerPageTest, TheSystemsPrintersAndTheFolderAreOffered) {
    m_workstation.SetPrinters({"Zeta", "Eta"});
    Open();
    EXPECT_THAT(PrinterTexts(), ElementsAre("Zeta", "Eta", "PDF files in a folder"));
    EXPECT_EQ(Printers().currentText(), "PDF files in a folder");
    EXPECT_EQ(Folder().text().toStdString(), m_workstation.LabelFolder());
    EXPECT_TRUE(Folder().isVisible());
    EXPECT_FALSE(Find(*m_page, "printerGone")->isVisible());
    EXPECT_EQ(LoadPrinterChoice(File()), std::nullopt) << "looking is not choosing";
}

TEST_F(ScannerPageTest, TheOnlyPrinterIsPreselected) {
    m_workstation.SetPrinters({"Zeta"});
    Open();
    EXPECT_EQ(Printers().currentText(), "Zeta");
    EXPECT_FALSE(Folder().isVisible());
    PrintTestLabel();
    EXPECT_EQ(Text("outcome"), "Sent 1 label to the printer 'Zeta'.");
    EXPECT_THAT(m_workstation.Content("jobs"), HasSubstr("-d Zeta "));
}

TEST_F(ScannerPageTest, AChoiceByKeyboardAppliesAtOnceAndIsSaved) {
    m_workstation.SetPrinters({"Zeta", "Eta"});
    Open();
    Choose(Printers(), Qt::Key_Up);
    EXPECT_EQ(LoadPrinterChoice(File())->printer, "Eta");
    EXPECT_FALSE(Folder().isVisible());
    Choose(*Find<QComboBox>(*m_page, "resolutions"), Qt::Key_Down);
    EXPECT_EQ(LoadPrinterChoice(File())->dotsPerInch, 300);
    MakeTestLabel().Print();
    EXPECT_THAT(m_workstation.Content("jobs"), HasSubstr("-d Eta "));
    Open();
    EXPECT_EQ(Printers().currentText(), "Eta");
    EXPECT_EQ(Find<QComboBox>(*m_page, "resolutions")->currentText(), "300 dots per inch");
}

TEST_F(ScannerPageTest, TheWheelDoesNotChangeTheChoice) {
    m_workstation.SetPrinters({"Zeta", "Eta"});
    Open();
    Printers().setFocus();
    Turn(&Printers(), 120);
    EXPECT_EQ(Printers().currentText(), "PDF files in a folder");
}

TEST_F(ScannerPageTest, ATypedFolderIsUsed) {
    Open();
    const std::string folder = m_workstation.In("home/My Labels");
    Folder().setFocus();
    Folder().selectAll();
    Type(&Folder(), "My Labels");
    Press(&Folder(), Qt::Key_Return);
    EXPECT_EQ(Folder().text().toStdString(), folder);
    EXPECT_EQ(LoadPrinterChoice(File())->folder.toStdString(), folder);
    PrintTestLabel();
    EXPECT_EQ(Text("outcome"), "Sent 1 label to the folder '" + folder + "'.");
    EXPECT_TRUE(std::filesystem::exists(folder + "/P0000000000.pdf"));
}

TEST_F(ScannerPageTest, AnEmptyFolderChangesNothing) {
    Open();
    Folder().setFocus();
    Folder().clear();
    Press(&Folder(), Qt::Key_Return);
    EXPECT_EQ(Folder().text().toStdString(), m_workstation.LabelFolder());
    EXPECT_EQ(LoadPrinterChoice(File()), std::nullopt);
}

TEST_F(ScannerPageTest, AMissingSavedPrinterStaysSelectedAndIsReported) {
    SavePrinterChoice({"Theta", "/labels", 600}, File());
    m_workstation.SetPrinters({"Zeta"});
    Open();
    EXPECT_THAT(PrinterTexts(), ElementsAre("Zeta", "Theta (not found)", "PDF files in a folder"));
    EXPECT_EQ(Printers().currentText(), "Theta (not found)");
    EXPECT_TRUE(Find(*m_page, "printerGone")->isVisible());
    EXPECT_THAT(Text("printerGone"), HasSubstr("The printer 'Theta' was not found"));
    EXPECT_EQ(LoadPrinterChoice(File())->printer, "Theta");
    Choose(Printers(), Qt::Key_Up);
    EXPECT_EQ(LoadPrinterChoice(File())->printer, "Zeta");
    EXPECT_FALSE(Find(*m_page, "printerGone")->isVisible());
}

TEST_F(ScannerPageTest, APrinterFailureIsShownInItsOwnWords) {
    m_workstation.SetPrinters({"Zeta"});
    m_workstation.SetPrintCommand("cat > " + m_workstation.In("job") + "\necho 'lp: The tape is out.' >&2\nexit 1");
    Open();
    PrintTestLabel();
    EXPECT_EQ(Text("outcome"), "The tape is out.");
    Choose(Printers(), Qt::Key_Down);
    EXPECT_EQ(Text("outcome"), "") << "it was said of another printer";
}

TEST_F(ScannerPageTest, AChoiceThatCannotBeSavedIsReportedAndApplies) {
    m_workstation.SetPrinters({"Zeta", "Eta"});
    Open();
    std::filesystem::remove_all(m_workstation.In("config"));
    std::ofstream(m_workstation.In("config")) << "a file";
    Choose(Printers(), Qt::Key_Up);
    EXPECT_THAT(Text("outcome"), HasSubstr("The choice can't be saved"));
    MakeTestLabel().Print();
    EXPECT_THAT(m_workstation.Content("jobs"), HasSubstr("-d Eta "));
}

TEST_F(ScannerPageTest, ThePreviewFitsAtEveryResolution) {
    Open();
    auto* preview = Find<LabelPreview>(*m_page, "preview");
    const QRect first = preview->PictureRect();
    EXPECT_NEAR(first.width(), 2 * first.height(), 2) << "the template is twice as wide as high";
    EXPECT_GT(first.width(), 400);
    Choose(*Find<QComboBox>(*m_page, "resolutions"), Qt::Key_Down);
    EXPECT_TRUE(preview->rect().contains(preview->PictureRect()));
    EXPECT_TRUE(HasColor(Grab(*preview), preview->PictureRect(), Qt::white));
    m_page->resize(760, 500);
    ServeEvents();
    EXPECT_TRUE(preview->rect().contains(preview->PictureRect()));
}

TEST_F(ScannerPageTest, AnUnreadableTemplateIsReportedInThePreview) {
    m_workstation.SetTemplate("");
    Open();
    auto* preview = Find<LabelPreview>(*m_page, "preview");
    EXPECT_THAT(preview->Sentence().toStdString(), HasSubstr("The test label can't be shown: "));
    EXPECT_THAT(preview->Sentence().toStdString(), HasSubstr("evidence.labl"));
    EXPECT_FALSE(Find(*m_page, "printTestLabel")->isEnabled());
    m_workstation.SetTemplate("<svg");
    m_page->Load();
    EXPECT_THAT(preview->Sentence().toStdString(), HasSubstr("The test label can't be shown: "));
}

TEST_F(ScannerPageTest, EveryFieldIsReachableByKeyboardAndNamed) {
    Open();
    EXPECT_THAT(TabOrder(*m_page), ElementsAre("scanField", "printers", "folder", "resolutions", "printTestLabel"));
    for (const char* name : {"scanField", "printers", "folder", "resolutions"})
        EXPECT_FALSE(Find(*m_page, name)->accessibleName().isEmpty()) << name;
    Find(*m_page, "printTestLabel")->setFocus();
    Press(QApplication::focusWidget(), Qt::Key_Space);
    EXPECT_EQ(Text("outcome"), "Sent 1 label to the folder '" + m_workstation.LabelFolder() + "'.");
}

}  // namespace quellbrook::testing
