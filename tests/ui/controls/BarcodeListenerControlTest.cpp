#include "ui/controls/BarcodeListenerControl.h"

#include "base/Clock.h"
#include "tests/support/FixedClock.h"
#include "tests/support/ManualTimer.h"
#include "tests/support/ui/Scanner.h"
#include "tests/ui/controls/ControlsTest.h"
#include "ui/platform/WidgetMessageHook.h"

#include <QDialog>
#include <QLineEdit>
#include <QMenu>

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

class PlainView : public View {
public:
    using View::View;
    std::string TypeName() const override { return "PlainView"; }
};

class BarcodeListenerControlTest : public ControlsTest {
protected:
    BarcodeListenerControlTest() {
        m_environment->clock = &m_clock;
        m_environment->makeMessageHook = MakeWidgetMessageHook;
        m_view = MakeView();
        m_listener = MakeListener(m_view);
        m_edit = new QLineEdit(m_view);
        m_edit->setAccessibleName("field");
        ShowActive(m_window);
        m_edit->setFocus();
    }
    ~BarcodeListenerControlTest() override {
        delete m_listener;
        SetInsideDesigner(false);
    }

    View* MakeView() {
        auto* view = new PlainView(&m_window);
        view->setGeometry(0, 40, 800, 560);
        return view;
    }
    BarcodeListenerControl* MakeListener(QWidget* holder) {
        auto* listener = new BarcodeListenerControl(holder);
        listener->BarcodeScanned().connect(
            [this](int32_t type, const std::string& data) { m_scans.emplace_back(type, data); });
        return listener;
    }

    // The scan and its delivery.
    void ScanAndWait(const char* text) {
        Scan(text);
        m_timers.Tick(1);
        m_clock.Advance(150);
    }

    ManualTimers m_timers{m_environment};
    FixedClock m_clock;
    View* m_view;
    BarcodeListenerControl* m_listener;
    QLineEdit* m_edit;
    std::vector<std::pair<int32_t, std::string>> m_scans;
};

TEST_F(BarcodeListenerControlTest, ConsumesAScanInAFieldAndRaisesIt) {
    m_edit->setText("kept");
    m_edit->selectAll();
    ScanAndWait("P0000000123");
    EXPECT_THAT(m_scans, ElementsAre(Pair(BarcodeType::Property, "0000000123")));
    EXPECT_EQ(m_edit->text(), "kept");
    TypeAsScanner("typed");
    EXPECT_EQ(m_edit->text(), "typed");
}

TEST_F(BarcodeListenerControlTest, HasNoSizeAndIsStillVisible) {
    EXPECT_EQ(m_listener->size(), QSize(0, 0));
    m_listener->resize(50, 50);
    EXPECT_EQ(m_listener->size(), QSize(0, 0));
    EXPECT_TRUE(m_listener->isVisible());
    EXPECT_TRUE(m_listener->IsListening());
}

TEST_F(BarcodeListenerControlTest, DoesNotListenWhileItOrItsViewIsHiddenOrDisabled) {
    for (QWidget* widget : {static_cast<QWidget*>(m_listener), static_cast<QWidget*>(m_view)}) {
        widget->hide();
        EXPECT_FALSE(m_listener->IsListening());
        widget->show();
        widget->setEnabled(false);
        EXPECT_FALSE(m_listener->IsListening());
        widget->setEnabled(true);
        EXPECT_TRUE(m_listener->IsListening());
    }
    m_edit->setFocus();
    m_listener->setEnabled(false);
    ScanAndWait("P1");
    EXPECT_THAT(m_scans, IsEmpty());
    EXPECT_EQ(m_edit->text(), "P1") << "keys it does not consume are typed";
}

TEST_F(BarcodeListenerControlTest, OfTwoStackedViewsTheUpperOneReceivesTheScan) {
    View* upper = MakeView();
    BarcodeListenerControl* other = MakeListener(upper);
    upper->show();
    EXPECT_FALSE(m_listener->IsListening());
    EXPECT_TRUE(other->IsListening());
    ScanAndWait("L12");
    EXPECT_THAT(m_scans, ElementsAre(Pair(BarcodeType::Location, "12")));
    m_view->raise();
    EXPECT_TRUE(m_listener->IsListening());
    EXPECT_FALSE(other->IsListening());
    ScanAndWait("V7");
    EXPECT_EQ(m_scans.size(), 2u);
    m_view->hide();
    ScanAndWait("V8");
    EXPECT_THAT(m_scans.back(), Pair(BarcodeType::Vehicle, "8"));
    delete other;
}

TEST_F(BarcodeListenerControlTest, APartlyCoveredViewStillReceivesScans) {
    View* strip = MakeView();
    strip->setGeometry(0, 500, 800, 100);
    strip->show();
    EXPECT_TRUE(m_listener->IsListening());
    QWidget shade(&m_window);
    shade.setGeometry(m_window.rect());
    shade.show();
    EXPECT_TRUE(m_listener->IsListening()) << "the dialog does not cover the view";
}

TEST_F(BarcodeListenerControlTest, AScanWhileADialogIsActiveIsDropped) {
    QDialog dialog(&m_window);
    dialog.setModal(true);
    QLineEdit field(&dialog);
    field.setAccessibleName("field of the dialog");
    ShowActive(dialog);
    field.setFocus();
    ScanAndWait("P1");
    EXPECT_THAT(m_scans, IsEmpty());
    EXPECT_EQ(field.text(), "");
    dialog.close();
    ShowActive(m_window);
    ScanAndWait("P2");
    EXPECT_THAT(m_scans, ElementsAre(Pair(BarcodeType::Property, "2")));
}

TEST_F(BarcodeListenerControlTest, AScanClosesTheMenusBeforeItIsRaised) {
    QMenu menu;
    menu.addAction("Open");
    menu.popup(m_window.mapToGlobal(QPoint(10, 10)));
    ASSERT_EQ(QApplication::activePopupWidget(), &menu);
    std::vector<bool> menuIsOpen;
    m_listener->BarcodeScanned().connect([&](int32_t, const std::string&) { menuIsOpen.push_back(menu.isVisible()); },
                                         boost::signals2::at_front);
    ScanAndWait("P1");
    EXPECT_THAT(menuIsOpen, ElementsAre(false));
}

TEST_F(BarcodeListenerControlTest, IsHookedFromTheFirstShowUntilDestruction) {
    BarcodeListenerControl hidden(m_view);
    EXPECT_FALSE(hidden.IsListening());
    delete m_listener;
    m_listener = nullptr;
    m_edit->setFocus();
    Scan("X9");
    EXPECT_EQ(m_edit->text(), "X9");
    EXPECT_THAT(m_scans, IsEmpty());
}

TEST_F(BarcodeListenerControlTest, InAFormDesignerItShowsAnIconAndInstallsNoHook) {
    SetInsideDesigner(true);
    m_environment->makeMessageHook = []() -> std::unique_ptr<MessageHook> {
        ADD_FAILURE() << "A hook was requested.";
        return nullptr;
    };
    QWidget form;
    form.resize(200, 200);
    auto* control = new BarcodeListenerControl(&form);
    ShowActive(form);
    EXPECT_EQ(control->size(), QSize(32, 32));
    EXPECT_TRUE(HasColor(Grab(*control), control->rect(), Theme::Get(Theme::Color::Text)));
}

}  // namespace
}  // namespace quellbrook::testing
