#include "ui/common/FormLoop.h"

#include "tests/ui/common/ScreenTest.h"

namespace quellbrook::testing {
namespace {

// A wizard form that becomes the dialog parent.
class WizardForm : public ModuleForm, public SetupWizard {
public:
    explicit WizardForm(int& living) : m_living(living) {
        ++m_living;
        GetScreen().SetDialogParent(std::make_shared<WindowReference>(this));
    }
    ~WizardForm() override { --m_living; }

    bool Completed() const override { return result() == Accepted; }

private:
    int& m_living;
};

class ScreenWithWizard : public WidgetScreen {
public:
    std::unique_ptr<SetupWizard> RunSetupWizard() override {
        auto form = std::make_unique<WizardForm>(living);
        m_form = form.get();
        RunUntilClosed(*form);
        return form;
    }
    WizardForm& Form() { return *m_form; }

    int living = 0;

private:
    QPointer<WizardForm> m_form;
};

class FormLoopTest : public ScreenTest {
protected:
    FormLoopTest() { m_environment->screen = &m_screen; }

    // Runs the wizard; the action happens while its form is open.
    std::unique_ptr<SetupWizard> RunWizard(std::function<void()> whileOpen) {
        QTimer::singleShot(0, &m_host, [this, whileOpen = std::move(whileOpen)] {
            EXPECT_TRUE(m_screen.Form().isVisible());
            EXPECT_FALSE(m_screen.Form().isModal());
            EXPECT_EQ(m_screen.Form().parentWidget(), nullptr);
            whileOpen();
        });
        return GetScreen().RunSetupWizard();
    }

    ScreenWithWizard m_screen;
};

TEST_F(FormLoopTest, AFormThatIsAcceptedEndsTheWait) {
    const auto wizard = RunWizard([this] { m_screen.Form().accept(); });
    EXPECT_TRUE(wizard->Completed());
    EXPECT_FALSE(m_screen.Form().isVisible());
}

TEST_F(FormLoopTest, AFormThatTheUserClosesEndsTheWait) {
    const auto wizard = RunWizard([this] { m_screen.Form().close(); });
    EXPECT_FALSE(wizard->Completed());
}

TEST_F(FormLoopTest, AFormThatIsDestroyedEndsTheWait) {
    const QPointer<QDialog> form = new QDialog;
    QTimer::singleShot(0, &m_host, [form] { delete form; });
    RunUntilClosed(*form);
    EXPECT_TRUE(form.isNull());
}

TEST_F(FormLoopTest, TheHostsWindowsAreServedWhileTheFormIsOpen) {
    int ticks = 0;
    QTimer hostTimer;
    QObject::connect(&hostTimer, &QTimer::timeout, [&] {
        if (++ticks == 3) m_screen.Form().accept();
    });
    RunWizard([&] { hostTimer.start(1); });
    EXPECT_EQ(ticks, 3);
}

TEST_F(FormLoopTest, TheClosedFormLivesAndParentsDialogsUntilItsOwnerDropsIt) {
    auto wizard = RunWizard([this] { m_screen.Form().accept(); });
    EXPECT_EQ(GetDialogs().GetParent(), &m_screen.Form());
    bool shown = false;
    WhenOpen<frmModal>([&](frmModal&) { shown = true; });
    ShowMessage("Is there a parent?", MessageStyle::Critical, "Question");
    EXPECT_TRUE(shown);
    EXPECT_EQ(m_screen.living, 1);
    wizard.reset();
    EXPECT_EQ(m_screen.living, 0);
}

TEST_F(FormLoopTest, QuittingTheApplicationEndsTheWaitAndTheWizardIsNotCompleted) {
    bool returned = false;
    QTimer::singleShot(0, &m_host, [&] {
        const auto wizard = RunWizard([] { QApplication::quit(); });
        EXPECT_FALSE(wizard->Completed());
        EXPECT_FALSE(m_screen.Form().isVisible());
        returned = true;
    });
    QApplication::exec();
    EXPECT_TRUE(returned);
}

TEST_F(FormLoopTest, ExitingTheApplicationHidesAFormThatIsStillOpen) {
    bool returned = false;
    QTimer::singleShot(0, &m_host, [&] {
        const auto wizard = RunWizard([] { QApplication::exit(3); });
        EXPECT_FALSE(wizard->Completed());
        EXPECT_FALSE(m_screen.Form().isVisible());
        returned = true;
    });
    EXPECT_EQ(QApplication::exec(), 3);
    EXPECT_TRUE(returned);
}

}  // namespace
}  // namespace quellbrook::testing
