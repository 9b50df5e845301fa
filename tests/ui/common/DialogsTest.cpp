#include "ui/common/Dialogs.h"

#include "base/Error.h"
#include "tests/support/RaisedBy.h"
#include "tests/ui/common/ScreenTest.h"
#include "ui/platform/MousePointer.h"
#include "ui/style/Theme.h"

#include <QScreen>

#include <optional>

namespace quellbrook {

namespace {

using testing::RaisedBy;

class SampleForm : public ModuleForm {
    Q_OBJECT

public:
    int loads = 0;
    int cancels = 0;
    bool declines = false;

protected:
    void OnLoad() override {
        ++loads;
        resize(301, 203);
    }
    void OnCancel() override {
        ++cancels;
        if (!declines) done(0);
    }
};

// Records its position when its native window is created.
class FramelessForm : public SampleForm {
    Q_OBJECT

public:
    FramelessForm() { setWindowFlag(Qt::FramelessWindowHint); }
    std::optional<QPoint> madeAt;

protected:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::WinIdChange && internalWinId()) madeAt = pos();
        return SampleForm::event(event);
    }
};

class OtherObject : public Object {
public:
    std::string TypeName() const override { return "Other"; }
};

class DialogsTest : public testing::ScreenTest {
protected:
    QPoint CenterOf(const QWidget& window) { return window.frameGeometry().center(); }
};

}  // namespace

TEST_F(DialogsTest, AFormIsLoadedOnceBeforeItIsCentered) {
    SampleForm form;
    WhenOpen<SampleForm>([](SampleForm& open) { EXPECT_EQ(open.size(), QSize(301, 203)); });
    EXPECT_TRUE(GetDialogs().ShowForm(form).IsEmpty());
    EXPECT_EQ(form.loads, 1);
}

TEST_F(DialogsTest, AFormIsCenteredOverItsParent) {
    SampleForm form;
    WhenOpen<SampleForm>([this](SampleForm& open) {
        EXPECT_LE(std::abs(CenterOf(open).x() - CenterOf(m_host).x()), 1);
        EXPECT_LE(std::abs(CenterOf(open).y() - CenterOf(m_host).y()), 1);
    });
    ShowFormCentered(form);
}

TEST_F(DialogsTest, AFormLargerThanItsParentStaysOnTheScreen) {
    m_host.setGeometry(0, 0, 200, 100);
    SampleForm form;
    WhenOpen<SampleForm>([this](SampleForm& open) {
        EXPECT_EQ(open.frameGeometry().topLeft(), open.screen()->availableGeometry().topLeft());
    });
    ShowFormCentered(form);
}

TEST_F(DialogsTest, AFormOverAParentThatIsPartlyOutsideStaysOnTheScreen) {
    const QRect screen = m_host.screen()->availableGeometry();
    for (const QPoint corner : {QPoint(-500, -400), screen.bottomRight() - QPoint(100, 80)}) {
        m_host.move(corner);
        SampleForm form;
        WhenOpen<SampleForm>([&](SampleForm& open) { EXPECT_TRUE(screen.contains(open.frameGeometry())); });
        ShowFormCentered(form);
    }
}

TEST_F(DialogsTest, TheWindowOfAFormIsCreatedAtItsFinalPosition) {
    FramelessForm form;
    WhenOpen<FramelessForm>([](FramelessForm& open) { EXPECT_EQ(open.madeAt, open.pos()); });
    ShowFormCentered(form);
    EXPECT_NE(form.madeAt, QPoint(0, 0));
}

TEST_F(DialogsTest, AFormIsModalAndOwnedByItsParentsWindow) {
    SampleForm form;
    WhenOpen<SampleForm>([this](SampleForm& open) {
        EXPECT_EQ(open.windowModality(), Qt::ApplicationModal);
        EXPECT_EQ(open.windowHandle()->transientParent(), m_host.windowHandle());
    });
    ShowFormCentered(form);
}

TEST_F(DialogsTest, WithoutAParentAFormFailsAfterItsLoading) {
    GetDialogs().SetParent(nullptr);
    SampleForm form;
    const Error error = RaisedBy([&] { ShowFormCentered(form); });
    EXPECT_EQ(error.Number(), ErrorNumber::NullObject);
    EXPECT_EQ(error.Source(), "Dialogs.ShowForm");
    EXPECT_EQ(error.Description(), "No dialog parent has been set.");
    EXPECT_EQ(form.loads, 1);
}

TEST_F(DialogsTest, ADestroyedParentCountsAsNone) {
    auto window = std::make_unique<QWidget>();
    GetDialogs().SetParent(std::make_shared<WindowReference>(window.get()));
    EXPECT_EQ(GetDialogs().GetParent(), window.get());
    window.reset();
    EXPECT_EQ(GetDialogs().GetParent(), nullptr);
    EXPECT_EQ(RaisedBy([] { ShowMessage("Done.", 0, "Notice"); }).Number(), ErrorNumber::NullObject);
}

TEST_F(DialogsTest, OnlyAWindowCanBeTheParent) {
    const Error error = RaisedBy([] { GetDialogs().SetParent(std::make_shared<OtherObject>()); });
    EXPECT_EQ(error.Number(), ErrorNumber::TypeMismatch);
    EXPECT_EQ(error.Source(), "Dialogs.SetParent");
    EXPECT_EQ(GetDialogs().GetParent(), &m_host);
}

TEST_F(DialogsTest, AParentDestroyedWhileAFormIsOpenDoesNotAffectTheForm) {
    auto window = std::make_unique<QWidget>();
    window->show();
    GetDialogs().SetParent(std::make_shared<WindowReference>(window.get()));
    WhenOpen<frmModal>([&](frmModal& form) {
        window.reset();
        EXPECT_TRUE(form.isVisible());
        testing::Press(&form, Qt::Key_Escape);
    });
    EXPECT_EQ(ShowMessage("Go on?", 36, "Question"), 7);
}

TEST_F(DialogsTest, TheParentsWindowIsDimmedWhileAFormIsOpen) {
    m_host.setStyleSheet("#host { background: white }");
    const QPoint corner(3, 3);
    EXPECT_EQ(testing::PixelAt(testing::Grab(m_host), corner), QColor(Qt::white));
    SampleForm form;
    WhenOpen<SampleForm>([&](SampleForm&) {
        const QColor dimmed = testing::PixelAt(testing::Grab(m_host), corner);
        EXPECT_NEAR(dimmed.red(), 0.55 * 255 + 0.45 * 0x14, 2);
        EXPECT_NEAR(dimmed.blue(), 0.55 * 255 + 0.45 * 0x1E, 2);
        m_host.resize(700, 500);
        EXPECT_EQ(testing::PixelAt(testing::Grab(m_host), QPoint(690, 490)), dimmed);
    });
    ShowFormCentered(form);
    EXPECT_EQ(testing::PixelAt(testing::Grab(m_host), corner), QColor(Qt::white));
}

TEST_F(DialogsTest, AFormOverAFormDimsNoMore) {
    m_host.setStyleSheet("#host { background: white }");
    QColor once;
    SampleForm outer;
    WhenOpen<SampleForm>([&](SampleForm&) {
        once = testing::PixelAt(testing::Grab(m_host), QPoint(3, 3));
        WhenOpen<frmModal>([&](frmModal&) { EXPECT_EQ(testing::PixelAt(testing::Grab(m_host), QPoint(3, 3)), once); });
        ShowMessage("Done.", 0, "Notice");
        EXPECT_EQ(testing::PixelAt(testing::Grab(m_host), QPoint(3, 3)), once);
    });
    ShowFormCentered(outer);
}

TEST_F(DialogsTest, FormsAreCountedAsLongAsTheyLive) {
    EXPECT_EQ(GetScreen().OpenFormCount(), 0);
    SampleForm hidden;
    EXPECT_EQ(GetScreen().OpenFormCount(), 1);
    WhenOpen<frmModal>([](frmModal&) { EXPECT_EQ(GetScreen().OpenFormCount(), 2); });
    ShowMessage("Done.", 0, "Notice");
    EXPECT_EQ(GetScreen().OpenFormCount(), 1);
}

TEST_F(DialogsTest, AFormMayDeclineToClose) {
    SampleForm form;
    form.declines = true;
    WhenOpen<SampleForm>([](SampleForm& open) {
        open.close();
        EXPECT_TRUE(open.isVisible());
        EXPECT_EQ(open.cancels, 1);
        testing::Press(&open, Qt::Key_Escape);
        EXPECT_TRUE(open.isVisible());
        EXPECT_EQ(open.cancels, 2);
    });
    ShowFormCentered(form);
}

TEST_F(DialogsTest, ADialogShowsTheArrowOverItselfAndTheHourglassReturns) {
    SetMousePointer(MousePointer::Hourglass);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    WhenOpen<frmModal>([](frmModal&) {
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        EXPECT_EQ(GetMousePointer(), MousePointer::Hourglass);
    });
    ShowMessage("Done.", 0, "Notice");
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
    SetMousePointer(MousePointer::Default);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

}  // namespace quellbrook

#include "DialogsTest.moc"
