#include "tests/support/DatabaseTest.h"
#include "tests/ui/controls/ControlsTest.h"
#include "ui/controls/FlatDropdown.h"
#include "ui/controls/FlatTextArea.h"
#include "ui/controls/FlatTextbox.h"
#include "ui/controls/TessarineDropdown.h"
#include "ui/controls/View.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QFocusFrame>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace quellbrook::testing {
namespace {

class FlatTextboxTest : public ControlsTest {
protected:
    FlatTextbox m_field{&m_window};
};

TEST_F(FlatTextboxTest, ShowsPlainText) {
    int changes = 0;
    QObject::connect(&m_field, &FlatTextbox::Changed, [&] { ++changes; });
    m_field.SetText("<b>x</b> & y");
    EXPECT_EQ(m_field.Text(), "<b>x</b> & y");
    EXPECT_EQ(changes, 1);
    m_field.SetPlaceholder("Type here to search...");
    EXPECT_EQ(m_field.Placeholder(), "Type here to search...");
}

TEST_F(FlatTextboxTest, BothEnterKeysHaveCodeThirteen) {
    std::vector<int> codes;
    QObject::connect(&m_field, &FlatTextbox::KeyPressed, [&](int code) { codes.push_back(code); });
    ShowActive(m_window);
    Press(m_field.focusProxy(), Qt::Key_Return);
    Press(m_field.focusProxy(), Qt::Key_Enter, Qt::KeypadModifier);
    Press(m_field.focusProxy(), Qt::Key_A);
    EXPECT_EQ(codes, (std::vector<int>{13, 13, 65}));
}

TEST_F(FlatTextboxTest, TheFocusGoesToItsEditAndTypingArrives) {
    ShowActive(m_window);
    m_field.setFocus();
    EXPECT_TRUE(m_field.hasFocus());
    Type(QApplication::focusWidget(), "abc");
    EXPECT_EQ(m_field.Text(), "abc");
    EXPECT_NE(m_window.findChild<QFocusFrame*>(), nullptr);
}

TEST_F(FlatTextboxTest, APasswordShowsDots) {
    m_field.SetPassword(true);
    EXPECT_EQ(m_field.findChild<QLineEdit*>()->echoMode(), QLineEdit::Password);
    m_field.SetPassword(false);
    EXPECT_EQ(m_field.findChild<QLineEdit*>()->echoMode(), QLineEdit::Normal);
}

TEST_F(FlatTextboxTest, TheEditLeavesSpaceForTheIcon) {
    m_field.SetWidth(3000);
    const int without = m_field.findChild<QLineEdit*>()->width();
    m_field.SetIcon("search");
    EXPECT_EQ(m_field.findChild<QLineEdit*>()->width(), without - 30);
    m_field.SetAccessibleCaption("Search");
    EXPECT_EQ(m_field.findChild<QLineEdit*>()->accessibleName(), "Search");
}

class FlatTextAreaTest : public ControlsTest {
protected:
    FlatTextArea m_area{&m_window};
};

TEST_F(FlatTextAreaTest, AcceptsSeveralLinesAndTabLeavesIt) {
    FlatTextbox next(&m_window);
    next.Move(300, 3000);
    ShowActive(m_window);
    m_area.setFocus();
    Type(QApplication::focusWidget(), "one");
    Press(Qt::Key_Return);
    Type(QApplication::focusWidget(), "two");
    EXPECT_EQ(m_area.Text(), "one\ntwo");
    Press(Qt::Key_Tab);
    EXPECT_TRUE(next.hasFocus());
    m_area.SetText("<b>three</b>");
    EXPECT_EQ(m_area.Text(), "<b>three</b>");
}

TEST_F(FlatTextAreaTest, KeepsSpacesAndEndsLinesThatShiftEnterHasBegun) {
    m_area.SetText("8\u00A0oz.\u2028two");
    EXPECT_EQ(m_area.Text(), "8\u00A0oz.\ntwo");
}

class FlatDropdownTest : public ControlsTest {
protected:
    FlatDropdownTest() {
        QObject::connect(&m_dropdown, &FlatDropdown::Clicked, [this] { ++m_clicks; });
    }

    void Fill() {
        for (const auto& [text, data] : std::vector<std::pair<QString, int>>{
                 {"(None)", 0}, {"Crime Lab", 7}, {"Crime Lab \u00BB Biology", 8}, {"Drug Vault & Safe", 9}})
            m_dropdown.AddItem(text, data);
    }

    FlatDropdown m_dropdown{&m_window};
    int m_clicks = 0;
};

TEST_F(FlatDropdownTest, EntriesHaveATextAndANumber) {
    EXPECT_EQ(m_dropdown.Count(), 0);
    EXPECT_EQ(m_dropdown.ListIndex(), -1);
    Fill();
    EXPECT_EQ(m_dropdown.Count(), 4);
    EXPECT_EQ(m_dropdown.ItemText(3), "Drug Vault & Safe");
    EXPECT_EQ(m_dropdown.ItemData(2), 8);
}

TEST_F(FlatDropdownTest, FillingSelectsNothingAndRaisesNothing) {
    Fill();
    EXPECT_EQ(m_dropdown.ListIndex(), -1);
    m_dropdown.SetListIndex(2);
    m_clicks = 0;
    m_dropdown.AddItem("more", 10);
    EXPECT_EQ(m_dropdown.ListIndex(), 2);
    m_dropdown.Clear();
    EXPECT_EQ(m_dropdown.Count(), 0);
    EXPECT_EQ(m_dropdown.ListIndex(), -1);
    EXPECT_EQ(m_clicks, 0);
}

TEST_F(FlatDropdownTest, ASetIndexRaisesOnlyWhenItChanges) {
    Fill();
    m_dropdown.SetListIndex(1);
    EXPECT_EQ(m_clicks, 1);
    m_dropdown.SetListIndex(1);
    EXPECT_EQ(m_clicks, 1);
    m_dropdown.SetListIndex(-1);
    EXPECT_EQ(m_clicks, 2);
}

TEST_F(FlatDropdownTest, AHandlerMaySetTheSameIndexAgain) {
    Fill();
    QObject::connect(&m_dropdown, &FlatDropdown::Clicked, [this] { m_dropdown.SetListIndex(m_dropdown.ListIndex()); });
    m_dropdown.SetListIndex(3);
    EXPECT_EQ(m_clicks, 1);
}

TEST_F(FlatDropdownTest, AnIndexOutOfRangeRaisesAnError) {
    Fill();
    for (const int index : {-2, 4}) {
        try {
            m_dropdown.SetListIndex(index);
            ADD_FAILURE() << index;
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::InvalidPropertyValue);
        }
    }
}

TEST_F(FlatDropdownTest, AChoiceOfTheUserRaisesOnceEvenForTheSameEntry) {
    Fill();
    ShowActive(m_window);
    const auto choose = [this](int row) {
        m_dropdown.Box()->showPopup();
        QAbstractItemView* view = m_dropdown.Box()->view();
        const QPoint at = view->visualRect(view->model()->index(row, 0)).center();
        QTest::mouseMove(view->viewport(), at);
        Click(view->viewport(), at);
        m_dropdown.Box()->hidePopup();
    };
    // The list ignores a release within the double click interval after it opens.
    const int interval = QApplication::doubleClickInterval();
    QApplication::setDoubleClickInterval(0);
    choose(1);
    EXPECT_EQ(m_dropdown.ListIndex(), 1);
    EXPECT_EQ(m_clicks, 1);
    choose(1);
    EXPECT_EQ(m_clicks, 2);
    QApplication::setDoubleClickInterval(interval);
}

TEST_F(FlatDropdownTest, ArrowKeysAndTypingChoose) {
    Fill();
    ShowActive(m_window);
    m_dropdown.setFocus();
    EXPECT_EQ(QApplication::focusWidget(), m_dropdown.Box());
    Press(Qt::Key_Down);
    EXPECT_EQ(m_dropdown.ListIndex(), 0);
    EXPECT_EQ(m_clicks, 1);
    Press(Qt::Key_D);
    EXPECT_EQ(m_dropdown.ListIndex(), 3);
    EXPECT_EQ(m_clicks, 2);
    Press(Qt::Key_Up);
    EXPECT_EQ(m_dropdown.ListIndex(), 2);
    EXPECT_EQ(m_clicks, 3);
}

TEST_F(FlatDropdownTest, OnlyOneEntryOfTheListIsHighlighted) {
    Fill();
    ShowActive(m_window);
    m_dropdown.Box()->showPopup();
    QAbstractItemView* list = m_dropdown.List();
    const auto place = [&](int row) { return list->visualRect(list->model()->index(row, 0)); };
    const auto highlighted = [&] {
        const QImage picture = Grab(*list->viewport());
        std::vector<int> rows;
        for (int row = 0; row < m_dropdown.Count(); ++row)
            if (PixelAt(picture, place(row).topLeft()) == Theme::Get(Theme::Color::Highlight)) rows.push_back(row);
        return rows;
    };
    QTest::mouseMove(list->viewport(), place(0).center());
    QTest::mouseMove(list->viewport(), place(1).center());
    EXPECT_EQ(highlighted(), std::vector<int>{1});
    Press(list, Qt::Key_Down);
    EXPECT_EQ(highlighted(), std::vector<int>{2});
    QTest::mouseMove(list->viewport(), place(3).center());
    EXPECT_EQ(highlighted(), std::vector<int>{3});
    m_dropdown.Box()->hidePopup();
}

TEST_F(FlatDropdownTest, TheWheelDoesNotChangeTheChoice) {
    Fill();
    m_dropdown.SetListIndex(1);
    ShowActive(m_window);
    m_dropdown.setFocus();
    Turn(m_dropdown.Box(), -120);
    EXPECT_EQ(m_dropdown.ListIndex(), 1);
}

TEST_F(FlatDropdownTest, ShowsTheFontOfItsBox) {
    Fill();
    m_dropdown.SetListIndex(1);
    const QImage before = Grab(m_dropdown);
    QFont bold = m_dropdown.Box()->font();
    bold.setBold(true);
    m_dropdown.Box()->setFont(bold);
    EXPECT_NE(Grab(m_dropdown), before);
    EXPECT_TRUE(m_dropdown.Box()->view()->font().bold());
}

TEST_F(FlatDropdownTest, NamesItsBox) {
    m_dropdown.SetAccessibleCaption("and will be going to");
    EXPECT_EQ(m_dropdown.Box()->accessibleName(), "and will be going to");
    m_dropdown.SetPlaceholder("Choose");
    EXPECT_EQ(m_dropdown.Box()->placeholderText(), "Choose");
}

class TessarineDropdownTest : public DatabaseTest {
protected:
    TessarineDropdownTest() {
        m_database.AddCode(38, 4, "Laboratory analysis");
        m_database.AddCode(38, 2, "Case closed");
    }

    QWidget m_window;
    TessarineDropdown m_dropdown{&m_window};
};

TEST_F(TessarineDropdownTest, ListsTheEntriesOfTheTable) {
    m_dropdown.SetTableNumber(38);
    EXPECT_EQ(m_dropdown.TableNumber(), 38);
    ASSERT_EQ(m_dropdown.Count(), 2);
    EXPECT_EQ(m_dropdown.ItemText(0), "Case closed");
    EXPECT_EQ(m_dropdown.ItemData(0), 2);
    m_dropdown.SetTableNumber(31);
    EXPECT_EQ(m_dropdown.Count(), 0);
}

TEST_F(TessarineDropdownTest, IsNullUntilSomethingIsChosen) {
    m_dropdown.SetTableNumber(38);
    EXPECT_TRUE(m_dropdown.Value().IsNull());
    m_dropdown.SetValue(4);
    EXPECT_EQ(m_dropdown.Value(), TaggedValue(4));
    m_dropdown.SetValue("2");
    EXPECT_EQ(m_dropdown.Value(), TaggedValue(2));
}

TEST_F(TessarineDropdownTest, AnEmptyOrUnknownValueGivesNull) {
    m_dropdown.SetTableNumber(38);
    for (const TaggedValue& value : {TaggedValue(), TaggedValue(Null()), TaggedValue(99), TaggedValue("nonsense")}) {
        m_dropdown.SetValue(4);
        m_dropdown.SetValue(value);
        EXPECT_TRUE(m_dropdown.Value().IsNull());
    }
}

TEST_F(TessarineDropdownTest, RaisesItsChanges) {
    m_dropdown.SetTableNumber(38);
    int changes = 0;
    QObject::connect(&m_dropdown, &TessarineDropdown::Clicked, [&] { ++changes; });
    m_dropdown.SetValue(4);
    m_dropdown.SetValue(4);
    EXPECT_EQ(changes, 1);
}

TEST_F(TessarineDropdownTest, InADesignerNoDataIsRead) {
    SetInsideDesigner(true);
    m_dropdown.SetTableNumber(38);
    SetInsideDesigner(false);
    EXPECT_EQ(m_dropdown.Count(), 0);
    EXPECT_EQ(m_dropdown.TableNumber(), 38);
}

TEST_F(TessarineDropdownTest, PassesFocusAndNameToItsBox) {
    m_dropdown.SetAccessibleCaption("for the purpose of");
    EXPECT_EQ(m_dropdown.Box()->accessibleName(), "for the purpose of");
    ShowActive(m_window);
    m_dropdown.setFocus();
    EXPECT_EQ(QApplication::focusWidget(), m_dropdown.Box());
}

}  // namespace
}  // namespace quellbrook::testing
