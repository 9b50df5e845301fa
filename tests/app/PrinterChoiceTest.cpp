#include "app/scanner/PrinterChoice.h"
#include "base/Error.h"
#include "component/Labels.h"
#include "host/DatabaseSession.h"
#include "tests/app/SampleCopyTest.h"
#include "tests/app/ScratchWorkstation.h"
#include "tests/support/RaisedBy.h"

#include <QString>

#include <gtest/gtest.h>

namespace quellbrook::testing {

namespace {

class PrinterChoiceTest : public SampleCopyTest {
protected:
    void SetUp() override {
        SampleCopyTest::SetUp();
        HostServices::Current().SetSession(std::make_shared<DatabaseSession>());
    }

    QString File() const { return QString::fromStdString(m_workstation.ChoiceFile()); }
    QString Folder() const { return QString::fromStdString(m_workstation.LabelFolder()); }
    void Write(const std::string& lines) const { std::ofstream(m_workstation.ChoiceFile()) << "[labels]\n" << lines; }
    bool HasLabel(const std::string& folder) const { return std::filesystem::exists(folder + "/P0000000000.pdf"); }

    ScratchWorkstation m_workstation;
};

}  // namespace

TEST_F(PrinterChoiceTest, ASavedChoiceIsLoadedUnchanged) {
    EXPECT_EQ(LoadPrinterChoice(File()), std::nullopt);
    for (const PrinterChoice& choice :
         {PrinterChoice{"Zeta \"4x2\", room 3; #1", Folder(), 300}, PrinterChoice{"", "/a folder/caf\u00E9", 600}}) {
        SavePrinterChoice(choice, File());
        EXPECT_EQ(LoadPrinterChoice(File()), choice);
    }
}

TEST_F(PrinterChoiceTest, TheFileIsInTheUsersConfigurationFolder) {
    EXPECT_EQ(PrinterChoiceFile().toStdString(), m_workstation.In("config/quellbrook-tests/workstation.ini"));
}

TEST_F(PrinterChoiceTest, SavingCreatesTheFolder) {
    const QString file = QString::fromStdString(m_workstation.In("config/new/choice.ini"));
    SavePrinterChoice({"Zeta", Folder(), 203}, file);
    EXPECT_EQ(LoadPrinterChoice(file)->printer, "Zeta");
}

TEST_F(PrinterChoiceTest, AFileThatCannotBeWrittenIsReported) {
    std::ofstream(m_workstation.In("taken")) << "a file";
    const std::string path = m_workstation.In("taken/choice.ini");
    EXPECT_EQ(RaisedBy([&] { SavePrinterChoice({}, QString::fromStdString(path)); }).Description(),
              "The choice can't be saved: the file '" + path + "' can't be written.");
}

TEST_F(PrinterChoiceTest, InvalidValuesAreReplaced) {
    Write("way=printer\nprinter=Zeta\nfolder=relative\ndotsPerInch=77\n");
    EXPECT_EQ(LoadPrinterChoice(File()), (PrinterChoice{"Zeta", Folder(), 203}));
    Write("way=printer\n");
    EXPECT_EQ(LoadPrinterChoice(File()), (PrinterChoice{"", Folder(), 203}));
    Write("way=pigeon\nprinter=Zeta\n");
    EXPECT_EQ(LoadPrinterChoice(File()), std::nullopt);
    std::ofstream(m_workstation.ChoiceFile(), std::ios::binary) << std::string("\0\xFF[[[==\n\x01", 9);
    EXPECT_EQ(LoadPrinterChoice(File()), std::nullopt);
}

TEST_F(PrinterChoiceTest, TheOnlyPrinterIsTheDefault) {
    EXPECT_EQ(DefaultPrinterChoice({"Zeta"}), (PrinterChoice{"Zeta", Folder(), 203}));
    EXPECT_EQ(DefaultPrinterChoice({}), (PrinterChoice{"", Folder(), 203}));
    EXPECT_EQ(DefaultPrinterChoice({"Zeta", "Eta"}), (PrinterChoice{"", Folder(), 203}));
}

TEST_F(PrinterChoiceTest, LabelsArePrintedOnTheChosenPrinter) {
    ApplyPrinterChoice(PrinterChoice{"Zeta", Folder(), 203});
    MakeTestLabel().Print();
    EXPECT_NE(m_workstation.Content("jobs").find("-d Zeta "), std::string::npos) << m_workstation.Content("jobs");
    EXPECT_FALSE(HasLabel(m_workstation.LabelFolder()));
    ApplyPrinterChoice(PrinterChoice{"", Folder(), 203});
    MakeTestLabel().Print();
    EXPECT_TRUE(HasLabel(m_workstation.LabelFolder()));
}

TEST_F(PrinterChoiceTest, TheSavedChoiceAppliesAtTheStart) {
    const std::string folder = m_workstation.In("elsewhere");
    SavePrinterChoice({"", QString::fromStdString(folder), 300}, File());
    ApplyPrinterChoice(File());
    MakeTestLabel().Print();
    EXPECT_TRUE(HasLabel(folder));
    EXPECT_FALSE(m_workstation.HasBeenAsked());
}

TEST_F(PrinterChoiceTest, WithoutAChoiceThePrintersAreQueriedAtTheFirstLabel) {
    m_workstation.SetPrinters({"Zeta"});
    ApplyPrinterChoice(File());
    EXPECT_FALSE(m_workstation.HasBeenAsked());
    MakeTestLabel().Print();
    MakeTestLabel().Print();
    EXPECT_EQ(m_workstation.Content("asked"), "asked\n");
    EXPECT_NE(m_workstation.Content("jobs").find("-d Zeta "), std::string::npos);
    EXPECT_EQ(LoadPrinterChoice(File()), std::nullopt) << "nothing has been chosen";
    EXPECT_EQ(HostServices::Current().Printer().Destination(), "to the printer 'Zeta'");
}

}  // namespace quellbrook::testing
