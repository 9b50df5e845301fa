#include "ui/items/TrackingResult.h"

#include "tests/support/RaisedBy.h"
#include "tests/support/ui/SmallDepartment.h"
#include "tests/support/ui/Tooltip.h"
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

TEST_F(TrackingResultTest, ALongLocationAndReasonLeaveTheNamesTheirSpace) {
    const std::string name = "Building " + std::string(300, 'x');
    const int32_t building = m_database.AddLocation(name, StorageLocationTypes::Internal);
    m_database.AddCode(CodeTable::CustodyReason, 3, "Analysis " + std::string(300, 'x'));
    ShowActive(m_row);
    for (const int width : {700, 1250}) {
        m_row.SetWidth(ToTwips(width));
        Show({.CustodyReasonNo = 3, .StorageLocNo = building});
        for (const auto& [person, right] : {std::pair("lblFrom", "lblLocation"), std::pair("lblTo", "lblReason")}) {
            EXPECT_GT(LabelOf(right)->Left(), LabelOf(person)->Right()) << right;
            EXPECT_EQ(LabelOf(right)->Right(), m_row.Width() - 120) << right;
            EXPECT_EQ(LabelOf(person)->width(), LabelOf(person)->sizeHint().width()) << person;
            EXPECT_EQ(TooltipAt(LabelOf(person), QPoint(5, 5)), "") << person;
            EXPECT_TRUE(TooltipAt(LabelOf(right), QPoint(5, 5)).contains(LabelOf(right)->Caption())) << right;
        }
    }
    Show({.StorageLocNo = shelf});
    EXPECT_EQ(LabelOf("lblLocation")->width(), LabelOf("lblLocation")->sizeHint().width());
    EXPECT_EQ(TooltipAt(LabelOf("lblLocation"), QPoint(5, 5)), "");
}

TEST_F(TrackingResultTest, ALocationAndAReasonThatAreCutEndAtTheRightMargin) {
    const int32_t building = m_database.AddLocation(std::string(300, 'W'), StorageLocationTypes::Internal);
    m_database.AddCode(CodeTable::CustodyReason, 3, std::string(300, 'W'));
    ShowActive(m_row);
    for (int width = 700; width < 720; ++width) {
        m_row.SetWidth(ToTwips(width));
        Show({.CustodyReasonNo = 3, .StorageLocNo = building});
        for (const char* name : {"lblLocation", "lblReason"}) {
            const QImage text = Grab(*LabelOf(name));
            int last = 0;
            for (int y = 0; y < text.height(); ++y)
                for (int x = last; x < text.width(); ++x)
                    if (text.pixel(x, y) != text.pixel(text.width() - 1, 0)) last = x;
            EXPECT_GT(last, text.width() - 4) << name << " " << width;
        }
    }
}

TEST_F(TrackingResultTest, BeforeTheFirstRecordARowShowsItsCaptions) {
    for (const auto& [name, caption] :
         {std::pair("lblDate", "Date"), std::pair("lblTime", "Time"), std::pair("lblFrom", "From"),
          std::pair("lblTo", "To"), std::pair("lblLocation", "Location"), std::pair("lblReason", "Reason")})
        EXPECT_EQ(Text(name), caption);
    EXPECT_EQ(Find<ActionTag>(m_row, "tagStatus")->Caption(), "Unknown");
}

TEST_F(TrackingResultTest, ALongNameAndALongLocationShareTheSpace) {
    m_database.AddPerson(13, std::string(300, 'x'));
    const int32_t building = m_database.AddLocation(std::string(300, 'x'), StorageLocationTypes::Internal);
    Show({.ReceivedFrom = 13, .StorageLocNo = building});
    const Label &person = *LabelOf("lblFrom"), &location = *LabelOf("lblLocation");
    EXPECT_GT(location.Left(), person.Right());
    EXPECT_NEAR(person.Width(), location.Width(), TwipsPerPixel);
    Show({.ReceivedFrom = 13, .StorageLocNo = propertyRoom});
    EXPECT_EQ(location.width(), location.sizeHint().width());
    EXPECT_GT(person.Width(), location.Width());
    EXPECT_LT(person.Right(), location.Left());
}

TEST_F(TrackingResultTest, ALongDateEndsBeforeTheNames) {
    HostServices::Current().SetFormats({"$%d", "dddd, d MMMM yyyy", "HH:mm:ss.zzz 'local time in the department'"});
    Show({});
    EXPECT_LT(LabelOf("lblDate")->Right(), LabelOf("Label1")->Left());
    EXPECT_LT(LabelOf("lblTime")->Right(), LabelOf("Label2")->Left());
}

TEST_F(TrackingResultTest, ALineBreakInALocationStaysInItsLine) {
    Show({.StorageLocNo = m_database.AddLocation("Cold\nRoom", StorageLocationTypes::Internal)});
    EXPECT_EQ(Text("lblLocation"), "Cold\nRoom");
    EXPECT_LE(LabelOf("lblLocation")->Bottom(), LabelOf("lblReason")->Top());
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
