#include "ui/items/FinalDisposition.h"

#include "host/CodeTableLookup.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/FaultInjectingEngine.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/ui/GeometryWalk.h"
#include "tests/support/ui/WhileFormOpen.h"
#include "tests/support/ui/Widgets.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/FlatTextArea.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/TessarineDropdown.h"

#include <QPlainTextEdit>

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using ::testing::IsEmpty;

using Messages = std::vector<RecordingScreen::Message>;
const Messages MissingStatus = {
    {"Please specify the final disposition status for this evidence.", 16, "Missing field"}};

class FinalDispositionTest : public DatabaseTest {
protected:
    FinalDispositionTest() {
        m_database.AddCode(CodeTable::FinalDispositionStatus, 4, "Returned to owner");
        m_database.AddCode(CodeTable::FinalDispositionStatus, 3, "Destroyed");
        m_window.resize(800, 600);
        ShowActive(m_window);
        GetDialogs().SetParent(std::make_shared<WindowReference>(&m_window));
    }
    ~FinalDispositionTest() override { GetDialogs().SetParent(nullptr); }

    static TessarineDropdown* Status(frmFinalDisposition& form) {
        return Find<TessarineDropdown>(form, "dispositionField");
    }
    static FlatTextArea* Notes(frmFinalDisposition& form) { return Find<FlatTextArea>(form, "notesField"); }
    static void Save(frmFinalDisposition& form) { Find<FlatButton>(form, "btnSave")->Click(); }
    static void Cancel(frmFinalDisposition& form) { Find<FlatButton>(form, "btnCancel")->Click(); }

    QWidget m_window;
};

TEST_F(FinalDispositionTest, AsksForAStatusAndNotes) {
    frmFinalDisposition form;
    EXPECT_EQ(form.windowTitle(), "Final Disposition Information");
    EXPECT_EQ(Find<Label>(form, "lblTitle")->Caption(), "Final Disposition Information");
    EXPECT_EQ(Find<Label>(form, "Label5")->Caption(), "Final disposition");
    EXPECT_EQ(Find<Label>(form, "Label6")->Caption(), "Comments/Notes");
    EXPECT_EQ(Find<FlatButton>(form, "btnSave")->Caption(), "Save");
    EXPECT_EQ(Find<FlatButton>(form, "btnCancel")->Caption(), "Cancel");
    ASSERT_EQ(Status(form)->Count(), 2);
    EXPECT_EQ(Status(form)->TableNumber(), 30);
    EXPECT_EQ(Status(form)->ItemText(0), "Destroyed");
    EXPECT_EQ(Status(form)->Value(), Null());
    EXPECT_EQ(Notes(form)->Text(), "");
    EXPECT_TRUE(form.Canceled());
}

TEST_F(FinalDispositionTest, SaveWithoutAStatusIsRefusedAndKeepsTheNotes) {
    frmFinalDisposition form;
    ShowActive(form);
    Notes(form)->setFocus();
    Notes(form)->SetText("Court order");
    Save(form);
    EXPECT_EQ(m_screen.TakeMessages(), MissingStatus);
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(form.Canceled());
    EXPECT_EQ(Notes(form)->Text(), "Court order");
    EXPECT_TRUE(Status(form)->isAncestorOf(QApplication::focusWidget()));
}

TEST_F(FinalDispositionTest, TheFormCanBeDestroyedBehindItsMessage) {
    auto* form = new frmFinalDisposition;
    ShowActive(*form);
    m_screen.WhileMessageOpen = [&](const RecordingScreen::Message&) { delete form; };
    Save(*form);
    EXPECT_EQ(m_screen.TakeMessages(), MissingStatus);
    EXPECT_EQ(ModuleForm::Count(), 0);
}

TEST_F(FinalDispositionTest, ReturnsTheStatusAndTheNotes) {
    WhileFormOpen<frmFinalDisposition>([](frmFinalDisposition& form) {
        Status(form)->SetValue(4);
        testing::Type(Notes(form)->Edit(), "Owner's \"receipt\"");
        Press(Notes(form)->Edit(), Qt::Key_Return);
        testing::Type(Notes(form)->Edit(), "filed");
        Save(form);
        EXPECT_FALSE(form.isVisible());
    });
    const auto result = GetDialogs().GetFinalDisposition();
    ASSERT_NE(result, nullptr);
    EXPECT_EQ(result->FinalDisposition, 4);
    EXPECT_EQ(result->Notes, "Owner's \"receipt\"\r\nfiled");
    EXPECT_EQ(ModuleForm::Count(), 0);
    EXPECT_THAT(m_screen.Messages(), IsEmpty());
}

TEST_F(FinalDispositionTest, NotesAreOptional) {
    WhileFormOpen<frmFinalDisposition>([](frmFinalDisposition& form) {
        Status(form)->SetValue(3);
        Save(form);
    });
    const auto result = GetDialogs().GetFinalDisposition();
    ASSERT_NE(result, nullptr);
    EXPECT_EQ(result->FinalDisposition, 3);
    EXPECT_EQ(result->Notes, "");
}

TEST_F(FinalDispositionTest, EveryWayOutButSaveReturnsNothingAndAsksNothing) {
    const std::function<void(frmFinalDisposition&)> waysOut[] = {
        Cancel, [](frmFinalDisposition& form) { Press(&form, Qt::Key_Escape); },
        [](frmFinalDisposition& form) { form.close(); }};
    for (const auto& leave : waysOut) {
        WhileFormOpen<frmFinalDisposition>([&](frmFinalDisposition& form) {
            Status(form)->SetValue(3);
            Notes(form)->SetText("Court order");
            leave(form);
            EXPECT_FALSE(form.isVisible());
            EXPECT_TRUE(form.Canceled());
        });
        EXPECT_EQ(GetDialogs().GetFinalDisposition(), nullptr);
        EXPECT_EQ(ModuleForm::Count(), 0);
    }
    EXPECT_THAT(m_screen.Messages(), IsEmpty());
}

TEST_F(FinalDispositionTest, AFailureToReadTheCodesIsRaised) {
    auto faults = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(faults);
    faults->FailAtStatement(1, Error(7, "Engine", "The link is down."));
    GetDialogs().SetParent(nullptr);  // to show the dialog would fail
    EXPECT_EQ(RaisedBy([] { GetDialogs().GetFinalDisposition(); }).Description(), "The link is down.");
    EXPECT_EQ(ModuleForm::Count(), 0);
}

TEST_F(FinalDispositionTest, TheFrameFollowsTheSizeOfTheForm) {
    frmFinalDisposition form;
    ShowActive(form);
    for (const QSize& size : {form.size(), QSize(640, 500)}) {
        form.setFixedSize(size);
        EXPECT_EQ(Find(form, "shpBorder")->geometry(), QRect(QPoint(), size));
        EXPECT_EQ(Find<Control>(form, "grpTitlebar")->pos(), QPoint(1, 1));
        EXPECT_EQ(Find<Control>(form, "grpTitlebar")->width(), size.width() - 2);
        EXPECT_EQ(Find(form, "lblTitle")->mapTo(&form, QPoint()).x(), Find(form, "Label5")->x());
        EXPECT_EQ(Find<Control>(form, "grpButtons")->geometry().bottom(), size.height() - 2);
        EXPECT_EQ(Find<Control>(form, "grpButtons")->width(), size.width() - 2);
        EXPECT_EQ(Find<GroupBox>(form, "grpButtons")->BackColor(), Theme::Get(Theme::Color::Panel));
        EXPECT_EQ(size.width() - Find<Control>(form, "btnSave")->geometry().right() - 2, 24);
    }
}

TEST_F(FinalDispositionTest, NothingOverlapsOrIsCutOff) {
    frmFinalDisposition form;
    ShowActive(form);
    QApplication::focusWidget()->clearFocus();  // hides the focus frame
    GeometryWalk walk({{MeantFault::Kind::Overlap, "shpBorder", "", "the frame is behind everything"}});
    EXPECT_THAT(walk.FaultsOf(form), IsEmpty());
    EXPECT_GT(walk.Visited(), 10);
}

TEST_F(FinalDispositionTest, TheStatusHasTheFocusAndTheButtonsComeLast) {
    frmFinalDisposition form;
    ShowActive(form);
    EXPECT_TRUE(Status(form)->isAncestorOf(QApplication::focusWidget()));
    EXPECT_EQ(TabOrder(form), (std::vector<std::string>{"dispositionField", "notesField", "btnCancel", "btnSave"}));
}

}  // namespace
}  // namespace quellbrook::testing
