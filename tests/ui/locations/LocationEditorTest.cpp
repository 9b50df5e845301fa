#include "tests/ui/locations/LocationEditorTest.h"

#include "base/Error.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/ui/GeometryWalk.h"
#include "tests/support/ui/WhileFormOpen.h"
#include "ui/controls/FontIcon.h"
#include "ui/platform/MousePointer.h"

#include <QAbstractItemView>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(LocationEditorTest, AnAdditionStartsInTheContainerWithAnEmptyName) {
    Add(m_tree.Find(m_tree.shelf));
    EXPECT_EQ(Title(), "Add New Storage Location");
    EXPECT_EQ(NameField()->Text(), "");
    EXPECT_EQ(ContainerId(), m_tree.shelf);
    EXPECT_EQ(Category()->ItemText(Category()->ListIndex()), "Sign-In Locations");
    EXPECT_EQ(m_form->Location(), nullptr);
    EXPECT_TRUE(m_form->Canceled());
}

TEST_F(LocationEditorTest, AnEditShowsTheLocation) {
    Edit(m_tree.court);
    EXPECT_EQ(Title(), "Edit Storage Location");
    EXPECT_EQ(NameField()->Text(), "Court");
    EXPECT_EQ(ContainerId(), 0);
    EXPECT_EQ(Category()->ItemText(Category()->ListIndex()), "Sign-Out Locations");
}

TEST_F(LocationEditorTest, TheNameHasTheFocusAndThePointerIsRestored) {
    SetMousePointer(MousePointer::Hourglass);
    Edit(m_tree.bin);
    EXPECT_EQ(GetMousePointer(), MousePointer::Default);
    EXPECT_TRUE(NameField()->isAncestorOf(QApplication::focusWidget()));
}

TEST_F(LocationEditorTest, EveryFieldHasANameAndAHint) {
    Edit(m_tree.bin);
    for (const auto& [label, field, hint] : {std::tuple("Label1", "txtName", "Label4"),
                                             {"Label2", "cboLocation", "Label3"},
                                             {"Label6", "cboType", "Label5"}}) {
        QWidget* control = Find(*m_form, field);
        EXPECT_EQ(control->accessibleDescription(), Find<Label>(*m_form, hint)->Caption());
        EXPECT_LT(Find(*m_form, label)->y(), control->y());
        EXPECT_GT(Find(*m_form, hint)->y(), control->y());
    }
    EXPECT_EQ(Find<Label>(*m_form, "Label1")->Caption(), "Location Name");
    EXPECT_EQ(Find<Label>(*m_form, "Label2")->Caption(), "Container");
    EXPECT_EQ(Find<Label>(*m_form, "Label6")->Caption(), "Category");
    EXPECT_EQ(Find<Label>(*m_form, "Label4")->Caption(), "The name used to identify this location.");
    EXPECT_EQ(Find<Label>(*m_form, "Label3")->Caption(), "The container that this location is grouped under.");
    EXPECT_EQ(Find<Label>(*m_form, "Label5")->Caption(), "The type of location, which determines how it is treated.");
    EXPECT_EQ(Find<FlatButton>(*m_form, "btnSave")->Caption(), "Save");
    EXPECT_EQ(Find<FlatButton>(*m_form, "btnCancel")->Caption(), "Cancel");
}

TEST_F(LocationEditorTest, TheFrameFillsTheFormAndTheTitleBarIsInsideIt) {
    Edit(m_tree.bin);
    EXPECT_EQ(Find(*m_form, "shpBorder")->geometry(), m_form->rect());
    const QWidget& titlebar = *Find(*m_form, "grpTitlebar");
    EXPECT_EQ(titlebar.geometry().adjusted(-1, -1, 1, 0), QRect(0, 0, m_form->width(), titlebar.height() + 1));
}

TEST_F(LocationEditorTest, NothingOverlapsOrIsCutOff) {
    Edit(m_tree.box);
    QApplication::focusWidget()->clearFocus();  // hides the focus frame
    GeometryWalk walk({{MeantFault::Kind::Overlap, "shpBorder", "", "the frame is behind everything"}});
    EXPECT_THAT(walk.FaultsOf(*m_form), IsEmpty());
    EXPECT_GT(walk.Visited(), 15);
}

TEST_F(LocationEditorTest, TheOtherCategoryIsOfferedOnlyIfALocationHasIt) {
    Edit(m_tree.bin);
    EXPECT_THAT(Categories(), ElementsAre("Sign-In Locations", "Sign-Out Locations", "Final Disposition"));
    m_database.AddLocation("In Transit", Types::Other);
    GetStorageLocationStatic().Refresh();
    Edit(m_tree.bin);
    EXPECT_THAT(Categories(),
                ElementsAre("Sign-In Locations", "Sign-Out Locations", "Final Disposition", "Other Locations"));
}

TEST_F(LocationEditorTest, AnAdditionCreatesTheLocationInTheContainer) {
    Add(m_tree.Find(m_tree.shelf));
    SetName(" Crate ");
    Press("btnSave");
    ExpectSaved();
    EXPECT_EQ(m_form->Location()->Name(), " Crate ");
    EXPECT_EQ(m_tree.Row(m_form->Location()->ID()), " Crate  2 /0/1/2/");
}

TEST_F(LocationEditorTest, ARenameKeepsTheTextAsItStands) {
    Edit(m_tree.bin);
    SetName(" Tub ");
    Press("btnSave");
    ExpectSaved();
    EXPECT_EQ(m_tree.Row(m_tree.bin), " Tub  2 /0/1/");
}

TEST_F(LocationEditorTest, TheTitleHasTheIconOfALocation) {
    Edit(m_tree.bin);
    EXPECT_EQ(Find<FontIcon>(*m_form, "Image1")->IconName(), "location");
}

TEST_F(LocationEditorTest, AnAdditionUnderARootIsAtTheTopOfItsCategory) {
    Add(m_tree.Root(Types::External));
    EXPECT_EQ(ContainerText(), "(None)");
    EXPECT_EQ(ContainerId(), 0);
    SetName("Laboratory");
    Press("btnSave");
    ExpectSaved();
    EXPECT_EQ(m_tree.Row(m_form->Location()->ID()), "Laboratory 4 /0/");
}

TEST_F(LocationEditorTest, EnterInTheNameSaves) {
    Edit(m_tree.bin);
    SetName("Tub");
    testing::Press(QApplication::focusWidget(), Qt::Key_Return);
    ExpectSaved();
    EXPECT_EQ(m_tree.Row(m_tree.bin), "Tub 2 /0/1/");
}

TEST_F(LocationEditorTest, ABlankNameIsRefused) {
    for (const char* name : {"", "   "}) {
        Edit(m_tree.bin);
        SetName(name);
        Find<FlatButton>(*m_form, "btnSave")->setFocus();
        Press("btnSave");
        ExpectError("You must enter a location name.");
        EXPECT_TRUE(NameField()->isAncestorOf(QApplication::focusWidget()));
        EXPECT_EQ(m_tree.Row(m_tree.bin), "Bin 2 /0/1/");
    }
}

TEST_F(LocationEditorTest, ATakenNameIsReportedAndCanBeCorrected) {
    Add(m_tree.Find(m_tree.room));
    SetName("shelf");
    Press("btnSave");
    ExpectError("A location with the name 'shelf' already exists here.");
    EXPECT_EQ(m_form->Location(), nullptr);
    EXPECT_EQ(NameField()->Text(), "shelf");
    EXPECT_EQ(ContainerId(), m_tree.room);
    SetName("Rack");
    Press("btnSave");
    ExpectSaved();
}

TEST_F(LocationEditorTest, ANameThatDiffersOnlyInCapitalsIsNotWritten) {
    const int32_t etagere = m_database.AddLocation("\u00C9tag\u00E8re", Types::Internal);
    GetStorageLocationStatic().Refresh();
    for (const auto& [id, name] : {std::pair(m_tree.bin, "BIN"), {etagere, "\u00E9TAG\u00C8RE"}}) {
        const std::string before = m_tree.Row(id);
        Edit(id);
        SetName(name);
        Press("btnSave");
        ExpectSaved();
        EXPECT_EQ(m_tree.Row(id), before);
    }
}

TEST_F(LocationEditorTest, AnotherContainerMovesTheLocation) {
    Edit(m_tree.shelf);
    Container()->SetSelectedLocation(m_tree.Find(m_tree.annex));
    Press("btnSave");
    ExpectSaved();
    EXPECT_EQ(m_tree.Row(m_tree.shelf), "Shelf 2 /0/5/");
    EXPECT_EQ(m_tree.Row(m_tree.box), "Box 2 /0/5/2/");
}

TEST_F(LocationEditorTest, AnotherCategoryGivesUpTheContainerAndTheTypedName) {
    Edit(m_tree.shelf);
    SetName("Typed");
    Choose(Types::External);
    EXPECT_EQ(NameField()->Text(), "Shelf");
    EXPECT_EQ(ContainerId(), 0);
    Press("btnSave");
    ExpectSaved();
    EXPECT_EQ(m_tree.Row(m_tree.shelf), "Shelf 4 /0/");
    EXPECT_EQ(m_tree.Row(m_tree.box), "Box 4 /0/2/");
}

TEST_F(LocationEditorTest, TheFirstContainerIsNotRestoredWithItsCategory) {
    Edit(m_tree.shelf);
    Choose(Types::External);
    Choose(Types::Internal);
    EXPECT_EQ(ContainerText(), "(None)");
    Press("btnSave");
    ExpectSaved();
    EXPECT_EQ(m_tree.Row(m_tree.shelf), "Shelf 2 /0/");
}

TEST_F(LocationEditorTest, ChoosingTheSameCategoryRestoresTheFields) {
    Edit(m_tree.shelf);
    SetName("Typed");
    Container()->SetSelectedLocation(m_tree.Find(m_tree.annex));
    Category()->Box()->showPopup();
    testing::Press(Category()->List(), Qt::Key_Return);
    EXPECT_EQ(NameField()->Text(), "Shelf");
    EXPECT_EQ(ContainerId(), m_tree.room);
}

TEST_F(LocationEditorTest, AContainerOfTheNewCategoryCanBeChosen) {
    Edit(m_tree.bin);
    Choose(Types::External);
    Container()->SetSelectedLocation(m_tree.Find(m_tree.court));
    Press("btnSave");
    ExpectSaved();
    EXPECT_EQ(m_tree.Row(m_tree.bin), "Bin 4 /0/6/");
}

TEST_F(LocationEditorTest, ATypedNameStaysWhenTheCategoryOfAnAdditionChanges) {
    Add(m_tree.Find(m_tree.room));
    SetName("Crate");
    Choose(Types::DisposalLocation);
    EXPECT_EQ(NameField()->Text(), "Crate");
    Press("btnSave");
    ExpectSaved();
    EXPECT_EQ(m_tree.Row(m_form->Location()->ID()), "Crate 8 /0/");
}

TEST_F(LocationEditorTest, AMoveRemainsIfTheRenameFails) {
    m_database.AddLocation("Case", Types::Internal, m_tree.annex);
    GetStorageLocationStatic().Refresh();
    Edit(m_tree.shelf);
    SetName("Case");
    Container()->SetSelectedLocation(m_tree.Find(m_tree.annex));
    Press("btnSave");
    ExpectError("A location with the name 'Case' already exists here.");
    EXPECT_EQ(m_tree.Row(m_tree.shelf), "Shelf 2 /0/5/");
}

TEST_F(LocationEditorTest, ALocationCannotBeItsOwnContainer) {
    for (const int32_t container : {m_tree.shelf, m_tree.box}) {
        Edit(m_tree.shelf);
        Container()->SetSelectedLocation(m_tree.Find(container));
        Press("btnSave");
        ExpectError("Could not move location 'Shelf' into '" + m_tree.Find(container)->Name() +
                    "'. \r\n\r\nA location cannot be moved into itself or one of its own sublocations.");
        EXPECT_EQ(ContainerId(), container);
        EXPECT_EQ(m_tree.Row(m_tree.shelf), "Shelf 2 /0/1/");
    }
}

TEST_F(LocationEditorTest, EnterInTheContainerChoosesAndDoesNotSave) {
    Edit(m_tree.bin);
    Container()->setFocus();
    SendText(*m_form, "annex");
    Key(Qt::Key_Return);
    EXPECT_EQ(ContainerId(), m_tree.annex);
    EXPECT_TRUE(m_form->isVisible());
    EXPECT_EQ(m_tree.Row(m_tree.bin), "Bin 2 /0/1/");
    Press("btnSave");
    ExpectSaved();
    EXPECT_EQ(m_tree.Row(m_tree.bin), "Bin 2 /0/5/");
}

TEST_F(LocationEditorTest, EscapeFirstLeavesTheOpenListAndThenTheForm) {
    for (const char* typed : {"shelf", "garage"}) {
        Edit(m_tree.bin);
        Container()->setFocus();
        SendText(*m_form, typed);
        Key(Qt::Key_Escape);
        EXPECT_EQ(ContainerText(), "Room");
        EXPECT_TRUE(m_form->isVisible());
        Key(Qt::Key_Escape);
        EXPECT_FALSE(m_form->isVisible());
        EXPECT_TRUE(m_form->Canceled());
    }
}

TEST_F(LocationEditorTest, ATextThatIsNoContainerIsNotSaved) {
    Edit(m_tree.bin);
    Container()->setFocus();
    SendText(*m_form, "garage");
    Find<FlatButton>(*m_form, "btnSave")->setFocus();
    EXPECT_EQ(ContainerText(), "Room");
    Press("btnSave");
    ExpectSaved();
    EXPECT_EQ(m_tree.Row(m_tree.bin), "Bin 2 /0/1/");
}

TEST_F(LocationEditorTest, ATextThatWasGivenUpWithItsCategoryDoesNotStopSave) {
    Edit(m_tree.bin);
    Container()->setFocus();
    SendText(*m_form, "garage");
    Category()->Box()->setFocus(Qt::MouseFocusReason);
    Choose(Types::External);
    Press("btnSave");
    ExpectSaved();
    EXPECT_EQ(m_tree.Row(m_tree.bin), "Bin 4 /0/");
}

TEST_F(LocationEditorTest, CancelChangesNothing) {
    Edit(m_tree.bin);
    SetName("Other");
    Press("btnCancel");
    EXPECT_FALSE(m_form->isVisible());
    EXPECT_TRUE(m_form->Canceled());
    EXPECT_EQ(m_tree.Row(m_tree.bin), "Bin 2 /0/1/");
}

TEST_F(LocationEditorTest, WithADisabledContainerALocationIsSavedAtTheTopOfItsCategory) {
    m_database.Execute("UPDATE StorageLocation SET ActiveFlag = 0 WHERE IdNo = ?", {m_tree.shelf});
    GetStorageLocationStatic().Refresh();
    Edit(m_tree.box);
    EXPECT_EQ(ContainerText(), "(None)");
    SetName("Carton");
    Press("btnSave");
    ExpectSaved();
    EXPECT_EQ(m_tree.Row(m_tree.box), "Carton 2 /0/");
    Add(m_tree.Find(m_tree.shelf));
    SetName("Crate");
    Press("btnSave");
    ExpectSaved();
    EXPECT_EQ(m_tree.Row(m_form->Location()->ID()), "Crate 2 /0/");
}

TEST_F(LocationEditorTest, NothingCannotBeEditedOrAddedTo) {
    frmAddEditLocation form;
    const Error ofLocation = RaisedBy([&] { form.SetLocation(nullptr); });
    EXPECT_EQ(ofLocation.Number(), ErrorNumber::General);
    EXPECT_EQ(ofLocation.Description(), "SetLocation: sl cannot be Nothing");
    const Error ofParent = RaisedBy([&] { form.SetParent(nullptr); });
    EXPECT_EQ(ofParent.Number(), ErrorNumber::General);
    EXPECT_EQ(ofParent.Description(), "SetParent: sl cannot be Nothing");
    EXPECT_EQ(RaisedBy([&] { GetDialogs().EditLocation(nullptr); }).Number(), ErrorNumber::General);
    EXPECT_EQ(GetMousePointer(), MousePointer::Default);
}

TEST_F(LocationEditorTest, TheDialogReturnsTheNewLocation) {
    WhileFormOpen<frmAddEditLocation>([](frmAddEditLocation& form) {
        Find<FlatTextbox>(form, "txtName")->SetText("Crate");
        Find<FlatButton>(form, "btnSave")->Click();
    });
    const StorageLocationRef added = GetDialogs().AddLocation(m_tree.Find(m_tree.room));
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(added->Name(), "Crate");
    EXPECT_EQ(ModuleForm::Count(), 0);
}

TEST_F(LocationEditorTest, ACanceledDialogReturnsNothingAndIsGone) {
    WhileFormOpen<frmAddEditLocation>([](frmAddEditLocation&) {});
    EXPECT_EQ(GetDialogs().AddLocation(m_tree.Find(m_tree.room)), nullptr);
    EXPECT_EQ(ModuleForm::Count(), 0);
    WhileFormOpen<frmAddEditLocation>([](frmAddEditLocation& form) { testing::Press(&form, Qt::Key_Escape); });
    EXPECT_FALSE(GetDialogs().EditLocation(m_tree.Find(m_tree.room)));
}

// Records the pointer just before a location form appears.
class PointerBeforeForm : public QObject {
public:
    PointerBeforeForm() { qApp->installEventFilter(this); }
    std::vector<int> pointers;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show && qobject_cast<frmAddEditLocation*>(watched))
            pointers.push_back(GetMousePointer());
        return false;
    }
};

TEST_F(LocationEditorTest, ThePointerIsTheHourglassUntilTheDialogAppears) {
    PointerBeforeForm before;
    WhileFormOpen<frmAddEditLocation>([](frmAddEditLocation&) { EXPECT_EQ(GetMousePointer(), MousePointer::Default); });
    GetDialogs().AddLocation(m_tree.Find(m_tree.room));
    WhileFormOpen<frmAddEditLocation>([](frmAddEditLocation&) { EXPECT_EQ(GetMousePointer(), MousePointer::Default); });
    GetDialogs().EditLocation(m_tree.Find(m_tree.room));
    EXPECT_THAT(before.pointers, ElementsAre(MousePointer::Hourglass, MousePointer::Hourglass));
}

TEST_F(LocationEditorTest, TheDialogReturnsWhetherTheUserSaved) {
    WhileFormOpen<frmAddEditLocation>([](frmAddEditLocation& form) { Find<FlatButton>(form, "btnSave")->Click(); });
    EXPECT_TRUE(GetDialogs().EditLocation(m_tree.Find(m_tree.room)));
}

}  // namespace
}  // namespace quellbrook::testing
