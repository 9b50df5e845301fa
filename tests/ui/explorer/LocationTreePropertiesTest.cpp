#include "tests/ui/explorer/LocationTreeTest.h"

#include "ui/common/PropertyBag.h"
#include "ui/controls/GroupBox.h"

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using ::testing::IsEmpty;

TEST_F(LocationTreeTest, ColorsFollowThePaletteUntilSet) {
    Show();
    const QPalette palette = m_tree->palette();
    EXPECT_EQ(m_tree->BackColor(), palette.color(QPalette::Base));
    EXPECT_EQ(m_tree->ForeColor(), palette.color(QPalette::Text));
    EXPECT_EQ(m_tree->RootColor(), palette.color(QPalette::Text));
    EXPECT_EQ(m_tree->Appearance(), 1);
    EXPECT_EQ(m_tree->BorderStyle(), 1);

    m_tree->SetBackColor(Qt::yellow);
    m_tree->SetForeColor(Qt::blue);
    EXPECT_EQ(Node("Vault")->foreground(0).color(), QColor(Qt::blue));
    EXPECT_EQ(Node("Sign-In Locations")->foreground(0).color(), palette.color(QPalette::Text));
    m_tree->SetRootColor(Qt::red);
    EXPECT_EQ(Node("Vault")->foreground(0).color(), QColor(Qt::blue));
    EXPECT_EQ(Node("Sign-In Locations")->foreground(0).color(), QColor(Qt::red));
    EXPECT_EQ(Node("Sign-In Locations")->background(0).color(), QColor(Qt::yellow));
    EXPECT_EQ(Node("Vault")->background(0).color(), QColor(Qt::yellow));
    EXPECT_EQ(PixelAt(Grab(*m_widget->viewport()), {100, 590}), QColor(Qt::yellow));
    EXPECT_EQ(Find<GroupBox>(*m_tree, "picLoading")->BackColor(), QColor(Qt::yellow));
    EXPECT_EQ(Find<GroupBox>(*m_tree, "picLoadingMessage")->BackColor(), QColor(Qt::yellow));

    m_tree->ResetBackColor();
    m_tree->ResetForeColor();
    m_tree->ResetRootColor();
    EXPECT_EQ(Node("Vault")->foreground(0).color(), palette.color(QPalette::Text));
    EXPECT_EQ(Node("Vault")->background(0).color(), palette.color(QPalette::Base));
}

TEST_F(LocationTreeTest, NodesLoadedAfterwardsHaveTheColorsSet) {
    Show();
    m_tree->SetBackColor(Qt::yellow);
    m_tree->SetForeColor(Qt::blue);
    m_tree->SetRootColor(Qt::red);
    m_tree->Refresh();
    EXPECT_EQ(Node("Vault")->foreground(0).color(), QColor(Qt::blue));
    EXPECT_EQ(Node("Vault")->background(0).color(), QColor(Qt::yellow));
    EXPECT_EQ(Node("Sign-In Locations")->foreground(0).color(), QColor(Qt::red));
}

TEST_F(LocationTreeTest, AppearanceAndBorderStyleFrameTheTree) {
    Make();
    const auto isCoverFramed = [this] {
        auto* cover = Find<GroupBox>(*m_tree, "picLoading");
        cover->resize(100, 100);
        const QImage image = Grab(*cover);
        return image.pixel(0, 50) != image.pixel(5, 5);
    };
    EXPECT_EQ(m_widget->frameShape(), QFrame::StyledPanel);
    EXPECT_TRUE(isCoverFramed());
    m_tree->SetAppearance(0);
    EXPECT_EQ(m_widget->frameShape(), QFrame::Box);
    EXPECT_FALSE(isCoverFramed());
    m_tree->SetBorderStyle(0);
    EXPECT_EQ(m_widget->frameShape(), QFrame::NoFrame);
}

TEST_F(LocationTreeTest, PropertiesCanBeStoredByADesigner) {
    Show();
    EXPECT_TRUE(m_tree->setProperty("BackColor", QColor(Qt::yellow)));
    EXPECT_TRUE(m_tree->setProperty("ForeColor", QColor(Qt::blue)));
    EXPECT_TRUE(m_tree->setProperty("RootColor", QColor(Qt::red)));
    EXPECT_TRUE(m_tree->setProperty("Appearance", 0));
    EXPECT_TRUE(m_tree->setProperty("BorderStyle", 0));
    EXPECT_EQ(m_tree->property("BackColor").value<QColor>(), QColor(Qt::yellow));
    EXPECT_EQ(m_tree->property("ForeColor").value<QColor>(), QColor(Qt::blue));
    EXPECT_EQ(m_tree->property("RootColor").value<QColor>(), QColor(Qt::red));
    EXPECT_EQ(m_tree->Appearance(), 0);
    EXPECT_EQ(m_tree->BorderStyle(), 0);
    EXPECT_EQ(m_widget->frameShape(), QFrame::NoFrame);
}

TEST_F(LocationTreeTest, PropertiesAreStoredInABag) {
    Show();
    m_tree->SetBackColor(QColor(1, 2, 3));
    m_tree->SetForeColor(QColor(4, 5, 6));
    m_tree->SetRootColor(QColor(7, 8, 9));
    m_tree->SetAppearance(0);
    m_tree->SetBorderStyle(0);
    PropertyBag bag;
    m_tree->WriteProperties(bag);
    EXPECT_EQ(bag.ReadProperty("BackColor"), TaggedValue(0x030201));

    LocationTree other;
    other.ReadProperties(bag);
    EXPECT_EQ(other.BackColor(), QColor(1, 2, 3));
    EXPECT_EQ(other.ForeColor(), QColor(4, 5, 6));
    EXPECT_EQ(other.RootColor(), QColor(7, 8, 9));
    EXPECT_EQ(other.Appearance(), 0);
    EXPECT_EQ(other.BorderStyle(), 0);
    EXPECT_EQ(Find<GroupBox>(other, "picLoading")->BackColor(), QColor(1, 2, 3));
    EXPECT_EQ(Find<LocationTreeWidget>(other, "TreeView")->frameShape(), QFrame::NoFrame);
}

TEST_F(LocationTreeTest, DefaultsAreNotStoredAndBrokenValuesGiveTheDefault) {
    Show();
    PropertyBag bag;
    m_tree->WriteProperties(bag);
    for (const char* key : {"BackColor", "ForeColor", "RootColor", "Appearance", "BorderStyle"}) {
        EXPECT_FALSE(bag.Has(key));
        bag.WriteProperty(key, "greenish");
    }
    m_tree->SetBackColor(Qt::yellow);
    m_tree->SetAppearance(0);
    m_tree->ReadProperties(bag);
    EXPECT_EQ(m_tree->BackColor(), m_tree->palette().color(QPalette::Base));
    EXPECT_EQ(m_tree->ForeColor(), m_tree->palette().color(QPalette::Text));
    EXPECT_EQ(m_tree->Appearance(), 1);
    EXPECT_EQ(m_tree->BorderStyle(), 1);
}

TEST_F(LocationTreeTest, ShowsNoDataAndNoErrorInADesigner) {
    SetInsideDesigner(true);
    Show();
    m_tree->Refresh();
    EXPECT_EQ(m_widget->topLevelItemCount(), 0);
    EXPECT_THAT(TakeSelected(), IsEmpty());
    EXPECT_TRUE(m_screen.Messages().empty());
}

}  // namespace
}  // namespace quellbrook::testing
