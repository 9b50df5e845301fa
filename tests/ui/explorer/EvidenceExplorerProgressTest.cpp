#include "tests/support/InterruptingEngine.h"
#include "tests/support/ui/PaintCounter.h"
#include "tests/ui/explorer/ExplorerWindowTest.h"
#include "ui/explorer/CategorizedSearchResults.h"

#include <functional>

namespace quellbrook::testing {
namespace {

// What the screen shows while the database works.
class EvidenceExplorerProgressTest : public ExplorerWindowTest {
protected:
    EvidenceExplorerProgressTest() {
        m_database.Install(m_engine);
        Show();
        ServeEvents();
    }

    // What the heading shows at a statement, and how often it was painted since the statement before.
    struct Sight {
        std::string title;
        std::string subtitle;
        int paints;
        int pointer;
        int gap;  // between the title and the first link
    };
    // Looks before each of the next statements.
    void Watch() {
        m_engine->BeforeStatement([this] {
            m_sights.push_back(
                {Title(), Subtitle(), std::exchange(m_paints.count, 0), GetMousePointer(), GapAfterTitle()});
            Watch();
        });
    }
    int GapAfterTitle() const {
        return Find(*m_explorer, "grpEditLocation")->x() - Find(*m_explorer, "lblTitle")->geometry().right() - 1;
    }
    void WatchHeading() {
        Find(*m_explorer, "picInfobar")->installEventFilter(&m_paints);
        Watch();
    }

    std::shared_ptr<InterruptingEngine> m_engine = std::make_shared<InterruptingEngine>(m_database.GetEngine());
    PaintCounter m_paints;
    std::vector<Sight> m_sights;
};

// The first statement counts the items, the second one reads them.
TEST_F(EvidenceExplorerProgressTest, TheHeadingIsPaintedBeforeEachStepOfADisplay) {
    const StorageLocationRef shelf = LocationOf(m_shelf);
    m_explorer->SetSelectedLocation(LocationOf(m_empty));
    ServeEvents();
    WatchHeading();
    m_explorer->SetSelectedLocation(shelf);
    ASSERT_EQ(m_sights.size(), 2u);
    EXPECT_EQ(m_sights[0].title, "Shelf A");
    EXPECT_EQ(m_sights[0].subtitle, "Loading...");
    EXPECT_EQ(m_sights[1].subtitle, "1 storage unit, 2 items");
    for (const Sight& sight : m_sights) {
        EXPECT_EQ(sight.paints, 1);
        EXPECT_EQ(sight.pointer, MousePointer::Hourglass);
        EXPECT_EQ(sight.gap, GapAfterTitle());
    }
    EXPECT_EQ(GetMousePointer(), MousePointer::Default);
}

TEST_F(EvidenceExplorerProgressTest, TheHeadingIsPaintedEmptyBeforeTheResultsAreCovered) {
    m_explorer->SetSelectedLocation(LocationOf(m_shelf));
    ServeEvents();
    const auto* cover = Find<Control>(*m_explorer->SearchResultPane(), "grpSearching");
    m_paints.counts = [this, cover] { return m_explorer->SearchResultPane()->IsShown() && !cover->IsShown(); };
    WatchHeading();
    m_explorer->DoSearchRequest("E-1");
    ASSERT_FALSE(m_sights.empty());
    EXPECT_EQ(m_sights[0].title, "");
    EXPECT_EQ(m_sights[0].subtitle, "");
    EXPECT_EQ(m_sights[0].paints, 1);
}

TEST_F(EvidenceExplorerProgressTest, TheTreeIsCoveredAndPaintedBeforeItIsRead) {
    m_explorer->SetSelectedLocation(nullptr);
    ServeEvents();
    Control* cover = Find<Control>(*m_tree, "picLoading");
    cover->installEventFilter(&m_paints);
    HostLocationData::Discard();
    bool covered = false;
    int paints = 0, pointer = MousePointer::Default;
    m_engine->BeforeStatement([&] {
        covered = cover->isVisible();
        paints = m_paints.count;
        pointer = GetMousePointer();
    });
    m_tree->Refresh();
    EXPECT_TRUE(covered);
    EXPECT_EQ(paints, 1);
    EXPECT_EQ(pointer, MousePointer::Hourglass);
    EXPECT_FALSE(cover->isVisible());
}

TEST_F(EvidenceExplorerProgressTest, ThePointerIsTheHourglassWhileACategoryIsRead) {
    m_database.LinkIncident(StoredItemTypes::Property, m_second, m_database.AddIncident("I-7", "E-1"));
    m_explorer->DoSearchRequest("E-1");
    ASSERT_EQ(GetMousePointer(), MousePointer::Default);
    auto* menu = Find<QMenu>(*m_explorer->SearchResultPane(), "mnuCategories");
    ASSERT_EQ(menu->actions().size(), 2);
    Watch();
    menu->actions().at(1)->trigger();
    ASSERT_FALSE(m_sights.empty());
    for (const Sight& sight : m_sights) EXPECT_EQ(sight.pointer, MousePointer::Hourglass);
    EXPECT_EQ(GetMousePointer(), MousePointer::Default);
}

}  // namespace
}  // namespace quellbrook::testing
