#include "ui/explorer/SearchResultRow.h"

#include "core/Actions.h"
#include "tests/support/FaultInjectingEngine.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/ui/SmallDepartment.h"
#include "tests/support/ui/Widgets.h"
#include "ui/common/RelatedIncidentStrip.h"
#include "ui/controls/FontIcon.h"
#include "ui/controls/Line.h"
#include "ui/controls/StatusTag.h"
#include "ui/platform/Strings.h"
#include "ui/platform/Twips.h"

namespace quellbrook::testing {
namespace {

constexpr int WhiteText = 0xFFFFFF;

class SearchResultRowTest : public SmallDepartment {
protected:
    SearchResultRowTest() {
        m_row.SetWidth(ToTwips(900));
        m_laptop = AddProperty("2026-0417-03", "Laptop computer", shelf);
    }

    Label* LabelOf(const char* name) { return Find<Label>(m_row, name); }
    QString Text(const char* name) { return LabelOf(name)->Caption(); }
    StatusTag* Status() { return Find<StatusTag>(m_row, "tagStatus"); }
    QString Icon() { return Find<FontIcon>(m_row, "imgIcon")->IconName(); }
    QColor Background() { return PixelAt(Grab(m_row), QPoint(890, 50)); }

    void AddToBatch(const StoredItemRef& item) {
        GetActions().BeginTransaction(TransactionType::SignOut, ListOf({item}));
    }

    SearchResultRow m_row;
    StoredItemRef m_laptop;
};

TEST_F(SearchResultRowTest, ShowsNothingBeforeTheFirstItem) {
    EXPECT_EQ(m_row.Item(), nullptr);
    EXPECT_FALSE(m_row.InCart());
    EXPECT_EQ(m_row.TypeName(), "searchResult");
    EXPECT_EQ(Text("lblID"), "Identifier");
    EXPECT_EQ(Text("lblDescription"), "Description");
    EXPECT_EQ(Status()->Caption(), "Unknown");
    EXPECT_EQ(Text("lblLocation"), "Location");
    EXPECT_EQ(Text("lblCategory"), "Category");
    EXPECT_EQ(Text("lblRelatedCases"), "Identifier");
}

TEST_F(SearchResultRowTest, ShowsWhatTheItemIs) {
    LinkIncident(m_laptop, "2026-0417", "C-26-1182");
    m_row.SetItem(m_laptop);
    EXPECT_EQ(m_row.Item(), m_laptop);
    EXPECT_EQ(Text("lblID"), "2026-0417-03");
    EXPECT_EQ(Text("lblDescription"), "Laptop computer");
    EXPECT_EQ(Status()->Caption(), "In Storage");
    EXPECT_EQ(Status()->Color(), 0x87AD24);
    EXPECT_EQ(Text("lblLocation"), "Property Room > Aisle 3 > Shelf B");
    EXPECT_EQ(Text("lblCategory"), "Electronics");
    EXPECT_EQ(Find<Label>(*Find<RelatedIncidentStrip>(m_row, "lblRelatedIncidents"), "lblIncidentId")->Caption(),
              "2026-0417");
    EXPECT_EQ(Text("lblRelatedCases"), "C-26-1182");
    EXPECT_EQ(Text("Label2"), "Incident(s):");
    EXPECT_EQ(Text("Label3"), "Case(s):");
    EXPECT_EQ(m_row.accessibleName(), "2026-0417-03 Laptop computer");
}

TEST_F(SearchResultRowTest, ALongDescriptionKeepsItsWidthAndEndsInAnEllipsisAtTheRowsEdge) {
    const QString text(270, 'W');
    m_row.SetItem(AddProperty("E-2", text.toStdString(), shelf));
    Label* description = LabelOf("lblDescription");
    EXPECT_EQ(description->width(), description->sizeHint().width());
    const int room = m_row.width() - description->x();
    Label cut(&m_row);
    cut.SetType(description->Type());
    cut.SetTag(description->Tag());  // its color
    cut.SetAutoSize(false);
    cut.SetCaption(text);
    cut.resize(room, description->height());
    EXPECT_EQ(Grab(*description).copy(0, 0, room, description->height()), Grab(cut));
}

TEST_F(SearchResultRowTest, LineBreaksInATextAreShownAsBlanks) {
    m_row.SetItem(AddProperty("E-2", "Pry bar with paint", shelf));
    const QImage plain = Grab(*LabelOf("lblDescription"));
    for (const char* text : {"Pry bar\nwith paint", "Pry bar\r\nwith paint", "Pry bar\u2028with\u2029paint"}) {
        m_row.SetItem(AddProperty("E-2", text, shelf));
        EXPECT_EQ(Text("lblDescription"), ToQString(text));
        EXPECT_EQ(LabelOf("lblDescription")->height(), LabelOf("lblID")->height());
        EXPECT_EQ(Grab(*LabelOf("lblDescription")), plain) << text;
    }
}

TEST_F(SearchResultRowTest, LineBreaksDoNotMakeTheRowTaller) {
    const int32_t bin = m_database.AddLocation("Cold\nRoom", StorageLocationTypes::Internal);
    m_database.AddCode(CodeTable::PropertyCategory, 8, "Blood\nsamples");
    const StoredItemRef item = AddProperty("E\n2", "Tube", bin, 8);
    LinkIncident(item, "2026\n0417", "C\n26");
    m_row.SetItem(item);
    EXPECT_EQ(m_row.height(), 100);
    for (const char* name : {"lblLocation", "lblCategory", "lblRelatedCases"})
        EXPECT_EQ(LabelOf(name)->height(), LabelOf("Label2")->height()) << name;
    EXPECT_EQ(Find<RelatedIncidentStrip>(m_row, "lblRelatedIncidents")->height(), LabelOf("Label2")->height());
}

TEST_F(SearchResultRowTest, RefusesNoItem) {
    EXPECT_EQ(RaisedBy([&] { m_row.SetItem(nullptr); }).Number(), ErrorNumber::NullObject);
}

TEST_F(SearchResultRowTest, ItemWithoutLocationAndRecordsIsNotInStorage) {
    const int32_t id = m_database.AddProperty({.PropertyID = "E-1", .CategoryNo = 6});
    m_row.SetItem(FindItem(StoredItemTypes::Property, id));
    EXPECT_EQ(Status()->Caption(), "Not in Storage");
    EXPECT_EQ(Status()->Color(), 0x0000FF);
    EXPECT_EQ(Text("lblLocation"), "");
    EXPECT_EQ(LabelOf("lblLocation")->Left(), Status()->Right() + 120);
    EXPECT_EQ(LabelOf("lblCategory")->Left(), LabelOf("lblLocation")->Right() + 240);
}

TEST_F(SearchResultRowTest, ItemWithoutLocationButWithRecordsIsDisposed) {
    const int32_t id = m_database.AddProperty({.PropertyID = "E-1"});
    m_database.AddCustodyRow(StoredItemTypes::Property, id, Null());
    m_row.SetItem(MakeItem(id));
    EXPECT_EQ(Status()->Caption(), "Disposed");
    EXPECT_EQ(Status()->Color(), 0x808080);
    EXPECT_EQ(Text("lblLocation"), "");
}

TEST_F(SearchResultRowTest, NoRelatedCasesReadAsNone) {
    m_row.SetItem(m_laptop);
    EXPECT_EQ(Text("lblRelatedCases"), "(None)");
}

TEST_F(SearchResultRowTest, RelatedCasesAreInTheItemsOrder) {
    LinkIncident(m_laptop, "2026-0417", "C-26-1182");
    LinkIncident(m_laptop, "2026-0388", "C-26-1090");
    m_row.SetItem(m_laptop);
    QStringList expected;
    for (const auto& entry : m_laptop->RelatedCases()) expected += QString::fromStdString(entry->CaseNumber());
    ASSERT_EQ(expected.size(), 2);
    EXPECT_EQ(Text("lblRelatedCases"), expected.join(", "));
}

TEST_F(SearchResultRowTest, FieldsFlowWithTheirTexts) {
    m_row.SetItem(m_laptop);
    EXPECT_EQ(LabelOf("lblDescription")->Left(), LabelOf("lblID")->Right() + 120);
    EXPECT_EQ(LabelOf("lblLocation")->Left(), Status()->Right() + 120);
    EXPECT_EQ(LabelOf("lblLocation")->Top(), Status()->TextTop(LabelOf("lblLocation")->Height()));
    EXPECT_EQ(LabelOf("lblCategory")->Left(), LabelOf("lblLocation")->Right() + 240);
    EXPECT_EQ(LabelOf("lblCategory")->Top(), LabelOf("lblLocation")->Top());
}

TEST_F(SearchResultRowTest, BottomMarginEqualsTheTopMarginAtAnyWidth) {
    for (const int width : {500, 1500}) {
        m_row.SetWidth(ToTwips(width));
        m_row.SetHeight(3000);
        m_row.SetItem(m_laptop);
        EXPECT_EQ(m_row.Height(), LabelOf("lblRelatedCases")->Bottom() + LabelOf("lblID")->Top());
        EXPECT_EQ(m_row.height(), 100);
        const auto* line = Find<Line>(m_row, "lnBottom");
        EXPECT_EQ(line->geometry(), QRect(0, 99, width, 1));
    }
}

TEST_F(SearchResultRowTest, ShorterLocationMovesTheCategoryBackLeft) {
    const StoredItemRef nearby = AddProperty("E-2", "Pry bar", propertyRoom);
    m_row.SetItem(nearby);
    const float before = LabelOf("lblCategory")->Left();
    m_row.SetItem(m_laptop);
    EXPECT_GT(LabelOf("lblCategory")->Left(), before);
    m_row.SetItem(nearby);
    EXPECT_EQ(LabelOf("lblCategory")->Left(), before);
}

TEST_F(SearchResultRowTest, LosingTheFocusGivesEachFieldItsFirstColorBack) {
    LinkIncident(m_laptop, "2026-0388", "C-1", true);
    m_row.SetItem(m_laptop);
    std::vector<std::pair<Label*, QColor>> before;
    for (Label* label : m_row.findChildren<Label*>()) before.emplace_back(label, label->ForeColor());
    const int32_t tagColor = Status()->Color();
    m_row.SetFocused(true);
    EXPECT_EQ(LabelOf("lblID")->ForeColor(), QColor(WhiteText));
    EXPECT_EQ(LabelOf("Label2")->ForeColor(), QColor(WhiteText));
    EXPECT_EQ(LabelOf("lblRelatedCases")->ForeColor(), QColor(WhiteText));
    EXPECT_EQ(Status()->Color(), tagColor);
    m_row.SetFocused(false);
    for (const auto& [label, color] : before) EXPECT_EQ(label->ForeColor(), color) << label->Caption().toStdString();
    EXPECT_EQ(Status()->Color(), tagColor);
}

TEST_F(SearchResultRowTest, FieldsFollowANewPalette) {
    m_row.show();
    m_row.SetItem(m_laptop);
    m_row.SetFocused(true);
    Theme::Install(true);
    ServeEvents();
    m_row.SetFocused(false);
    EXPECT_EQ(LabelOf("lblID")->ForeColor(), Theme::Get(Theme::Color::Text));
    EXPECT_EQ(LabelOf("Label3")->ForeColor(), Theme::Get(Theme::Color::GrayText));
    Theme::Install(false);
    ServeEvents();
    EXPECT_EQ(LabelOf("lblID")->ForeColor(), Theme::Get(Theme::Color::Text));
}

TEST_F(SearchResultRowTest, BackgroundAndIconFollowFocusAndBatch) {
    m_row.SetItem(m_laptop);
    EXPECT_EQ(Background(), Theme::Get(Theme::Color::Window));
    EXPECT_EQ(Icon(), "tag");
    m_row.SetFocused(true);
    EXPECT_EQ(Background(), Theme::Get(Theme::Color::Highlight));
    EXPECT_EQ(Icon(), "tag");
    AddToBatch(m_laptop);
    EXPECT_EQ(Background(), Theme::Get(Theme::Color::Highlight));
    EXPECT_EQ(Icon(), "marked");
    m_row.SetFocused(false);
    EXPECT_EQ(Background(), Theme::BatchTint());
    EXPECT_EQ(Background(), Theme::FromBgr(0xF3F7E9));
    EXPECT_EQ(Icon(), "marked");
}

TEST_F(SearchResultRowTest, TheChipOfASecuredIncidentExtendsBeyondTheNumber) {
    LinkIncident(m_laptop, "2026-0388", "C-26-1090", true);
    m_row.SetItem(m_laptop);
    const QRect strip = Find<RelatedIncidentStrip>(m_row, "lblRelatedIncidents")->geometry();
    const auto expectBeside = [&](Theme::Color color) {
        const QImage picture = Grab(m_row);
        for (const int x : {strip.left() - 2, strip.right() + 2})
            EXPECT_EQ(PixelAt(picture, QPoint(x, strip.center().y())), Theme::Get(color)) << x;
    };
    expectBeside(Theme::Color::Window);
    m_row.SetFocused(true);
    expectBeside(Theme::Color::Window);
    EXPECT_EQ(PixelAt(Grab(m_row), QPoint(strip.right() + 5, strip.center().y())), Theme::Get(Theme::Color::Highlight));
}

TEST_F(SearchResultRowTest, ASelectedRowWithoutTheFocusIsGray) {
    m_row.SetItem(m_laptop);
    m_row.SetSelected(true);
    EXPECT_EQ(Background(), Theme::Get(Theme::Color::SelectedInactive));
    m_row.SetFocused(true);
    EXPECT_EQ(Background(), Theme::Get(Theme::Color::Highlight));
    m_row.SetFocused(false);
    AddToBatch(m_laptop);
    EXPECT_EQ(Background(), Theme::BatchTint()) << "the band of the batch matters more";
    GetActions().CancelTransaction();
    EXPECT_EQ(Background(), Theme::Get(Theme::Color::SelectedInactive));
    m_row.SetSelected(false);
    EXPECT_EQ(Background(), Theme::Get(Theme::Color::Window));
}

TEST_F(SearchResultRowTest, RowTurnsPaleWhenItsItemEntersTheBatchAndBackWhenItLeaves) {
    m_row.SetItem(m_laptop);
    AddToBatch(m_laptop);
    EXPECT_TRUE(m_row.InCart());
    EXPECT_EQ(Background(), Theme::BatchTint());
    GetActions().CancelTransaction();
    EXPECT_FALSE(m_row.InCart());
    EXPECT_EQ(Background(), Theme::Get(Theme::Color::Window));
    EXPECT_EQ(Icon(), "tag");
}

TEST_F(SearchResultRowTest, DividerIsHalfwayBetweenLocationAndCategory) {
    m_row.SetItem(m_laptop);
    const Label* location = LabelOf("lblLocation");
    const int x = location->geometry().right() + 1 + 8;
    const int start = location->geometry().bottom() + 1 - 4;
    const int length = Theme::LineHeight(location->Type()) - 8;
    const QImage plain = Grab(m_row);
    EXPECT_EQ(PixelAt(plain, QPoint(x, start - 1)), Theme::Get(Theme::Color::GrayText));
    EXPECT_EQ(PixelAt(plain, QPoint(x, start - length)), Theme::Get(Theme::Color::GrayText));
    EXPECT_EQ(PixelAt(plain, QPoint(x, start)), Theme::Get(Theme::Color::Window));
    EXPECT_EQ(PixelAt(plain, QPoint(x, start - length - 1)), Theme::Get(Theme::Color::Window));
    m_row.SetFocused(true);
    EXPECT_EQ(PixelAt(Grab(m_row), QPoint(x, start - 1)), QColor(WhiteText));
}

TEST_F(SearchResultRowTest, TheDividerIsAsHighAsATextInTheFontOfTheRow) {
    QFont font = m_row.font();
    font.setPixelSize(22);
    m_row.setFont(font);
    m_row.SetItem(m_laptop);
    const Label* location = LabelOf("lblLocation");
    const int x = location->geometry().right() + 1 + 8;
    const int start = location->geometry().bottom() + 1 - 4;
    const int length = location->height() - 8;
    ASSERT_GT(length, Theme::LineHeight(location->Type()) - 8);
    const QImage plain = Grab(m_row);
    EXPECT_EQ(PixelAt(plain, QPoint(x, start - length)), Theme::Get(Theme::Color::GrayText));
    EXPECT_EQ(PixelAt(plain, QPoint(x, start - length - 1)), Theme::Get(Theme::Color::Window));
}

TEST_F(SearchResultRowTest, ALocationInALargerFontIsOnTheLineOfTheTag) {
    QFont font = m_row.font();
    font.setPixelSize(22);
    m_row.setFont(font);
    m_row.SetItem(m_laptop);
    ASSERT_GT(LabelOf("lblLocation")->height(), Status()->height());
    EXPECT_NEAR(LabelOf("lblLocation")->geometry().center().y(), Status()->geometry().center().y(), 1);
}

TEST_F(SearchResultRowTest, AChangeOfTheBatchRefreshesTheItem) {
    m_row.SetItem(m_laptop);
    EXPECT_TRUE(m_row.IsUpToDate());
    m_database.Execute("UPDATE Property SET Description = 'Laptop, found open' WHERE PropertyNo = " +
                       std::to_string(m_laptop->ID()));
    AddToBatch(AddProperty("E-2", "Pry bar", shelf));
    EXPECT_EQ(m_laptop->Description(), "Laptop, found open");
    EXPECT_EQ(Text("lblDescription"), "Laptop computer");
    EXPECT_FALSE(m_row.IsUpToDate());
    m_row.SetItem(m_laptop);
    EXPECT_EQ(Text("lblDescription"), "Laptop, found open");
}

TEST_F(SearchResultRowTest, AFailureLeavesTheFieldsSetSoFarAndTheFormerItem) {
    m_row.SetItem(m_laptop);
    const StoredItemRef other = AddProperty("E-2", "Pry bar", propertyRoom, 6);
    LinkIncident(other, "2026-0417", Null());
    auto faults = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(faults);
    other->Location();
    const int before = faults->StatementCount();
    other->CategoryName();
    // After the category, the row loads the item's incidents; this statement fails.
    faults->FailAtStatement(faults->StatementCount() - before + 1, Error(7, "Engine", "The link is down."));
    const Error error = RaisedBy([&] { m_row.SetItem(other); });
    EXPECT_EQ(error.Number(), 7);
    EXPECT_EQ(Text("lblID"), "E-2");
    EXPECT_EQ(Text("lblLocation"), "Property Room");
    EXPECT_EQ(Text("lblCategory"), "Tools");
    EXPECT_EQ(m_row.Item(), m_laptop);
    EXPECT_FALSE(m_row.IsUpToDate());
}

TEST_F(SearchResultRowTest, AnItemThatCannotBeRefreshedDoesNotAffectOtherRows) {
    SearchResultRow second;
    const StoredItemRef other = AddProperty("E-2", "Pry bar", shelf);
    m_row.SetItem(m_laptop);
    second.SetItem(other);
    auto faults = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(faults);
    faults->FailAtStatement(1, Error(7, "Engine", "The link is down."));
    m_log.Announce("Engine");
    GetActions().AddToCart(ListOf({m_laptop, other}));
    EXPECT_TRUE(faults->HasStruck());
    ASSERT_EQ(m_screen.Messages().size(), 1u);
    EXPECT_EQ(m_screen.Messages().front(), (RecordingScreen::Message{"The link is down.", 16, "Unexpected Error"}));
    EXPECT_TRUE(m_row.InCart());
    EXPECT_TRUE(second.InCart());
}

TEST_F(SearchResultRowTest, ARetiredRowNoLongerFollowsTheBatch) {
    m_row.SetItem(m_laptop);
    m_row.Retire();
    AddToBatch(m_laptop);
    EXPECT_FALSE(m_row.InCart());
    EXPECT_TRUE(m_row.IsUpToDate());
}

TEST_F(SearchResultRowTest, MarkupInAnItemIsShownAsPlainText) {
    m_row.SetItem(AddProperty("<b>x</b>", "A & B <img src='x'>", shelf));
    EXPECT_EQ(Text("lblID"), "<b>x</b>");
    EXPECT_EQ(Text("lblDescription"), "A & B <img src='x'>");
}

}  // namespace
}  // namespace quellbrook::testing
