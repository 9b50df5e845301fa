#include "tests/ui/locations/SetupLocationsWizardTest.h"
#include "ui/platform/Twips.h"

#include <QScrollBar>
#include <QStyle>

namespace quellbrook::testing {
namespace {

class WizardLayoutTest : public SetupLocationsWizardTest {
protected:
    // Runs at two sizes.
    template <typename Check>
    void AtEachSize(Check check) {
        Open();
        for (const QSize size : {QSize(900, 600), QSize(560, 420)}) {
            SCOPED_TRACE(size.width());
            m_wizard->resize(size);
            check();
        }
    }
    float GapBelow(const char* upper, const char* lower) { return Named(lower)->Top() - Named(upper)->Bottom(); }
};

TEST_F(WizardLayoutTest, TheTextsAreBelowEachOtherAtFixedDistances) {
    AtEachSize([this] {
        for (int page = 0; page < 4; ++page) {
            EXPECT_EQ(Named("lblTitle")->Top(), 0);
            EXPECT_EQ(GapBelow("lblTitle", "lblSubtitle"), 240);
            EXPECT_EQ(GapBelow("lblSubtitle", "lblPrompt"), 480);
            EXPECT_EQ(GapBelow("lblPrompt", "lblHintText"), 240);
            EXPECT_GT(GapBelow("lblHintText", "lvwLocations"), 0);
            for (const char* text : {"lblTitle", "lblSubtitle", "lblPrompt", "lblHintText"})
                EXPECT_EQ(Named(text)->Left(), 0) << text;
            if (page < 3) Next();
        }
        for (int page = 3; page > 0; --page) Back();
    });
}

TEST_F(WizardLayoutTest, ALongHintPushesTheListDown) {
    Open();
    m_wizard->resize(560, 420);
    const float top = List()->Top();
    GoToPage(2);
    EXPECT_GT(List()->Top(), top);
    EXPECT_GT(List()->Height(), ToTwips(List()->RowHeight()));
}

TEST_F(WizardLayoutTest, TheButtonsAreAtTheBottomRight) {
    AtEachSize([this] {
        EXPECT_EQ(Named("btnNext")->Right(), m_wizard->Width());
        EXPECT_EQ(Named("btnNext")->Bottom(), m_wizard->Height());
        EXPECT_EQ(Named("btnNext")->Left() - Named("btnBack")->Right(), 240);
        EXPECT_EQ(Named("btnBack")->Top(), Named("btnNext")->Top());
        EXPECT_EQ(Named("btnBack")->Height(), Named("btnNext")->Height());
    });
}

TEST_F(WizardLayoutTest, TheCountIsRightOfTheLinkBelowTheList) {
    AtEachSize([this] {
        for (int click = 0; click < 2; ++click) {
            EXPECT_EQ(Named("lblCount")->Left() - SelectAll()->Right(), 240);
            EXPECT_EQ(Named("lblCount")->Top(), SelectAll()->Top());
            EXPECT_GE(SelectAll()->Top(), List()->Bottom());
            EXPECT_LE(SelectAll()->Bottom(), Named("btnNext")->Top());
            Click(SelectAll());
        }
    });
}

TEST_F(WizardLayoutTest, ThePanelTakesThePlaceOfTheListWithItsMessageInTheMiddle) {
    AtEachSize([this] {
        EXPECT_EQ(Named("picNoLocations")->geometry(), List()->geometry());
        const QRect message = Named("picMessage")->geometry();
        EXPECT_NEAR(message.center().x(), Named("picNoLocations")->rect().center().x(), 1);
        EXPECT_NEAR(message.center().y(), Named("picNoLocations")->rect().center().y(), 1);
    });
}

TEST_F(WizardLayoutTest, TheColumnsFillTheListBesideItsScrollBar) {
    AtEachSize([this] {
        const int bar = m_wizard->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, Tree());
        EXPECT_NEAR(List()->ColumnWidth(0), 320, 15);
        EXPECT_NEAR(List()->ColumnWidth(1), List()->Width() - 320 - ToTwips(bar), 15);
        EXPECT_FALSE(Tree()->horizontalScrollBar()->isVisible());
    });
}

TEST_F(WizardLayoutTest, ARowIsOnePointSevenTimesAsHighAsItsType) {
    Open();
    const QRect row = Tree()->visualItemRect(Tree()->topLevelItem(0));
    EXPECT_EQ(row.height(), qRound(1.7 * 15));
    EXPECT_EQ(row.height(), 26);
}

}  // namespace
}  // namespace quellbrook::testing
