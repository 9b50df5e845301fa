#include "ui/printing/LabelPrinters.h"

#include "base/Error.h"
#include "labels/LabelTemplate.h"
#include "tests/support/LabelServices.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/ScratchSystem.h"
#include "tests/support/ui/QtTestMain.h"

#include <QDir>
#include <QFile>

#include <csignal>

#include <sys/stat.h>

#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

class LabelPrintersTest : public ::testing::Test {
protected:
    LabelPrintersTest() {
        m_system.Set("PATH", m_system.In("bin") + ":" + qgetenv("PATH").toStdString());
        LabelTemplate::Fields fields = {{"barcode", "\x02P0000004711\x03"}, {"name", "a"}};
        m_label = LabelTemplate(LabelServices::TemplateOf({"name"}, "barcode")).Fill(fields);
    }

    QString In(const char* name) const { return QString::fromStdString(m_system.In(name)); }
    QByteArray Read(const QString& path) const {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    // A print command that runs these shell lines in the scratch folder.
    void PutCommand(const char* name, const std::string& lines) const {
        m_system.Install(name, "cd '" + m_system.Path() + "'\n" + lines);
    }

    std::string RefusalOf(LabelPrinter& printer) {
        const Error error = RaisedBy([&] { printer.Print(m_label); });
        EXPECT_EQ(error.Number(), ErrorNumber::General);
        return error.Description();
    }

    ScratchSystem m_system;
    FilledLabel m_label;
};

TEST_F(LabelPrintersTest, APdfIsNamedAfterTheBarcode) {
    PdfLabelPrinter(In("labels"), 203).Print(m_label);
    EXPECT_EQ(QDir(In("labels")).entryList(QDir::Files), QStringList{"P0000004711.pdf"});
    EXPECT_TRUE(Read(In("labels/P0000004711.pdf")).startsWith("%PDF-"));
}

TEST_F(LabelPrintersTest, EachNamesItsDestination) {
    EXPECT_EQ(PdfLabelPrinter("/home/a/Labels", 203).Destination(), "to the folder '/home/a/Labels'");
    EXPECT_EQ(SystemLabelPrinter("Front Desk", 203).Destination(), "to the printer 'Front Desk'");
}

TEST_F(LabelPrintersTest, ALabelPrintedAgainReplacesItsPdf) {
    PdfLabelPrinter printer(In(""), 203);
    printer.Print(m_label);
    QFile(In("P0000004711.pdf")).resize(3);
    printer.Print(m_label);
    EXPECT_GT(Read(In("P0000004711.pdf")).size(), 1000);
}

TEST_F(LabelPrintersTest, APdfThatCantBeWrittenIsReported) {
    QFile taken(In("taken"));
    ASSERT_TRUE(taken.open(QIODevice::WriteOnly));
    PdfLabelPrinter printer(In("taken"), 203);
    const std::string refusal = RefusalOf(printer);
    EXPECT_EQ(refusal.rfind("The file '" + In("taken").toStdString() + "/P0000004711.pdf' can't be written: ", 0), 0u)
        << refusal;
}

TEST_F(LabelPrintersTest, AJobHasTheLabelsPageSize) {
    PutCommand("lp", "echo \"$*\" >arguments; cat >job.pdf");
    SystemLabelPrinter("Front Desk", 203).Print(m_label);
    EXPECT_EQ(Read(In("arguments")).trimmed(), "-d Front Desk -t Label -o media=Custom.100x60mm -o print-scaling=none");
    EXPECT_TRUE(Read(In("job.pdf")).startsWith("%PDF-"));
    EXPECT_TRUE(Read(In("job.pdf")).trimmed().endsWith("%%EOF"));
}

TEST_F(LabelPrintersTest, ARejectionHasThePrintersOwnMessage) {
    SystemLabelPrinter printer("gone", 203);
    PutCommand("lp", "cat >/dev/null; echo 'lp: The printer or class does not exist.' >&2; exit 1");
    EXPECT_EQ(RefusalOf(printer), "The printer or class does not exist.");
    PutCommand("lp", "cat >/dev/null; echo 'lp: Error - no default destination available.' >&2; exit 1");
    EXPECT_EQ(RefusalOf(printer), "no default destination available.");
    PutCommand("lp", "cat >/dev/null; echo \"$0: Error - The printer or class does not exist.\" >&2; exit 1");
    EXPECT_EQ(RefusalOf(printer), "The printer or class does not exist.");
    PutCommand("lp", "exec 0<&-; exit 3");
    EXPECT_EQ(RefusalOf(printer), "The printer 'gone' rejected the label.");
}

TEST_F(LabelPrintersTest, APrintCommandThatNeverAnswersIsEndedAndReported) {
    constexpr int limit = 500;  // milliseconds
    ASSERT_EQ(mkfifo(In("never").toLocal8Bit().constData(), 0600), 0);
    PutCommand("lp", "echo $$ >process; read answer <never; echo answered >answered");
    SystemLabelPrinter printer("Front Desk", 203, limit);
    EXPECT_EQ(RefusalOf(printer), "The printer 'Front Desk' did not respond.");
    EXPECT_FALSE(QFile::exists(In("answered")));
    const int process = Read(In("process")).trimmed().toInt();
    EXPECT_TRUE(process == 0 || kill(process, 0) != 0) << "still running";
}

TEST_F(LabelPrintersTest, AMissingPrintSystemIsReported) {
    m_system.Set("PATH", m_system.Path());
    SystemLabelPrinter printer("any", 203);
    EXPECT_EQ(RefusalOf(printer).rfind("The print command 'lp' of this system can't be started: ", 0), 0u);
    EXPECT_TRUE(SystemPrinterNames().isEmpty());
}

TEST_F(LabelPrintersTest, PrintersAreListedByTheirNames) {
    PutCommand("lpstat", "[ \"$*\" = -e ] && printf 'Front_Desk\\nCounter-2\\n'");
    EXPECT_EQ(SystemPrinterNames(), (QStringList{"Front_Desk", "Counter-2"}));
    PutCommand("lpstat", "echo 'lpstat: No destinations added.' >&2; exit 1");
    EXPECT_TRUE(SystemPrinterNames().isEmpty());
}

}  // namespace
}  // namespace quellbrook::testing
