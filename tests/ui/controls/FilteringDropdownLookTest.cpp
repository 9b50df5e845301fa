#include "tests/ui/controls/FilteringDropdownTest.h"

namespace quellbrook::testing {
namespace {

// A dropdown at the same place with the same entries, without typing.
class PlainTwin : public FlatDropdown {
public:
    explicit PlainTwin(const FlatDropdown& original) : FlatDropdown(original.parentWidget()) {
        for (int index = 0; index < original.Count(); ++index)
            AddItem(original.ItemText(index), original.ItemData(index));
        Move(original.Left(), original.Top(), original.Width(), original.Height());
        SetListIndex(original.ListIndex());
        setEnabled(original.isEnabled());
        show();
    }
};

TEST_F(FilteringDropdownTest, WithoutTheFocusItLooksLikeAnyDropdown) {
    m_dropdown.AddItem(QString("A location with a very long name ").repeated(3), 11);
    m_next.setFocus();
    for (const bool dark : {false, true}) {
        Theme::Install(dark);
        for (const int index : {-1, 1, 5}) {
            for (const bool enabled : {true, false}) {
                m_dropdown.SetListIndex(index);
                m_dropdown.setEnabled(enabled);
                PlainTwin twin(m_dropdown);
                EXPECT_EQ(Grab(m_dropdown), Grab(twin)) << dark << " " << index << " " << enabled;
            }
        }
    }
    Theme::Install(false);
}

TEST_F(FilteringDropdownTest, OnlyTheKeyboardShowsThatTheTextIsSelected) {
    m_dropdown.AddItem(QString("A location with a very long name ").repeated(3), 11);
    m_dropdown.SetListIndex(5);
    ClickText();
    ClickText();
    const QImage clicked = Grab(m_dropdown);
    m_next.setFocus();
    const QImage plain = Grab(m_dropdown);
    EXPECT_EQ(clicked, plain);
    m_dropdown.setFocus();
    EXPECT_EQ(Grab(m_dropdown), plain);
    Key(Qt::Key_Control);
    const QImage after = Grab(m_dropdown);
    m_next.setFocus();
    m_dropdown.setFocus(Qt::BacktabFocusReason);
    EXPECT_EQ(Grab(m_dropdown), after);
    EXPECT_TRUE(HasColor(after, after.rect(), Theme::Get(Theme::Color::Highlight)));
    for (const QRect& around : {QRect(0, 0, 11, 36), QRect(0, 0, 300, 8), QRect(m_box->width() - 30, 0, 30, 36)})
        EXPECT_EQ(after.copy(around), plain.copy(around));
}

TEST_F(FilteringDropdownTest, TypedTextIsWhereTheChoiceWas) {
    QLineEdit* edit = m_box->lineEdit();
    edit->setReadOnly(true);  // without the cursor
    for (const int width : {300, 250}) {
        m_dropdown.SetListIndex(width == 300 ? 2 : 3);
        Key(Qt::Key_Home);
        m_dropdown.resize(width, m_dropdown.height());
        ASSERT_TRUE(edit->isVisible());
        const QImage edited = Grab(m_dropdown);
        m_next.setFocus();
        EXPECT_EQ(edited, Grab(m_dropdown));
        m_dropdown.setFocus();
    }
}

TEST_F(FilteringDropdownTest, ItsListIsPlacedLikeThatOfAnyDropdown) {
    const auto place = [this](FlatDropdown& dropdown) {
        dropdown.Box()->showPopup();
        const QRect area = dropdown.List()->window()->geometry();
        dropdown.Box()->hidePopup();
        return area.translated(-dropdown.mapToGlobal(QPoint()));
    };
    const int bottom = m_window.height() - m_dropdown.height();
    for (const auto& [entries, width] : {std::pair(0, 0), {1, 10}, {20, 10}, {20, 40}}) {
        for (int entry = 0; entry < entries; ++entry) m_dropdown.AddItem(QString("wide ").repeated(width), 20);
        for (const int y : {20, bottom}) {
            m_dropdown.move(m_dropdown.x(), y);
            PlainTwin twin(m_dropdown);
            EXPECT_EQ(place(m_dropdown), place(twin)) << m_dropdown.Count() << " " << y;
        }
    }
}

TEST_F(FilteringDropdownTest, ItsListKeepsItsWidthAndFitsItsRowsWhileTyping) {
    m_dropdown.AddItem(QString("wide ").repeated(10), 11);
    ClickText();
    const QSize all = m_dropdown.List()->size();
    EXPECT_GT(all.width(), m_dropdown.width());
    TypeText("latent");
    EXPECT_EQ(m_dropdown.List()->size(), QSize(all.width(), all.height() - 4 * 32));
    m_box->setFont(QFont(m_box->font().family(), 15));
    TypeText(" ");
    EXPECT_EQ(m_dropdown.List()->font(), m_box->font());
    Key(Qt::Key_Escape);
    ClickText();
    EXPECT_GT(m_dropdown.List()->width(), all.width());
}

}  // namespace
}  // namespace quellbrook::testing
