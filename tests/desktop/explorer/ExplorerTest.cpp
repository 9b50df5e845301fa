#include "tests/desktop/explorer/ExplorerTest.h"

#include "host/DatabaseSession.h"
#include "tests/demo/sample/SampleFile.h"
#include "tests/support/ui/QtTestMain.h"

#include <QApplication>
#include <QDir>
#include <QMenu>

namespace quellbrook::testing {

using namespace tour;

namespace {

constexpr const char* moreLocations = R"sql(
INSERT INTO StorageLocation (Name, Type, Path, ActiveFlag, DateEntered, LastUpdated)
    VALUES ('Long Shelf', 2, '/0/', 1, '2026-01-05T08:00:00.000', '2026-01-05T08:00:00.000'),
           ('Empty Shelf', 2, '/0/', 1, '2026-01-05T08:00:00.000', '2026-01-05T08:00:00.000'))sql";

constexpr const char* longShelf = R"sql(
WITH RECURSIVE Number (n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM Number WHERE n < 400)
INSERT INTO Property (PropertyNo, PropertyID, Description, RecordTypeInd, CurrTrackSeq)
    SELECT 1000 + n, PRINTF('LONG-%03d', n), 'Envelope ' || n, 1, 1 FROM Number)sql";

constexpr const char* longShelfTracking = R"sql(
INSERT INTO PropertyTracking (PropertyNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo, StorageLocNo,
        LastUpdated)
    SELECT PropertyNo, 1, 101, 108, '2026-01-06T09:00:00.000', 2,
        (SELECT IdNo FROM StorageLocation WHERE Name = 'Long Shelf'), '2026-01-06T09:00:00.000'
    FROM Property WHERE PropertyID LIKE 'LONG-%')sql";

class LongDepartment {
public:
    LongDepartment() {
        SQLite::Database database(m_sample.Path(), SQLite::OPEN_READWRITE);
        database.exec("PRAGMA foreign_keys = ON");
        SQLite::Transaction transaction(database);
        for (const char* statement : {moreLocations, longShelf, longShelfTracking}) database.exec(statement);
        transaction.commit();
    }

    // A new copy in the same folder, which also has the department's files.
    Department Copy(const std::string& name) const {
        const std::string path = m_sample.Folder() + "/" + name + ".sqlite";
        std::filesystem::copy_file(m_sample.Path(), path);
        Options options;
        options.databasePath = path;
        return OpenDepartment(options, "", [](int) {});
    }

private:
    SampleFile m_sample;
};

Department NewCopy(const std::string& name) {
    static const LongDepartment department;
    return department.Copy(name);
}

std::string TestName() {
    const ::testing::TestInfo& test = *::testing::UnitTest::GetInstance()->current_test_info();
    return std::string(test.test_suite_name()) + "." + test.name();
}

std::unique_ptr<MainWindow> OpenWindow(const Department& department) {
    UseDepartment(department);
    auto window = std::make_unique<MainWindow>(QString::fromStdString(DatabaseSession().AgencyName()), std::nullopt,
                                               AccountsToShow());
    window->showMaximized();
    return window;
}

QString PicturesOf(const std::string& test) {
    return QDir(QCoreApplication::applicationDirPath()).filePath("explorer/" + QString::fromStdString(test));
}

}  // namespace

RunningProgram::RunningProgram()
    : m_department(NewCopy(TestName())),
      m_window(OpenWindow(m_department)),
      m_program(*m_window, PicturesOf(TestName()), m_department.engine, QString()) {
    m_environment->errorLog = &TestErrorLog();
}

RunningProgram::~RunningProgram() = default;

ExplorerTest::ExplorerTest() : Scenario(m_program) {
    LogIn();
    m_player.Step("moves");
}

void ExplorerTest::TearDown() {
    m_player.Start();
    QApplication::exec();
    EXPECT_TRUE(m_player.Passed()) << "See the message above, and the pictures in "
                                   << PicturesOf(TestName()).toStdString();
}

void ExplorerTest::ExpectSeen(const QString& expected) { m_player.Expect("The explorer", Seen, expected); }
void ExplorerTest::ExpectMenu(const QString& expected) { m_player.Expect("The menu", SeenMenu, expected); }
void ExplorerTest::ExpectDialog(const QString& expected) { m_player.Expect("The dialog", SeenDialog, expected); }

void ExplorerTest::ClickRow(const QString& name, Modifier held, Button button) {
    m_player.Click(
        "the row " + name, [name] { return SpotOfRow(name); }, button, held);
}

void ExplorerTest::DoubleClickRow(const QString& name) {
    m_player.DoubleClick("the row " + name, [name] { return SpotOfRow(name); });
}

void ExplorerTest::ClickNode(const QString& name, Button button) {
    m_player.Click(
        "the location " + name, [name] { return NodeSpot(name); }, button);
}

void ExplorerTest::CloseMenu() {
    m_player.Press("Escape");
    m_player.Wait("The menu is closed", [] { return OpenMenu() == nullptr; });
}

void ExplorerTest::SearchFor(const QString& text) {
    Click("the search box", "explorer/search");
    m_player.Press("ctrl+a");
    m_player.Type(text);
    m_player.Press("Return");
}

void ExplorerTest::ExpectItem(const QString& identifier) {
    ExpectText("The item opened", "itemView/lblID", identifier);
    m_player.Wait("The explorer is gone", [] { return Find(QStringLiteral("explorer")) == nullptr; });
}

void ExplorerTest::CloseItem() {
    Click("the cross", "itemView/lnkClose");
    m_player.Wait("The explorer is back", [] { return Find(QStringLiteral("explorer")) != nullptr; });
}

}  // namespace quellbrook::testing
