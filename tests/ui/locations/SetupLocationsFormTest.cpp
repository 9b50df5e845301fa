#include "ui/locations/SetupLocationsForm.h"

#include "core/Singletons.h"
#include "tests/support/FaultInjectingEngine.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/ui/GeometryWalk.h"
#include "tests/support/ui/ScaledProcess.h"
#include "tests/ui/locations/SetupLocationsWizardTest.h"
#include "ui/common/ModalDialog.h"
#include "ui/platform/Twips.h"

#include <QPointer>
#include <QScreen>
#include <QTimer>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Message = RecordingScreen::Message;

const Message exitQuestion = {
    "You won't be able to use Quellbrook until you finish categorizing all of your existing storage locations.\r\n\r\n"
    "Are you sure you want to exit now?",
    36, "Exit Now?"};

class SetupLocationsFormTest : public SetupLocationsWizardTest {
protected:
    ~SetupLocationsFormTest() override { GetDialogs().SetParent(nullptr); }

    void OpenForm() {
        m_form = new frmSetupLocationsWizard;
        m_owned.reset(m_form);
        m_form->EnsureLoaded();
        ShowActive(*m_form);
        m_wizard = Find<SetupLocationsWizard>(*m_form, "wizard");
    }

    QPointer<frmSetupLocationsWizard> m_form;
    std::unique_ptr<frmSetupLocationsWizard> m_owned;
};

TEST_F(SetupLocationsFormTest, IsAWindowWithoutAnOwnerAndTheParentOfTheDialogs) {
    OpenForm();
    EXPECT_EQ(m_form->windowTitle(), "Quellbrook - Categorize Storage Locations");
    EXPECT_TRUE(m_form->isWindow());
    EXPECT_FALSE(m_form->isModal());
    EXPECT_EQ(m_form->parentWidget(), nullptr);
    EXPECT_EQ(GetDialogs().GetParent(), m_form);
    EXPECT_FALSE(m_form->Completed());
    EXPECT_EQ(m_wizard->TypeName(), "SetupLocationsWizard");
    EXPECT_EQ(SelectAll()->Caption(), "Select All");
    EXPECT_EQ(ModuleForm::Count(), 1);
}

TEST_F(SetupLocationsFormTest, TheWizardIsInsetByTheSameDistanceOnEverySide) {
    OpenForm();
    for (const QSize size : {QSize(960, 640), QSize(1200, 700), QSize(640, 520)}) {
        m_form->resize(size);
        EXPECT_EQ(m_wizard->Left(), 480);
        EXPECT_EQ(m_wizard->Top(), 480);
        EXPECT_EQ(m_wizard->Width(), ToTwips(size.width()) - 960);
        EXPECT_EQ(m_wizard->Height(), ToTwips(size.height()) - 960);
    }
}

TEST_F(SetupLocationsFormTest, IsCenteredOnTheScreenAndLeavesSpaceForItsFrame) {
    EXPECT_EQ(frmSetupLocationsWizard::GeometryOn(QRect(0, 0, 1920, 1080)), QRect(420, 160, 1080, 720));
    EXPECT_EQ(frmSetupLocationsWizard::GeometryOn(QRect(1920, 30, 1024, 640)), QRect(1940, 30, 984, 600));
}

TEST_F(SetupLocationsFormTest, OnAScreenThatIsTooSmallItsUpperLeftCornerIsVisible) {
    EXPECT_EQ(frmSetupLocationsWizard::GeometryOn(QRect(50, 30, 600, 400)), QRect(50, 30, 640, 520));
}

TEST_F(SetupLocationsFormTest, HasTheGeometryForItsScreenAndCanBeResized) {
    OpenForm();
    const QSize smallest(640, 520);
    const QRect expected = frmSetupLocationsWizard::GeometryOn(m_form->screen()->availableGeometry());
    EXPECT_EQ(m_form->pos(), expected.topLeft());
    EXPECT_EQ(m_form->size(), expected.size());
    EXPECT_EQ(m_form->minimumSize(), smallest);
    m_form->resize(10, 10);
    EXPECT_EQ(m_form->size(), smallest);
    m_form->resize(1920, 1080);
    EXPECT_EQ(m_form->size(), QSize(1920, 1080));
}

TEST_F(SetupLocationsFormTest, AUserWhoClosesItIsAskedAndCanStay) {
    OpenForm();
    m_screen.AnswerNext(MessageAnswer::No);
    EXPECT_FALSE(m_form->close());
    EXPECT_THAT(m_screen.TakeMessages(), ElementsAre(exitQuestion));
    EXPECT_TRUE(m_form->isVisible());
}

TEST_F(SetupLocationsFormTest, AUserWhoStillLeavesHasNotCompleted) {
    OpenForm();
    m_screen.AnswerNext(MessageAnswer::Yes);
    m_form->close();
    EXPECT_THAT(m_screen.TakeMessages(), ElementsAre(exitQuestion));
    EXPECT_FALSE(m_form->isVisible());
    EXPECT_FALSE(m_form->Completed());
    EXPECT_EQ(Stored()[0], "Auction 1 /0/");
}

TEST_F(SetupLocationsFormTest, EscapeAsksToo) {
    OpenForm();
    GoToPage(1);
    m_screen.AnswerNext(MessageAnswer::No);
    SendKey(*m_form, Qt::Key_Escape);
    EXPECT_THAT(m_screen.TakeMessages(), ElementsAre(exitQuestion));
    EXPECT_TRUE(m_form->isVisible());
    EXPECT_EQ(Text("lblPrompt"), "Which of These Locations are Sign-Out Locations?");
}

TEST_F(SetupLocationsFormTest, ClosingByCodeDoesNotAsk) {
    OpenForm();
    m_form->done(QDialog::Rejected);
    EXPECT_THAT(m_screen.Messages(), IsEmpty());
    EXPECT_FALSE(m_form->isVisible());
    EXPECT_FALSE(m_form->Completed());
}

TEST_F(SetupLocationsFormTest, TheEndOfTheWizardClosesItWithoutAQuestion) {
    OpenForm();
    Click(SelectAll());
    Next();
    Next();
    EXPECT_THAT(m_screen.Messages(), IsEmpty());
    EXPECT_FALSE(m_form->isVisible());
    EXPECT_TRUE(m_form->Completed());
    EXPECT_EQ(Stored()[0], "Auction 8 /0/");
}

TEST_F(SetupLocationsFormTest, AFailureAtTheEndLeavesItOpen) {
    OpenForm();
    Click(SelectAll());
    Next();
    auto faults = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(faults);
    faults->FailAtCommit(Error(7, "Engine", "The disk is full."));
    Next();
    EXPECT_EQ(
        m_screen.TakeMessages(),
        OneMessage("Error assigning location categories: Could not move location 'Auction' into 'Final Disposition'. "
                   "\r\n\r\nThe disk is full.",
                   16, "Error"));
    EXPECT_TRUE(m_form->isVisible());
    EXPECT_FALSE(m_form->Completed());
}

TEST_F(SetupLocationsFormTest, MayBeDestroyedWhileTheQuestionIsOpen) {
    for (const bool byKey : {true, false}) {
        OpenForm();
        m_screen.AnswerNext(MessageAnswer::Yes);
        m_screen.WhileMessageOpen = [this](const Message&) { m_owned.reset(); };
        if (byKey)
            SendKey(*m_form, Qt::Key_Escape);
        else
            m_form->close();
        EXPECT_TRUE(m_form.isNull());
        EXPECT_EQ(m_screen.TakeMessages().size(), 1u);
    }
}

TEST_F(SetupLocationsFormTest, MayBeClosedByCodeWhileTheQuestionIsOpen) {
    OpenForm();
    m_screen.AnswerNext(MessageAnswer::No);
    m_screen.WhileMessageOpen = [this](const Message&) { m_form->done(QDialog::Rejected); };
    m_form->close();
    EXPECT_FALSE(m_form->isVisible());
    EXPECT_EQ(m_screen.TakeMessages().size(), 1u);
}

TEST_F(SetupLocationsFormTest, MayBeDestroyedWhileAMessageOfAPageIsOpen) {
    OpenForm();
    GoToPage(3);
    m_screen.WhileMessageOpen = [this](const Message&) { m_owned.reset(); };
    Next();
    EXPECT_TRUE(m_form.isNull());
    EXPECT_EQ(m_screen.TakeMessages().size(), 1u);
}

class EveryPage : public SetupLocationsFormTest, public ::testing::WithParamInterface<std::tuple<bool, QSize>> {
protected:
    EveryPage() { Theme::Install(std::get<0>(GetParam())); }
    ~EveryPage() override { Theme::Install(false); }

    void Walk() {
        GeometryWalk walk({{MeantFault::Kind::Overlap, "QFocusFrame", "", "the mark lies around what has the focus"}});
        EXPECT_THAT(walk.FaultsOf(*m_form), IsEmpty());
        EXPECT_GT(walk.Visited(), 10);
    }
};

TEST_P(EveryPage, NothingOverlapsOrIsCutOff) {
    OpenForm();
    m_form->resize(std::get<1>(GetParam()));
    for (int page = 0; page < 4; ++page) {
        ServeEvents();
        Walk();
        Click(SelectAll());
        Walk();
        Click(SelectAll());
        if (page < 3) Next();
    }
    for (int page = 2; page >= 0; --page) {
        Back();
        Click(SelectAll());
        Next();
        ASSERT_TRUE(IsShown("picNoLocations"));
        Walk();
        Back();
        Click(SelectAll());
    }
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, EveryPage,
                         ::testing::Combine(::testing::Bool(),
                                            ::testing::Values(QSize(640, 520), QSize(960, 640), QSize(1280, 768))));

TEST(EveryPageAtScaleTwo, HasNoFaultsEither) {
    ExpectTheSameAtScaleTwo("*/EveryPage.*:WizardLayoutTest.*", "LightAndDark/EveryPage.NothingOverlapsOrIsCutOff/0");
}

// The gate with the real screen: its dialogs are real.
class GateTest : public SetupLocationsWizardTest {
protected:
    GateTest() {
        m_environment->screen = &m_wizardScreen;
        m_host.resize(800, 600);
        ShowActive(m_host);
        SetHostAsParent();
    }
    ~GateTest() override { GetDialogs().SetParent(nullptr); }

    void SetHostAsParent() { GetDialogs().SetParent(std::make_shared<WindowReference>(&m_host)); }

    static frmSetupLocationsWizard* OpenWizard() {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            auto* form = qobject_cast<frmSetupLocationsWizard*>(window);
            if (form && form->isVisible()) return form;
        }
        return nullptr;
    }
    // Runs from the event loop, with the wizard that is then open.
    void Later(std::function<void(frmSetupLocationsWizard&)> act) {
        QTimer::singleShot(0, &m_host, [this, act = std::move(act)] {
            frmSetupLocationsWizard* form = OpenWizard();
            ASSERT_NE(form, nullptr);
            m_wizard = Find<SetupLocationsWizard>(*form, "wizard");
            act(*form);
        });
    }
    // Runs in the loop of the dialog that opens next.
    void InDialog(std::function<void(frmModal&)> act) {
        QTimer::singleShot(0, &m_host, [act = std::move(act)] {
            auto* dialog = qobject_cast<frmModal*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            act(*dialog);
        });
    }
    static void Answer(frmModal& dialog, size_t button) { Click(FindAll<FlatButton>(dialog, "button").at(button)); }
    void Complete() {
        Click(SelectAll());
        Next();
        Next();
    }
    static bool RunGate() { return GetSingletons().InitializeQuellbrook(); }

    QWidget m_host;
    WizardScreen m_wizardScreen;
};

TEST_F(GateTest, OpensTheModuleAfterTheWizardHasEmptiedTheRoot) {
    QPointer<frmSetupLocationsWizard> wizard;
    Later([&](frmSetupLocationsWizard& form) {
        wizard = &form;
        Complete();
    });
    EXPECT_TRUE(RunGate());
    EXPECT_TRUE(wizard.isNull());
    EXPECT_EQ(Stored()[0], "Auction 8 /0/");
    EXPECT_EQ(ModuleForm::Count(), 0);
}

TEST_F(GateTest, StaysShutForAUserWhoLeavesTheWizard) {
    Later([this](frmSetupLocationsWizard& form) {
        InDialog([](frmModal& dialog) { Answer(dialog, 0); });
        form.close();
    });
    EXPECT_FALSE(RunGate());
    EXPECT_EQ(ModuleForm::Count(), 0);
}

TEST_F(GateTest, OpensANewWizardIfLocationsAreLeftAndKeepsTheClosedOneAsParent) {
    QPointer<frmSetupLocationsWizard> first;
    Later([&](frmSetupLocationsWizard& form) {
        first = &form;
        Click(SelectAll());
        Next();
        Add("Late arrival");
        Later([&](frmSetupLocationsWizard& second) {
            EXPECT_NE(&second, first);
            ASSERT_FALSE(first.isNull());
            EXPECT_FALSE(first->isVisible());
            EXPECT_TRUE(first->Completed());
            EXPECT_EQ(GetDialogs().GetParent(), &second);
            EXPECT_THAT(Rows(), ElementsAre("Late arrival"));
            Complete();
        });
        Next();
    });
    EXPECT_TRUE(RunGate());
    EXPECT_EQ(ModuleForm::Count(), 0);
}

TEST_F(GateTest, ShowsItsMessagesOverTheClosedWizard) {
    Later([&](frmSetupLocationsWizard& form) {
        m_session->Revoke(GetPermissions().VIEW_PROPERTY());
        m_session->Revoke(GetPermissions().VIEW_VEHICLE());
        InDialog([&form](frmModal& dialog) {
            EXPECT_EQ(GetDialogs().GetParent(), &form);
            EXPECT_EQ(ToUtf8(Find<Label>(dialog, "lblTitle")->Caption()), "Insufficient Permissions");
            Answer(dialog, 0);
        });
        Complete();
    });
    EXPECT_FALSE(RunGate());
}

TEST_F(GateTest, ANewWizardMayBeDestroyedByTheHost) {
    Later([](frmSetupLocationsWizard& form) { delete &form; });
    EXPECT_FALSE(RunGate());
    EXPECT_EQ(ModuleForm::Count(), 0);
}

TEST_F(GateTest, TheHostMayLogOutWhileTheQuestionIsOpen) {
    Later([this](frmSetupLocationsWizard& form) {
        InDialog([](frmModal& dialog) {
            HostServices::Current().SetSession(nullptr);
            Answer(dialog, 1);
        });
        form.close();
        ASSERT_TRUE(form.isVisible());
        Complete();
    });
    EXPECT_EQ(RaisedBy([] { RunGate(); }).Number(), ErrorNumber::NullObject);
    EXPECT_EQ(Stored()[0], "Auction 8 /0/");
}

TEST_F(GateTest, QuittingTheApplicationClosesTheWizardWithoutAQuestion) {
    bool returned = false;
    QTimer::singleShot(0, &m_host, [&] {
        Later([](frmSetupLocationsWizard&) { QApplication::quit(); });
        EXPECT_FALSE(RunGate());
        returned = true;
    });
    QApplication::exec();
    EXPECT_TRUE(returned);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(GateTest, TheApplicationMayQuitWhileTheQuestionIsOpen) {
    for (const bool byExit : {false, true}) {
        bool returned = false;
        QTimer::singleShot(0, &m_host, [&] {
            Later([&](frmSetupLocationsWizard& form) {
                InDialog([byExit](frmModal&) {
                    if (byExit)
                        QApplication::exit(3);
                    else
                        QApplication::quit();
                });
                form.close();
            });
            EXPECT_FALSE(RunGate());
            returned = true;
        });
        QApplication::exec();
        EXPECT_TRUE(returned);
        EXPECT_EQ(OpenWizard(), nullptr);
        EXPECT_EQ(ModuleForm::Count(), 0);
        ShowActive(m_host);
        SetHostAsParent();
    }
}

}  // namespace
}  // namespace quellbrook::testing
