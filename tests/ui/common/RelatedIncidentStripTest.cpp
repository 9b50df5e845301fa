#include "ui/common/RelatedIncidentStrip.h"

#include "base/Error.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/ui/Widgets.h"
#include "ui/common/PropertyBag.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/View.h"
#include "ui/platform/Twips.h"

#include <QPainter>

namespace quellbrook {

namespace {

using testing::Find;
using testing::FindAll;

std::shared_ptr<IncidentList> Incidents(const std::vector<std::pair<std::string, bool>>& incidents) {
    auto list = std::make_shared<IncidentList>();
    for (const auto& [id, secured] : incidents) {
        auto incident = std::make_shared<IncidentInfo>();
        incident->LoadFromRow(Row::Of({{"IncidentNo", 1}, {"IncidentId", id}, {"IsSecured", secured}}));
        list->push_back(incident);
    }
    return list;
}

// The visible parts from left to right: "2026-0042 | lock 2026-0043".
std::string Seen(QWidget& strip) {
    std::vector<Control*> elements;
    for (Control* element : strip.findChildren<Control*>())
        if (element->IsShown()) elements.push_back(element);
    std::sort(elements.begin(), elements.end(), [](Control* a, Control* b) { return a->Left() < b->Left(); });
    QStringList texts;
    for (const Control* element : elements) {
        const auto* label = qobject_cast<const Label*>(element);
        texts << (label ? label->Caption() : QString("lock"));
    }
    return texts.join(" ").toStdString();
}

Label* Number(QWidget& strip, size_t index) { return FindAll<Label>(strip, "lblIncidentId").at(index); }

const QColor SecuredColor(0xDC, 0x5C, 0x1C);

}  // namespace

TEST(RelatedIncidentStrip, WithoutIncidentsItShowsNoneAndNothingElse) {
    RelatedIncidentStrip strip;
    strip.SetIncidents(Incidents({}));
    EXPECT_EQ(Seen(strip), "(None)");
}

TEST(RelatedIncidentStrip, ThreeIncidentsTheSecondSecured) {
    RelatedIncidentStrip strip;
    strip.SetIncidents(Incidents({{"2026-0042", false}, {"2026-0043", true}, {"2026-0044", false}}));
    EXPECT_EQ(Seen(strip), "2026-0042 • lock 2026-0043 • 2026-0044");
    EXPECT_EQ(Number(strip, 1)->ForeColor(), SecuredColor);
    EXPECT_EQ(Number(strip, 0)->ForeColor(), strip.ForeColor());
    EXPECT_EQ(Number(strip, 2)->ForeColor(), strip.ForeColor());
    EXPECT_EQ(Number(strip, 2)->Index(), 2);
}

TEST(RelatedIncidentStrip, ASecuredFirstIncidentBeginsWithItsLock) {
    RelatedIncidentStrip strip;
    strip.SetIncidents(Incidents({{"2026-0042", true}}));
    EXPECT_EQ(Seen(strip), "lock 2026-0042");
}

TEST(RelatedIncidentStrip, EachElementBeginsFourPixelsBehindTheOneBefore) {
    RelatedIncidentStrip strip;
    strip.SetIncidents(Incidents({{"2026-0042", false}, {"2026-0043", true}}));
    const auto* bullet = FindAll<Label>(strip, "lblSeparator").at(1);
    const auto* lock = FindAll<FontIcon>(strip, "imgSecured").at(1);
    EXPECT_FLOAT_EQ(Number(strip, 0)->Left(), 0);
    EXPECT_FLOAT_EQ(bullet->Left(), Number(strip, 0)->Right() + 60);
    EXPECT_FLOAT_EQ(lock->Left(), bullet->Right() + 60);
    EXPECT_FLOAT_EQ(Number(strip, 1)->Left(), lock->Right() + 60);
    EXPECT_FLOAT_EQ(strip.Width(), Number(strip, 1)->Right());
    EXPECT_FLOAT_EQ(strip.Height(), Number(strip, 1)->Height());
}

TEST(RelatedIncidentStrip, SettingIncidentsAgainLeavesNoLabelBehind) {
    RelatedIncidentStrip strip;
    strip.SetIncidents(Incidents({{"1", true}, {"2", true}, {"3", true}}));
    strip.SetIncidents(Incidents({{"4", false}, {"5", false}}));
    EXPECT_EQ(Seen(strip), "4 • 5");
    EXPECT_EQ(FindAll(strip, "lblIncidentId").size(), 2u);
    EXPECT_EQ(FindAll(strip, "imgSecured").size(), 2u);
    EXPECT_EQ(FindAll(strip, "lblSeparator").size(), 2u);
    strip.SetIncidents(Incidents({}));
    EXPECT_EQ(Seen(strip), "(None)");
    EXPECT_EQ(FindAll(strip, "lblIncidentId").size(), 1u);
}

TEST(RelatedIncidentStrip, NoCollectionAtAllIsAnInvalidValue) {
    RelatedIncidentStrip strip;
    strip.SetIncidents(Incidents({{"4", false}}));
    const Error error = testing::RaisedBy([&] { strip.SetIncidents(nullptr); });
    EXPECT_EQ(error.Number(), ErrorNumber::InvalidPropertyValue);
    EXPECT_EQ(error.Source(), "RelatedIncidentStrip.SetIncidents");
    EXPECT_EQ(error.Description(), ErrorText(380));
    EXPECT_EQ(Seen(strip), "4");
}

TEST(RelatedIncidentStrip, TheColorAppliesToEveryElementButTheSecuredNumber) {
    RelatedIncidentStrip strip;
    strip.SetIncidents(Incidents({{"1", false}, {"2", true}}));
    strip.SetForeColor(Qt::blue);
    EXPECT_EQ(Number(strip, 0)->ForeColor(), QColor(Qt::blue));
    EXPECT_EQ(FindAll<Label>(strip, "lblSeparator").at(1)->ForeColor(), QColor(Qt::blue));
    EXPECT_EQ(Number(strip, 1)->ForeColor(), SecuredColor);
    strip.SetIncidents(Incidents({{"3", false}}));
    EXPECT_EQ(Number(strip, 0)->ForeColor(), QColor(Qt::blue));
}

TEST(RelatedIncidentStrip, NoneHasTheColorOfItsParent) {
    RelatedIncidentStrip strip;
    strip.SetForeColor(Qt::blue);
    strip.SetIncidents(Incidents({}));
    EXPECT_EQ(Number(strip, 0)->ForeColor(), strip.palette().color(QPalette::WindowText));
}

TEST(RelatedIncidentStrip, AnOwnFontReachesTheNumbersAndTheWidthFollows) {
    RelatedIncidentStrip strip;
    strip.SetIncidents(Incidents({{"2026-0042", false}, {"2026-0043", false}}));
    const float before = strip.Width();
    QFont large = strip.Font();
    large.setPixelSize(30);
    strip.SetFont(large);
    EXPECT_EQ(Number(strip, 1)->font().pixelSize(), 30);
    EXPECT_EQ(FindAll<Label>(strip, "lblSeparator").at(1)->font().pixelSize(), 30);
    EXPECT_GT(strip.Width(), before);
    EXPECT_GT(strip.Height(), 30 * 15);
    EXPECT_FLOAT_EQ(strip.Width(), Number(strip, 1)->Right());
}

TEST(RelatedIncidentStrip, TheFontOfItsSurroundingsReachesTheNumbers) {
    GroupBox parent;
    auto* strip = new RelatedIncidentStrip(&parent);
    strip->SetIncidents(Incidents({{"2026-0042", false}}));
    const float before = strip->Width();
    QFont large = parent.font();
    large.setPixelSize(30);
    parent.setFont(large);
    EXPECT_EQ(Number(*strip, 0)->font().pixelSize(), 30);
    EXPECT_GT(strip->Width(), before);
}

// Paints the chips of its strip, as a row does.
class HighlightedRow : public QWidget {
public:
    HighlightedRow() {
        m_strip.Move(ToTwips(8), ToTwips(6));
        resize(400, 40);
    }
    RelatedIncidentStrip& Strip() { return m_strip; }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), Theme::Get(Theme::Color::Highlight));
        m_strip.PaintChips(painter);
    }

private:
    RelatedIncidentStrip m_strip{this};
};

TEST(RelatedIncidentStrip, OnTheHighlightTheSecuredNumberKeepsItsColorOnAChip) {
    HighlightedRow row;
    RelatedIncidentStrip& strip = row.Strip();
    strip.SetIncidents(Incidents({{"2026-0042", false}, {"2026-0043", true}}));
    strip.SetOnHighlight(true);
    EXPECT_EQ(Number(strip, 0)->ForeColor(), Theme::Get(Theme::Color::HighlightText));
    EXPECT_EQ(Number(strip, 1)->ForeColor(), SecuredColor);
    const QImage picture = testing::Grab(row);
    const QRect lock = FindAll<FontIcon>(strip, "imgSecured").at(1)->geometry().translated(strip.pos());
    const QRect first = Number(strip, 0)->geometry().translated(strip.pos());
    const QColor chip = Theme::Get(Theme::Color::Window), background = Theme::Get(Theme::Color::Highlight);
    EXPECT_EQ(testing::PixelAt(picture, lock.topLeft()), chip);
    EXPECT_EQ(testing::PixelAt(picture, first.topLeft()), background);
    const QRect shown = strip.geometry();
    for (const int beyond : {1, 2, 3})
        EXPECT_EQ(testing::PixelAt(picture, QPoint(shown.right() + beyond, shown.center().y())), chip) << beyond;
    EXPECT_EQ(testing::PixelAt(picture, QPoint(shown.right() + 4, shown.center().y())), background);
}

TEST(RelatedIncidentStrip, WithoutTheHighlightThereIsNoChip) {
    HighlightedRow row;
    row.Strip().SetIncidents(Incidents({{"2026-0043", true}}));
    const QRect shown = row.Strip().geometry();
    EXPECT_EQ(testing::PixelAt(testing::Grab(row), QPoint(shown.right() + 1, shown.center().y())),
              Theme::Get(Theme::Color::Highlight));
}

TEST(RelatedIncidentStrip, ADisabledOneIsGreyButForTheSecuredNumber) {
    RelatedIncidentStrip strip;
    strip.SetIncidents(Incidents({{"2026-0042", false}, {"2026-0043", true}}));
    strip.setEnabled(false);
    EXPECT_EQ(Number(strip, 0)->ForeColor(), Theme::Get(Theme::Color::GrayText));
    EXPECT_EQ(Number(strip, 1)->ForeColor(), SecuredColor);
    strip.setEnabled(true);
    EXPECT_EQ(Number(strip, 0)->ForeColor(), Theme::Get(Theme::Color::Text));
}

TEST(RelatedIncidentStrip, ANumberShowsItsCharactersAndNoMarkup) {
    RelatedIncidentStrip strip;
    strip.SetIncidents(Incidents({{"<b>1</b> & 2", false}}));
    EXPECT_EQ(Seen(strip), "<b>1</b> & 2");
}

TEST(RelatedIncidentStrip, InADesignerItShowsSamples) {
    SetInsideDesigner(true);
    RelatedIncidentStrip strip;
    SetInsideDesigner(false);
    EXPECT_EQ(Seen(strip), "2016-0042 • lock 2015-0203 • 2011-6831");
}

TEST(RelatedIncidentStrip, ItsPropertiesAreKeptInABag) {
    PropertyBag bag;
    RelatedIncidentStrip first;
    first.SetForeColor(QColor(0x12, 0x34, 0x56));
    QFont large = first.Font();
    large.setPixelSize(30);
    first.SetFont(large);
    first.WriteProperties(bag);
    EXPECT_EQ(bag.ReadProperty("ForeColor"), TaggedValue(0x563412));
    RelatedIncidentStrip second;
    second.ReadProperties(bag);
    EXPECT_EQ(second.ForeColor(), QColor(0x12, 0x34, 0x56));
    EXPECT_EQ(second.Font().pixelSize(), 30);
}

TEST(RelatedIncidentStrip, ABrokenPropertyLeavesTheDefault) {
    PropertyBag bag;
    bag.WriteProperty("ForeColor", "greenish");
    bag.WriteProperty("Font", TaggedValue(Null()));
    RelatedIncidentStrip strip;
    const QColor before = strip.ForeColor();
    EXPECT_NO_THROW(strip.ReadProperties(bag));
    EXPECT_EQ(strip.ForeColor(), before);
}

TEST(RelatedIncidentStrip, AGoodFontIsReadDespiteABrokenColor) {
    PropertyBag bag;
    QFont large;
    large.setPixelSize(30);
    bag.WriteProperty("ForeColor", "greenish");
    bag.WriteProperty("Font", large.toString().toStdString());
    RelatedIncidentStrip strip;
    strip.ReadProperties(bag);
    EXPECT_EQ(strip.Font().pixelSize(), 30);
}

TEST(RelatedIncidentStrip, UntouchedPropertiesAreNotKept) {
    PropertyBag bag;
    RelatedIncidentStrip().WriteProperties(bag);
    EXPECT_FALSE(bag.Has("ForeColor"));
    EXPECT_FALSE(bag.Has("Font"));
}

}  // namespace quellbrook
