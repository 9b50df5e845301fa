#pragma once

#include "base/Clock.h"
#include "tests/support/FixedClock.h"
#include "tests/support/ManualTimer.h"
#include "tests/support/ui/Scanner.h"
#include "tests/ui/controls/ControlsTest.h"
#include "ui/controls/BarcodeListenerControl.h"
#include "ui/controls/FlatDropdown.h"
#include "ui/controls/FlatTextbox.h"
#include "ui/platform/WidgetMessageHook.h"

#include <QAbstractItemView>
#include <QClipboard>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QLineEdit>

#include <gmock/gmock.h>

namespace quellbrook::testing {

// Keys and clicks go to the window as the platform sends them, so that an open list receives them first.
class FilteringDropdownTest : public ControlsTest {
protected:
    FilteringDropdownTest() {
        m_dropdown.Move(300, 300, 4500, ToTwips(Theme::FieldHeight));
        m_next.Move(300, 6000);
        for (const auto& [text, data] : std::vector<std::pair<QString, int>>{{"(None)", 0},
                                                                             {"Crime Lab", 7},
                                                                             {"Crime Lab \u00BB Biology", 8},
                                                                             {"Crime Lab \u00BB Latent Prints", 9},
                                                                             {"Zone 1 \u00BB Latent <b>*</b>", 10}})
            m_dropdown.AddItem(text, data);
        m_dropdown.SetListIndex(1);
        QObject::connect(&m_dropdown, &FlatDropdown::Clicked, [this] { ++m_clicks; });
        ShowActive(m_window);
        m_next.setFocus();
        m_dropdown.setFocus(Qt::TabFocusReason);
    }

    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) { SendKey(m_window, key, modifiers); }
    void TypeText(const char* text) { SendText(m_window, text); }
    void ClickAt(QWidget& widget, const QPoint& at) {
        QTest::mouseClick(m_window.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          m_window.mapFromGlobal(widget.mapToGlobal(at)));
        ServeEvents();  // a press that closes the list is sent again
    }
    // The platform of the tests does not send a press that closes the list again.
    void LeaveByMouse() {
        m_dropdown.List()->hide();
        ClickAt(m_next, QPoint(20, 18));
    }
    void ClickText() { ClickAt(*m_box, QPoint(20, 18)); }

    bool IsOpen() const { return m_dropdown.List()->isVisible(); }
    QString Text() const { return m_box->currentText(); }
    // The texts of the open list.
    std::vector<std::string> Listed() const {
        std::vector<std::string> texts;
        const QAbstractItemModel& model = *m_dropdown.List()->model();
        for (int row = 0; IsOpen() && row < model.rowCount(); ++row)
            texts.push_back(model.index(row, 0).data().toString().toStdString());
        return texts;
    }
    QString Highlighted() const { return m_dropdown.List()->currentIndex().data().toString(); }

    void ExpectChoice(int index, int clicks) {
        EXPECT_EQ(m_dropdown.ListIndex(), index);
        EXPECT_EQ(Text(), m_dropdown.ItemText(index));
        EXPECT_EQ(m_clicks, clicks);
        EXPECT_FALSE(IsOpen());
    }

    FlatDropdown m_dropdown{&m_window, FlatDropdown::Typing::Filters};
    FlatTextbox m_next{&m_window};
    QComboBox* m_box = m_dropdown.Box();
    int m_clicks = 0;
};

}  // namespace quellbrook::testing
