#include "ui/items/TrackingResult.h"

#include "tests/support/RaisedBy.h"
#include "tests/support/ui/SmallDepartment.h"
#include "tests/support/ui/Widgets.h"
#include "ui/controls/Line.h"
#include "ui/items/ActionTag.h"
#include "ui/platform/Twips.h"

#include <QAccessible>
#include <QLocale>

namespace quellbrook::testing {
namespace {

class TrackingResultTest : public SmallDepartment {
protected:
    TrackingResultTest() {
        QLocale::setDefault(QLocale::c());
        m_row.SetWidth(ToTwips(1000));
    }
    ~TrackingResultTest() override {
        QLocale::setDefault(QLocale::system());
        HostServices::Current().SetFormats({});
    }

    struct Fields {
        TaggedValue ReceivedBy = 11;
        TaggedValue ReceivedFrom = 12;
        TaggedValue DateReceived = DateTime::FromParts({2026, 9, 5, 15, 7, 59, 0});
        TaggedValue CustodyReasonNo = 2;
        TaggedValue StorageLocNo = Null();
    };

    void Show(const Fields& fields) {
        m_record = std::make_shared<TrackingRecord>();
        m_record->SetRow(Row::Of({{"SeqNo", 1},
                                  {"ReceivedBy", fields.ReceivedBy},
                                  {"ReceivedFrom", fields.ReceivedFrom},
                                  {"DateReceived", fields.DateReceived},
                                  {"CustodyReasonNo", fields.CustodyReasonNo},
                                  {"StorageLocNo", fields.StorageLocNo}}));
        m_row.SetItem(m_record);
    }

    Label* LabelOf(const char* name) { return Find<Label>(m_row, name); }
    QString Text(const char* name) { return LabelOf(name)->Caption(); }

    TrackingResult m_row;
    std::shared_ptr<TrackingRecord> m_record;
};

TEST_F(TrackingResultTest, ShowsWhoWhenWhereAndWhy) {
    Show({.StorageLocNo = shelf});
    EXPECT_EQ(m_row.Item(), m_record);
    EXPECT_EQ(Text("lblDate"), "09/05/2026");
    EXPECT_EQ(Text("lblTime"), "3:07 PM");
    EXPECT_EQ(Text("lblFrom"), "Kowalczyk, Lena");
    EXPECT_EQ(Text("lblTo"), "Raman, Priya");
    EXPECT_EQ(Text("Label1"), "From");
    EXPECT_EQ(Text("Label2"), "To");
    EXPECT_EQ(Text("lblLocation"), "Property Room > Aisle 3 > Shelf B");
    EXPECT_EQ(Text("lblReason"), "Laboratory analysis");
    const auto* tag = Find<ActionTag>(m_row, "tagStatus");
    EXPECT_EQ(tag->Caption(), "Signed In");
    EXPECT_EQ(tag->Color(), 0x87AD24);
    for (const char* name : {"lblFrom", "lblTo"})
        EXPECT_EQ(LabelOf(name)->ForeColor(), Theme::Get(Theme::Color::GrayText));
    for (const char* name : {"lblDate", "lblFrom", "lblTo", "lblLocation"})
        EXPECT_TRUE(Theme::Font(LabelOf(name)->Type()).bold()) << name;
    for (const char* name : {"lblTime", "Label1", "Label2", "lblReason"})
        EXPECT_FALSE(Theme::Font(LabelOf(name)->Type()).bold()) << name;
}

TEST_F(TrackingResultTest, FollowsTheHostsFormats) {
    HostServices::Current().SetFormats({"$%d", "yyyy-MM-dd", "HH:mm"});
    Show({});
    EXPECT_EQ(Text("lblDate"), "2026-09-05");
    EXPECT_EQ(Text("lblTime"), "15:07");
}

TEST_F(TrackingResultTest, ShowsThatADateIsMissing) {
    Show({.DateReceived = Null()});
    EXPECT_EQ(Text("lblDate"), "<Date missing>");
    EXPECT_EQ(Text("lblTime"), "");
}

TEST_F(TrackingResultTest, ShowsInRedThatAPersonIsMissing) {
    Show({.ReceivedBy = Null()});
    EXPECT_EQ(Text("lblTo"), "Not specified");
    EXPECT_EQ(LabelOf("lblTo")->ForeColor(), QColor(255, 0, 0));
    EXPECT_EQ(LabelOf("lblFrom")->ForeColor(), Theme::Get(Theme::Color::GrayText));
    Show({.ReceivedFrom = Null()});
    EXPECT_EQ(Text("lblFrom"), "Not specified");
    EXPECT_EQ(LabelOf("lblFrom")->ForeColor(), QColor(255, 0, 0));
    EXPECT_EQ(Text("lblTo"), "Raman, Priya");
    EXPECT_EQ(LabelOf("lblTo")->ForeColor(), Theme::Get(Theme::Color::GrayText));
}

TEST_F(TrackingResultTest, NoLocationAndNoReasonStayEmpty) {
    Show({.CustodyReasonNo = Null()});
    EXPECT_EQ(Text("lblLocation"), "");
    EXPECT_EQ(Text("lblReason"), "");
    EXPECT_EQ(Find<ActionTag>(m_row, "tagStatus")->Caption(), "Unknown Action");
}

TEST_F(TrackingResultTest, RefusesNoRecord) {
    EXPECT_EQ(RaisedBy([&] { m_row.SetItem(nullptr); }).Number(), ErrorNumber::NullObject);
}

TEST_F(TrackingResultTest, FieldsAreLaidOut) {
    Show({.StorageLocNo = shelf});
    EXPECT_EQ(m_row.Height(), 1140);
    const std::vector<std::tuple<const char*, float, float>> places = {
        {"tagStatus", 0, 180},  {"lblDate", 1380, 180}, {"lblTime", 1380, 540}, {"Label1", 3645, 180},
        {"lblFrom", 4260, 180}, {"Label2", 3825, 540},  {"lblTo", 4260, 540}};
    for (const auto& [name, left, top] : places) {
        const auto* control = Find<Control>(m_row, name);
        EXPECT_EQ(control->Left(), left) << name;
        EXPECT_EQ(control->Top(), top) << name;
    }
}

TEST_F(TrackingResultTest, LocationAndReasonAreRightAligned) {
    for (const int width : {700, 1250}) {
        m_row.SetWidth(ToTwips(width));
        Show({.StorageLocNo = shelf});
        for (const char* name : {"lblLocation", "lblReason"})
            EXPECT_EQ(LabelOf(name)->Left(), m_row.Width() - LabelOf(name)->Width() - 120) << name;
        EXPECT_EQ(LabelOf("lblLocation")->Top(), 180);
        EXPECT_EQ(LabelOf("lblReason")->Top(), 540);
        EXPECT_EQ(Find<Line>(m_row, "lnSeparator")->geometry(), QRect(0, 75, width, 1));
        m_row.SetWidth(ToTwips(width + 100));
        EXPECT_EQ(LabelOf("lblReason")->Right(), m_row.Width() - 120);
    }
}

TEST_F(TrackingResultTest, AScreenReaderFindsARowThatIsSelectedWithTheFocus) {
    Show({.StorageLocNo = shelf});
    QWidget window;
    auto* other = new QWidget(&window);
    other->setFocusPolicy(Qt::StrongFocus);
    m_row.setParent(&window);
    ShowActive(window);
    other->setFocus();
    QAccessibleInterface* row = QAccessible::queryAccessibleInterface(&m_row);
    EXPECT_EQ(row->role(), QAccessible::ListItem);
    EXPECT_FALSE(row->state().selected);
    m_row.setFocus();
    EXPECT_TRUE(row->state().selected);
    EXPECT_TRUE(row->state().focused);
    other->setFocus();
    EXPECT_FALSE(row->state().selected);
    m_row.setParent(nullptr);
}

TEST_F(TrackingResultTest, TheFocusedRowHasARing) {
    Show({.StorageLocNo = shelf});
    ShowActive(m_row);
    m_row.setFocus();
    EXPECT_EQ(PixelAt(Grab(m_row), QPoint(500, 1)), Theme::Get(Theme::Color::Link));
    m_row.clearFocus();
    EXPECT_NE(PixelAt(Grab(m_row), QPoint(500, 1)), Theme::Get(Theme::Color::Link));
}

}  // namespace
}  // namespace quellbrook::testing
