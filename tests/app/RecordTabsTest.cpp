#include "app/records/RecordPage.h"
#include "base/Environment.h"
#include "tests/app/MainWindowTest.h"
#include "tests/support/ui/QtTestMain.h"

#include <QDialog>
#include <QLabel>
#include <QRegularExpression>
#include <QTabBar>
#include <QToolButton>

#include <algorithm>

namespace quellbrook::testing {

namespace {

constexpr RecordAddress first{RecordKind::Property, 1}, second{RecordKind::Property, 2},
    car{RecordKind::Vehicle, FirstVehicleNo};

class RecordTabsTest : public MainWindowTest {
protected:
    void LogInAsCustodian() { LogIn(SampleAccounts()[0]); }

    QTabBar& Tabs() const { return *Find<QTabBar>(*m_window, "hostTabs"); }
    std::vector<std::string> Captions() const {
        std::vector<std::string> captions;
        for (int i = 0; i < Tabs().count(); ++i) captions.push_back(Tabs().tabText(i).toStdString());
        return captions;
    }
    bool IsScrolling() const {
        const auto buttons = Tabs().findChildren<QToolButton*>(QRegularExpression("Scroll(Left|Right)Button"));
        EXPECT_EQ(buttons.size(), 2);
        return std::any_of(buttons.begin(), buttons.end(), [](const QToolButton* each) { return each->isVisible(); });
    }
    QWidget* Cross(int tab) const { return Tabs().tabButton(tab, QTabBar::RightSide); }
    RecordPage* ShownPage() const {
        for (RecordPage* page : m_window->findChildren<RecordPage*>())
            if (page->isVisible()) return page;
        return nullptr;
    }
    std::string CaptionOf(const RecordAddress& address) {
        const bool isProperty = address.kind == RecordKind::Property;
        const std::string number = std::to_string(address.number);
        return (isProperty ? "Property " : "Vehicle ") +
               m_database
                   ->execAndGet(isProperty ? "SELECT PropertyID FROM Property WHERE PropertyNo = " + number
                                           : "SELECT RegNumber || ' (' || RegStateCode || ')' FROM Vehicle "
                                             "WHERE VehicleNo = " +
                                                 number)
                   .getString();
    }
};

using Captured = std::vector<std::string>;

}  // namespace

TEST_F(RecordTabsTest, TheFocusIsOnTheTabsPageAlsoAfterTheRecordHasChanged) {
    LogInAsCustodian();
    ASSERT_NE(Evidence(), nullptr);
    m_window->OpenRecord(first);
    for (int visit = 0; visit < 3; ++visit) {
        m_database->exec("UPDATE Property SET Description = 'Visit " + std::to_string(visit) +
                         "' WHERE PropertyNo = 1");
        Tabs().setCurrentIndex(0);
        ServeEvents();
        EXPECT_TRUE(Evidence()->isAncestorOf(QApplication::focusWidget())) << visit;
        Tabs().setCurrentIndex(1);
        ServeEvents();
        EXPECT_TRUE(ShownPage()->isAncestorOf(QApplication::focusWidget())) << visit;
    }
}

TEST_F(RecordTabsTest, ARecordOpensInItsOwnTab) {
    LogInAsCustodian();
    EXPECT_EQ(Captions(), Captured{"Evidence"});
    m_window->OpenRecord(first);
    EXPECT_EQ(Captions(), (Captured{"Evidence", CaptionOf(first)}));
    ASSERT_NE(ShownPage(), nullptr);
    EXPECT_EQ(ShownPage()->Address(), first);
    EXPECT_FALSE(Evidence()->isVisible());
    m_window->OpenRecord(car);
    EXPECT_EQ(Captions(), (Captured{"Evidence", CaptionOf(first), CaptionOf(car)}));
    EXPECT_EQ(ShownPage()->Address(), car);
}

TEST_F(RecordTabsTest, OpeningAnOpenRecordReloadsIt) {
    LogInAsCustodian();
    m_window->OpenRecord(first);
    m_window->OpenRecord(second);
    m_database->exec("UPDATE Property SET PropertyID = 'A & B' WHERE PropertyNo = 1");
    m_window->OpenRecord(first);
    EXPECT_EQ(Captions(), (Captured{"Evidence", "Property A && B", CaptionOf(second)}));
    EXPECT_EQ(ShownPage()->Address(), first);
    m_database->exec("UPDATE Property SET PropertyID = 'C' WHERE PropertyNo = 1");
    m_window->OpenRecord(first);
    EXPECT_EQ(Captions()[1], "Property C");
}

TEST_F(RecordTabsTest, TheEvidenceStaysInSightBesideTwoOtherTabs) {
    LogInAsCustodian();
    m_window->resize(800, 490);
    m_window->OpenRecord(first);
    Click(Find(*m_window, "scannerPageButton"));
    ServeEvents();
    ASSERT_EQ(Tabs().count(), 3);
    for (int tab = 0; tab < 3; ++tab) EXPECT_TRUE(Tabs().rect().contains(Tabs().tabRect(tab))) << tab;
    EXPECT_FALSE(IsScrolling());
    const QFontMetrics font = Tabs().fontMetrics();
    EXPECT_GT(Tabs().tabRect(0).width(), font.horizontalAdvance("Evidence"));
    EXPECT_EQ(Tabs().tabToolTip(1).toStdString(), "<span>" + CaptionOf(first) + "</span>");
}

TEST_F(RecordTabsTest, TheCurrentTabOfManyIsInSightAndButtonsScroll) {
    LogInAsCustodian();
    m_window->resize(800, 490);
    for (int32_t number = 1; number <= 8; ++number) m_window->OpenRecord({RecordKind::Property, number});
    ServeEvents();
    EXPECT_TRUE(IsScrolling());
    for (const int tab : {8, 3, 0, 5}) {
        Tabs().setCurrentIndex(tab);
        EXPECT_TRUE(Tabs().rect().contains(Tabs().tabRect(tab))) << tab;
    }
    m_window->resize(1280, 800);
    ServeEvents();
    m_window->resize(800, 490);
    ServeEvents();
    EXPECT_TRUE(Tabs().rect().contains(Tabs().tabRect(5)));
}

TEST_F(RecordTabsTest, SelectingATabReloadsItsRecord) {
    LogInAsCustodian();
    m_window->OpenRecord(first);
    Tabs().setCurrentIndex(0);
    EXPECT_TRUE(Evidence()->isVisible());
    m_database->exec("UPDATE Property SET PropertyID = 'later' WHERE PropertyNo = 1");
    Tabs().setCurrentIndex(1);
    EXPECT_EQ(Captions()[1], "Property later");
    EXPECT_EQ(ShownPage()->Title(), "Property later");
}

TEST_F(RecordTabsTest, TheCrossClosesATab) {
    LogInAsCustodian();
    m_window->OpenRecord(first);
    m_window->OpenRecord(second);
    EXPECT_EQ(Cross(0), nullptr);
    EXPECT_EQ(Cross(1)->accessibleName().toStdString(), "Close " + CaptionOf(first));
    Click(Cross(1));
    EXPECT_EQ(Captions(), (Captured{"Evidence", CaptionOf(second)}));
    EXPECT_EQ(ShownPage()->Address(), second);
    Click(Cross(1));
    EXPECT_EQ(Captions(), Captured{"Evidence"});
    EXPECT_TRUE(Evidence()->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(m_window->findChildren<RecordPage*>().isEmpty());
}

TEST_F(RecordTabsTest, TheCloseKeyClosesARecordButNotTheEvidence) {
    LogInAsCustodian();
    m_window->OpenRecord(first);
    Press(QApplication::focusWidget(), Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(Captions(), Captured{"Evidence"});
    Press(Find(*m_window, "logOut"), Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(Captions(), Captured{"Evidence"});
    EXPECT_TRUE(Evidence()->isVisible());
}

TEST_F(RecordTabsTest, LoggingOutClosesEveryRecord) {
    LogInAsCustodian();
    m_window->OpenRecord(first);
    Click(Find(*m_window, "logOut"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(m_window->findChildren<RecordPage*>().isEmpty());
    LogIn(SampleAccounts()[1]);
    EXPECT_EQ(Captions(), Captured{"Evidence"});
    EXPECT_TRUE(Evidence()->isVisible());
}

TEST_F(RecordTabsTest, AnAddressWaitsForTheLogin) {
    m_window->OpenRecord(first);
    m_window->OpenRecord(second);
    m_window->OpenRecord(first);
    EXPECT_EQ(ShownPage(), nullptr);
    TestErrorLog().Announce("DatabaseSession.Login");
    LogIn("custodian", "wrong");
    EXPECT_EQ(ShownPage(), nullptr);
    LogInAsCustodian();
    EXPECT_EQ(Captions(), (Captured{"Evidence", CaptionOf(first), CaptionOf(second)}));
    Click(Find(*m_window, "logOut"));
    LogInAsCustodian();
    EXPECT_EQ(Captions(), Captured{"Evidence"}) << "it is shown once";
}

TEST_F(RecordTabsTest, AnAddressWaitsWhileTheGateRefusesAUser) {
    m_window->OpenRecord(first);
    m_database->exec("DELETE FROM AccountRight WHERE Username = 'clerk'");
    LogIn(SampleAccounts()[1]);
    EXPECT_EQ(Evidence(), nullptr);
    LogInAsCustodian();
    EXPECT_EQ(Captions(), (Captured{"Evidence", CaptionOf(first)}));
}

TEST_F(RecordTabsTest, AnAddressWaitsWhileADialogIsOpen) {
    LogInAsCustodian();
    QDialog dialog(m_window.get());
    dialog.setModal(true);
    dialog.show();
    m_window->OpenRecord(first);
    EXPECT_EQ(Captions(), Captured{"Evidence"});
    EXPECT_TRUE(Evidence()->isVisible());
    dialog.hide();
    ServeEvents();
    EXPECT_EQ(Captions(), (Captured{"Evidence", CaptionOf(first)}));
}

TEST_F(RecordTabsTest, ARecordOpenedByTheComponentIsShownAfterItsHandler) {
    LogInAsCustodian();
    RunCommand("cmd /c start tessarine://miproperty/open/2");
    EXPECT_TRUE(Evidence()->isVisible());
    ServeEvents();
    EXPECT_EQ(Captions(), (Captured{"Evidence", CaptionOf(second)}));
}

TEST_F(RecordTabsTest, AnUnknownRecordOpensATabWithASentence) {
    LogInAsCustodian();
    m_window->OpenRecord({RecordKind::Property, 4711});
    EXPECT_EQ(Captions(), (Captured{"Evidence", "Property 4711"}));
    EXPECT_EQ(Find<QLabel>(*ShownPage(), "refusal")->text(), "There is no property with the number 4711.");
}

TEST_F(RecordTabsTest, TheComponentSurvivesSwitchingToARecord) {
    LogInAsCustodian();
    const QPointer<QWidget> evidence = Evidence();
    m_window->OpenRecord(first);
    Tabs().setCurrentIndex(0);
    EXPECT_EQ(Evidence(), evidence.data()) << "it is the same component, not a new one";
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(RecordTabsTest, BringingTheWindowToTheFrontRestoresIt) {
    m_window->showMinimized();
    m_window->BringToFront();
    EXPECT_FALSE(m_window->isMinimized());
    EXPECT_TRUE(m_window->isVisible());
    EXPECT_TRUE(m_window->isActiveWindow());
}

}  // namespace quellbrook::testing
