#include "app/guide/GuideBrowser.h"
#include "app/guide/GuideWindow.h"
#include "tests/app/MainWindowTest.h"
#include "tests/app/ScratchWorkstation.h"
#include "tests/support/FixedClock.h"
#include "tests/support/ManualTimer.h"
#include "tests/support/ui/GeometryWalk.h"
#include "tests/support/ui/Scanner.h"

#include <QFile>
#include <QLineEdit>
#include <QScrollBar>
#include <QTextBlock>
#include <QTreeWidget>

#include <functional>

namespace quellbrook::testing {

namespace {

const char* const texts[] = {"user-guide.md", "labels.md", "scanners.md"};

void ForEachFormat(const QTextDocument& document, const std::function<void(const QTextCharFormat&)>& visit) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        for (auto part = block.begin(); !part.atEnd(); ++part) visit(part.fragment().charFormat());
}

class GuideWindowTest : public ::testing::Test {
protected:
    GuideWindowTest() {
        m_guide.resize(1100, 700);
        ShowActive(m_guide);
    }

    GuideBrowser& Text() { return *Find<GuideBrowser>(m_guide, "guideText"); }
    QTreeWidget& Contents() { return *Find<QTreeWidget>(m_guide, "guideContents"); }
    QLineEdit& Search() { return *Find<QLineEdit>(m_guide, "guideSearch"); }
    // The heading at the top of the visible text.
    std::string TopHeading() {
        for (QTextBlock block = Text().cursorForPosition(QPoint(40, 10)).block(); block.isValid(); block = block.next())
            if (!block.text().isEmpty()) return block.text().toStdString();
        return "";
    }
    void SearchFor(const QString& text) {
        SendKey(m_guide, Qt::Key_F, Qt::ControlModifier);
        EXPECT_TRUE(Search().hasFocus());
        SendText(m_guide, text.toUtf8().constData());
        SendKey(m_guide, Qt::Key_Return);
    }

    GuideWindow m_guide;
};

// The guide in the program.
class GuideTest : public MainWindowTest {
protected:
    void SetUp() override {
        m_timers = std::make_unique<ManualTimers>(m_environment);
        m_environment->clock = &m_clock;
        MainWindowTest::SetUp();
    }
    void TearDown() override {
        MainWindowTest::TearDown();
        m_timers.reset();
    }

    static GuideWindow* OpenGuide() {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (auto* guide = qobject_cast<GuideWindow*>(window); guide && guide->isVisible()) return guide;
        return nullptr;
    }
    // Whether F1 opens the guide. Closes it again.
    bool OpensWithF1() {
        SendKey(*m_window, Qt::Key_F1);
        GuideWindow* guide = OpenGuide();
        if (!guide) return false;
        SendKey(*guide, Qt::Key_Escape);
        EXPECT_FALSE(guide->isVisible());
        ShowActive(*m_window);
        return true;
    }

    FixedClock m_clock;
    std::unique_ptr<ManualTimers> m_timers;
};

}  // namespace

TEST_F(GuideTest, F1OpensItOnTheLoginFormAndInEveryView) {
    EXPECT_TRUE(OpensWithF1());
    LogIn(SampleAccounts()[0]);
    for (const char* name : {"TreeView", "search", "hostTabs"}) {
        Find(*m_window, name)->setFocus();
        EXPECT_TRUE(OpensWithF1()) << name;
    }
    m_window->OpenRecord({RecordKind::Property, 1});
    EXPECT_TRUE(OpensWithF1());
}

TEST_F(GuideTest, TheHelpButtonOpensItAndF1BringsItBack) {
    LogIn(SampleAccounts()[0]);
    Click(Find(*m_window, "help"));
    GuideWindow* guide = OpenGuide();
    ASSERT_NE(guide, nullptr);
    ShowActive(*m_window);
    EXPECT_FALSE(guide->isActiveWindow());
    SendKey(*m_window, Qt::Key_F1);
    EXPECT_TRUE(guide->isActiveWindow());
    EXPECT_FALSE(guide->testAttribute(Qt::WA_QuitOnClose));
    m_window.reset();
    EXPECT_EQ(OpenGuide(), nullptr);
}

TEST_F(GuideTest, AScanDoesNotOpenIt) {
    const ScratchWorkstation workstation;
    const auto scanWithF1 = [this] {
        TypeAsScanner("\x02P1");
        SendKey(*m_window, Qt::Key_F1);
        TypeAsScanner("\x03");
        m_timers->TickAll();
        m_clock.Advance(1000);
        return OpenGuide() != nullptr;
    };
    EXPECT_FALSE(scanWithF1());
    LogIn(SampleAccounts()[0]);
    Find(*m_window, "TreeView")->setFocus();
    EXPECT_FALSE(scanWithF1());
    Click(Find(*m_window, "scannerPageButton"));
    EXPECT_TRUE(Find(*m_window, "scanField")->hasFocus());
    EXPECT_FALSE(scanWithF1());
}

TEST_F(GuideTest, ItsSearchTakesNoScan) {
    LogIn(SampleAccounts()[0]);
    Click(Find(*m_window, "help"));
    GuideWindow* guide = OpenGuide();
    ASSERT_NE(guide, nullptr);
    ShowActive(*guide);
    auto* search = Find<QLineEdit>(*guide, "guideSearch");
    search->setFocus();
    Scan("P0000000001");
    m_timers->TickAll();
    m_clock.Advance(1000);
    EXPECT_EQ(search->text(), "");
    EXPECT_TRUE(Find(*m_window, "explorer")->isVisible());
    TypeAsScanner("batch");
    EXPECT_EQ(search->text(), "batch");
}

TEST_F(GuideWindowTest, EveryLinkLeadsToAHeadingOrATextOfTheGuide) {
    std::set<QUrl> addresses;
    for (const char* text : texts) {
        addresses.insert(GuideBrowser::AddressOf(text));
        for (const GuideHeading& heading : GuideBrowser::HeadingsOf(text)) addresses.insert(heading.address);
    }
    int links = 0;
    for (const char* text : texts) {
        Text().setSource(GuideBrowser::AddressOf(text));
        ForEachFormat(*Text().document(), [&](const QTextCharFormat& format) {
            if (format.anchorHref().isEmpty()) return;
            ++links;
            EXPECT_EQ(addresses.count(Text().source().resolved(QUrl(format.anchorHref()))), 1U)
                << text << ": " << format.anchorHref().toStdString();
        });
    }
    EXPECT_GT(links, 20);
}

TEST_F(GuideWindowTest, EveryPictureExistsAndFitsTheText) {
    int pictures = 0;
    for (const char* text : texts) {
        Text().setSource(GuideBrowser::AddressOf(text));
        ForEachFormat(*Text().document(), [&](const QTextCharFormat& format) {
            if (!format.isImageFormat()) return;
            ++pictures;
            const QUrl name = Text().source().resolved(QUrl(format.toImageFormat().name()));
            EXPECT_TRUE(QFile::exists(":" + name.path())) << name.toString().toStdString();
        });
        EXPECT_EQ(Text().horizontalScrollBar()->maximum(), 0) << text;
    }
    EXPECT_GT(pictures, 12);
    m_guide.resize(800, 500);
    ServeEvents();
    EXPECT_EQ(Text().horizontalScrollBar()->maximum(), 0);
}

TEST_F(GuideWindowTest, LinksAndContentsScrollToTheirHeading) {
    EXPECT_EQ(Text().verticalScrollBar()->value(), 0);
    emit Text().anchorClicked(QUrl("#scan"));
    EXPECT_EQ(TopHeading(), "Scan");
    const auto found = Contents().findItems("Keyboard", Qt::MatchExactly | Qt::MatchRecursive);
    ASSERT_EQ(found.size(), 1);
    Contents().setCurrentItem(found[0]);
    EXPECT_EQ(TopHeading(), "Keyboard");
    emit Text().anchorClicked(QUrl("scanners.md"));
    EXPECT_EQ(Text().source(), GuideBrowser::AddressOf("scanners.md"));
    emit Text().anchorClicked(QUrl("user-guide.md#scan"));
    EXPECT_EQ(TopHeading(), "Scan");
    Text().setFocus();
    SendKey(m_guide, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(Text().source(), GuideBrowser::AddressOf("scanners.md"));
}

TEST_F(GuideWindowTest, TheContentsListEveryHeading) {
    size_t headings = 0;
    for (const char* text : texts) headings += GuideBrowser::HeadingsOf(text).size();
    EXPECT_GT(headings, 25U);
    EXPECT_EQ(static_cast<size_t>(Contents().findItems("*", Qt::MatchWildcard | Qt::MatchRecursive).size()), headings);
    EXPECT_EQ(Contents().topLevelItemCount(), 3);
}

TEST_F(GuideWindowTest, SearchFindsTheNextPlaceAndBeginsAgainAtTheTop) {
    SearchFor("wizard");
    EXPECT_EQ(Text().textCursor().selectedText().toLower(), "wizard");
    const int first = Text().textCursor().position();
    SendKey(m_guide, Qt::Key_Return);
    EXPECT_GT(Text().textCursor().position(), first);
    for (int more = 0; more < 50 && Text().textCursor().position() != first; ++more) SendKey(m_guide, Qt::Key_Return);
    EXPECT_EQ(Text().textCursor().position(), first);
    SearchFor("no such words");
    EXPECT_EQ(Text().textCursor().position(), first);
}

TEST_F(GuideWindowTest, NothingIsCutOffOrUnnamed) {
    const QString reason = "Tab visits the links of the text first";
    GeometryWalk walk({{MeantFault::Kind::Unnamed, "guideSearch", "", reason},
                       {MeantFault::Kind::Unnamed, "guideContents", "", reason}});
    EXPECT_THAT(walk.FaultsOf(m_guide), ::testing::IsEmpty());
    EXPECT_GT(walk.Visited(), 3);
}

}  // namespace quellbrook::testing
