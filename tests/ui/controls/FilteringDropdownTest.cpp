#include "tests/ui/controls/FilteringDropdownTest.h"

#include "ui/style/Theme.h"

#include <QScrollBar>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(FilteringDropdownTest, TypingListsTheEntriesThatContainTheText) {
    TypeText("lab");
    EXPECT_EQ(Text(), "lab");
    EXPECT_THAT(Listed(), ElementsAre("Crime Lab", "Crime Lab \u00BB Biology", "Crime Lab \u00BB Latent Prints"));
    TypeText(" ");
    EXPECT_THAT(Listed(), ElementsAre("Crime Lab", "Crime Lab \u00BB Biology", "Crime Lab \u00BB Latent Prints"));
    Key(Qt::Key_A, Qt::ControlModifier);
    TypeText("LATENT");
    EXPECT_THAT(Listed(), ElementsAre("Crime Lab \u00BB Latent Prints", "Zone 1 \u00BB Latent <b>*</b>"));
    EXPECT_EQ(m_dropdown.ListIndex(), 1);
    EXPECT_EQ(m_clicks, 0);
}

TEST_F(FilteringDropdownTest, ATextThatMatchesNothingClosesTheListUntilItMatchesAgain) {
    TypeText("biox");
    EXPECT_EQ(Text(), "biox");
    EXPECT_FALSE(IsOpen());
    Key(Qt::Key_Backspace);
    EXPECT_THAT(Listed(), ElementsAre("Crime Lab \u00BB Biology"));
}

TEST_F(FilteringDropdownTest, WithoutATextTheListShowsEverything) {
    TypeText("b");
    Key(Qt::Key_Backspace);
    EXPECT_EQ(Text(), "");
    EXPECT_EQ(Listed().size(), 5u);
    EXPECT_EQ(Highlighted(), "Crime Lab");
}

TEST_F(FilteringDropdownTest, TheTextIsNoPattern) {
    for (const char* text : {"*", "<b>", "<b>*</b>"}) {
        Key(Qt::Key_A, Qt::ControlModifier);
        TypeText(text);
        EXPECT_THAT(Listed(), ElementsAre("Zone 1 \u00BB Latent <b>*</b>")) << text;
    }
    for (const char* text : {".", "?", "c*b", "%", "&lt;"}) {
        Key(Qt::Key_A, Qt::ControlModifier);
        TypeText(text);
        EXPECT_THAT(Listed(), IsEmpty()) << text;
    }
}

TEST_F(FilteringDropdownTest, TheEditIsHiddenAfterTheFieldIsLeft) {
    TypeText("lab");
    EXPECT_TRUE(m_box->lineEdit()->isVisible());
    Key(Qt::Key_Escape);
    TypeText("zone");
    Key(Qt::Key_Return);
    Key(Qt::Key_End);
    EXPECT_TRUE(m_box->lineEdit()->isVisible()) << "for the cursor";
    m_next.setFocus();
    EXPECT_FALSE(m_box->lineEdit()->isVisible());
}

TEST_F(FilteringDropdownTest, EnterChoosesTheFirstMatch) {
    TypeText("latent");
    Key(Qt::Key_Return);
    ExpectChoice(3, 1);
    TypeText("bio");
    Key(Qt::Key_Enter, Qt::KeypadModifier);
    ExpectChoice(2, 2);
    TypeText("Crime Lab");
    Key(Qt::Key_Return);
    ExpectChoice(1, 3);
}

TEST_F(FilteringDropdownTest, TheArrowKeysMoveInTheOpenListAndStopAtItsEnds) {
    TypeText("latent");
    Key(Qt::Key_Down);
    EXPECT_EQ(Highlighted(), "Zone 1 \u00BB Latent <b>*</b>");
    Key(Qt::Key_Down);
    EXPECT_EQ(Highlighted(), "Zone 1 \u00BB Latent <b>*</b>");
    EXPECT_EQ(Text(), "latent");
    EXPECT_EQ(m_clicks, 0);
    Key(Qt::Key_Return);
    ExpectChoice(4, 1);
}

TEST_F(FilteringDropdownTest, WithoutAChoiceTheFirstArrowKeyHighlightsTheFirstEntry) {
    m_dropdown.SetListIndex(-1);
    Key(Qt::Key_Down, Qt::AltModifier);
    // What Qt does when a list gets the focus.
    QAbstractItemView* list = m_dropdown.List();
    list->selectionModel()->setCurrentIndex(list->model()->index(0, 0), QItemSelectionModel::NoUpdate);
    Key(Qt::Key_Down);
    EXPECT_EQ(Highlighted(), "(None)");
    EXPECT_TRUE(list->selectionModel()->hasSelection());
}

TEST_F(FilteringDropdownTest, ALongEntryIsCutInTheList) {
    m_dropdown.AddItem(QString(400, 'm'), 11);
    TypeText("mmm");
    ASSERT_EQ(Listed().size(), 1u);
    const QAbstractItemView& list = *m_dropdown.List();
    EXPECT_FALSE(list.horizontalScrollBar()->isVisible());
    EXPECT_FALSE(list.verticalScrollBar()->isVisible());
    const QImage picture = Grab(*list.viewport());
    const QRect margin(picture.width() - 8, 0, 8, picture.height());
    EXPECT_FALSE(HasColor(picture, margin, Theme::Get(Theme::Color::HighlightText)));
}

TEST_F(FilteringDropdownTest, AnEntryForNoChoiceIsHighlightedOnlyIfNothingElseMatches) {
    TypeText("on");
    EXPECT_THAT(Listed(), ElementsAre("(None)", "Zone 1 \u00BB Latent <b>*</b>"));
    EXPECT_EQ(Highlighted(), "Zone 1 \u00BB Latent <b>*</b>");
    Key(Qt::Key_A, Qt::ControlModifier);
    TypeText("none");
    EXPECT_EQ(Highlighted(), "(None)");
    Key(Qt::Key_Return);
    ExpectChoice(0, 1);
}

TEST_F(FilteringDropdownTest, AClickOnAMatchChoosesIt) {
    TypeText("latent");
    QAbstractItemView* list = m_dropdown.List();
    const QPoint at = list->visualRect(list->model()->index(1, 0)).center();
    QTest::mouseMove(list->viewport(), at);
    EXPECT_EQ(Highlighted(), "Zone 1 \u00BB Latent <b>*</b>");
    EXPECT_EQ(Text(), "latent");
    Click(list->viewport(), at);
    ExpectChoice(4, 1);
}

TEST_F(FilteringDropdownTest, AClickOnTheTextOrTheArrowOpensTheWholeListAndClosesIt) {
    TypeText("biox");
    for (const int x : {20, m_box->width() - 20}) {
        ClickAt(*m_box, QPoint(x, 18));
        EXPECT_EQ(Listed().size(), 5u);
        EXPECT_EQ(Highlighted(), "Crime Lab");
        EXPECT_EQ(Text(), "Crime Lab");
        ClickAt(*m_box, QPoint(x, 18));
        EXPECT_FALSE(IsOpen());
    }
    EXPECT_EQ(m_clicks, 0);
}

TEST_F(FilteringDropdownTest, OnlyAClickOnTheFieldDoesNothingElseThanCloseTheList) {
    for (QWidget* clicked : {static_cast<QWidget*>(m_box), static_cast<QWidget*>(&m_next)}) {
        ClickText();
        ClickAt(*clicked, QPoint(20, 18));
        EXPECT_FALSE(IsOpen());
        EXPECT_EQ(m_dropdown.List()->testAttribute(Qt::WA_NoMouseReplay), clicked == m_box);
    }
}

TEST_F(FilteringDropdownTest, TypingIntoTheWholeListFiltersIt) {
    ClickText();
    TypeText("bio");
    EXPECT_THAT(Listed(), ElementsAre("Crime Lab \u00BB Biology"));
}

TEST_F(FilteringDropdownTest, KeysOpenAndCloseTheWholeList) {
    Key(Qt::Key_F4);
    EXPECT_EQ(Listed().size(), 5u);
    Key(Qt::Key_F4);
    EXPECT_FALSE(IsOpen());
    Key(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(Listed().size(), 5u);
    Key(Qt::Key_Return);
    ExpectChoice(1, 1);
}

TEST_F(FilteringDropdownTest, ArrowKeysChangeTheChoiceWhileTheListIsClosed) {
    Key(Qt::Key_Down);
    ExpectChoice(2, 1);
    EXPECT_EQ(m_box->lineEdit()->selectedText(), Text());
    Key(Qt::Key_Up);
    ExpectChoice(1, 2);
}

// Counts the keys that reach it because no child has handled them.
class KeyCounter : public PlainControl {
public:
    using PlainControl::PlainControl;
    std::vector<int> keys;

protected:
    void keyPressEvent(QKeyEvent* event) override { keys.push_back(event->key()); }
};

TEST_F(FilteringDropdownTest, EscapeAndEnterLeaveTheDropdownOnlyWhenNothingIsTypedAndTheListIsClosed) {
    KeyCounter form(&m_window);
    m_dropdown.setParent(&form);
    form.resize(600, 300);
    form.show();
    m_dropdown.show();
    m_dropdown.setFocus();
    for (const char* typed : {"latent", "nothing"}) {
        TypeText(typed);
        ASSERT_EQ(Text(), typed);
        Key(Qt::Key_Escape);
        ExpectChoice(1, 0);
        TypeText(typed);
        Key(Qt::Key_Return);
        EXPECT_FALSE(IsOpen());
        m_dropdown.SetListIndex(1);
        m_clicks = 0;
    }
    ClickText();
    Key(Qt::Key_Escape);
    ExpectChoice(1, 0);
    EXPECT_THAT(form.keys, IsEmpty());
    Key(Qt::Key_Escape);
    Key(Qt::Key_Return);
    EXPECT_THAT(form.keys, ElementsAre(Qt::Key_Escape, Qt::Key_Return));
    m_dropdown.setParent(&m_window);
}

TEST_F(FilteringDropdownTest, LeavingKeepsTheChoiceUnlessTheTextIsThatOfOneEntry) {
    for (const char* text : {"nothing", "latent", "lab", "biology", "crime lab", ""}) {
        m_dropdown.setFocus();
        TypeText(*text ? text : "x");
        if (!*text) Key(Qt::Key_Backspace);
        Key(Qt::Key_Tab);
        EXPECT_TRUE(m_next.hasFocus()) << text;
        ExpectChoice(1, 0);
    }
    m_dropdown.SetListIndex(4);
    m_clicks = 0;
    m_dropdown.setFocus();
    TypeText("CRIME lab");
    Key(Qt::Key_Tab);
    ExpectChoice(1, 1);
}

TEST_F(FilteringDropdownTest, ATextThatIsDroppedByAClickElsewhereIsToldOnce) {
    TypeText("bio");
    LeaveByMouse();
    ExpectChoice(1, 0);
    EXPECT_TRUE(m_dropdown.TakeDroppedText());
    EXPECT_FALSE(m_dropdown.TakeDroppedText());

    m_dropdown.setFocus(Qt::TabFocusReason);
    TypeText("biox");
    EXPECT_TRUE(m_dropdown.TakeDroppedText()) << "while the text is still there";
    ExpectChoice(1, 0);

    TypeText("biox");
    Key(Qt::Key_Tab);
    EXPECT_FALSE(m_dropdown.TakeDroppedText()) << "the user has seen the choice again";
    m_dropdown.setFocus(Qt::TabFocusReason);
    TypeText("bio");
    LeaveByMouse();
    m_dropdown.setFocus(Qt::TabFocusReason);
    EXPECT_FALSE(m_dropdown.TakeDroppedText());
    m_dropdown.SetListIndex(2);
    TypeText("crime lab");
    EXPECT_FALSE(m_dropdown.TakeDroppedText()) << "an entry";
    EXPECT_EQ(m_dropdown.ListIndex(), 1);
}

TEST_F(FilteringDropdownTest, ArrowKeysChooseNothingAfterATextThatMatchesNothing) {
    TypeText("biox");
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_PageUp}) Key(key);
    EXPECT_EQ(m_dropdown.ListIndex(), 1);
    EXPECT_EQ(m_clicks, 0);
    EXPECT_EQ(Text(), "biox");
}

TEST_F(FilteringDropdownTest, EnterWithoutAChoiceChoosesNothing) {
    m_dropdown.SetListIndex(-1);
    m_clicks = 0;
    Key(Qt::Key_F4);
    ASSERT_TRUE(IsOpen());
    Key(Qt::Key_Return);
    EXPECT_EQ(m_dropdown.ListIndex(), -1);
    EXPECT_EQ(m_clicks, 0);
}

TEST_F(FilteringDropdownTest, LeavingWithTheTextOfTwoEntriesKeepsTheChoice) {
    m_dropdown.AddItem("Annex", 11);
    m_dropdown.AddItem("Annex", 12);
    TypeText("Annex");
    m_next.setFocus();
    ExpectChoice(1, 0);
    m_dropdown.setFocus();
    TypeText("annex");
    Key(Qt::Key_Down);
    Key(Qt::Key_Return);
    ExpectChoice(6, 1);
    m_next.setFocus();
    ExpectChoice(6, 1);
}

TEST_F(FilteringDropdownTest, TheTextSurvivesAVisitToAnotherWindow) {
    for (const char* text : {"crime lab ", "(None)"}) {
        TypeText(text);
        QWidget other;
        ShowActive(other);
        ASSERT_FALSE(m_box->hasFocus());
        EXPECT_FALSE(IsOpen());
        ShowActive(m_window);
        EXPECT_TRUE(m_box->hasFocus());
        EXPECT_EQ(Text(), text);
        EXPECT_EQ(m_dropdown.ListIndex(), 1);
        Key(Qt::Key_Escape);
    }
    ExpectChoice(1, 0);
}

TEST_F(FilteringDropdownTest, TypingReplacesTheTextOfAFieldThatGotTheFocusBehindAMessage) {
    m_next.setFocus();
    QWidget message;
    ShowActive(message);
    m_dropdown.setFocus();
    message.close();
    ShowActive(m_window);
    TypeText("bio");
    EXPECT_EQ(Text(), "bio");
}

TEST_F(FilteringDropdownTest, TheTextIsSelectedWhenTheFieldIsEntered) {
    EXPECT_EQ(m_box->lineEdit()->selectedText(), "Crime Lab");
    Key(Qt::Key_End);
    EXPECT_EQ(m_box->lineEdit()->selectedText(), "");
    m_next.setFocus();
    ClickText();
    EXPECT_EQ(m_box->lineEdit()->selectedText(), "Crime Lab");
}

TEST_F(FilteringDropdownTest, TheTextCanBeCopiedAndPasted) {
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "Crime Lab");
    QGuiApplication::clipboard()->setText("biology ");
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_THAT(Listed(), ElementsAre("Crime Lab \u00BB Biology"));
}

TEST_F(FilteringDropdownTest, TextOfAnInputMethodFilters) {
    QInputMethodEvent commit;
    commit.setCommitString("\u00BB B");
    QCoreApplication::sendEvent(m_box, &commit);
    EXPECT_THAT(Listed(), ElementsAre("Crime Lab \u00BB Biology"));
}

TEST_F(FilteringDropdownTest, FillingItAgainEndsTyping) {
    TypeText("latent");
    m_dropdown.Clear();
    EXPECT_EQ(Text(), "");
    EXPECT_FALSE(IsOpen());
    m_dropdown.AddItem("Vault", 3);
    m_dropdown.SetListIndex(0);
    ExpectChoice(0, 1);
    ClickText();
    EXPECT_THAT(Listed(), ElementsAre("Vault"));
}

TEST_F(FilteringDropdownTest, AMatchIsFoundAmongThousandsOfEntries) {
    for (int number = 1; number <= 5000; ++number) m_dropdown.AddItem(QString("Shelf %1").arg(number), 100 + number);
    TypeText("shelf 4711");
    EXPECT_THAT(Listed(), ElementsAre("Shelf 4711"));
    Key(Qt::Key_Return);
    EXPECT_EQ(m_dropdown.ItemData(m_dropdown.ListIndex()), 4811);
}

TEST_F(FilteringDropdownTest, AScanIsNotTyped) {
    ManualTimers timers(m_environment);
    FixedClock clock;
    m_environment->clock = &clock;
    m_environment->makeMessageHook = MakeWidgetMessageHook;
    PlainControl view(&m_window);
    view.resize(50, 50);
    auto* listener = new BarcodeListenerControl(&view);
    std::vector<std::string> scans;
    listener->BarcodeScanned().connect([&](int32_t, const std::string& data) { scans.push_back(data); });
    view.show();
    for (const bool opened : {false, true}) {
        if (opened) ClickText();
        Scan("P0000000123");
        EXPECT_EQ(Text(), "Crime Lab");
        EXPECT_EQ(timers.Tick(1), 1);
        EXPECT_FALSE(IsOpen());
        clock.Advance(150);
    }
    EXPECT_THAT(scans, ElementsAre("0000000123", "0000000123"));
    ExpectChoice(1, 0);
}

}  // namespace
}  // namespace quellbrook::testing
