#pragma once

#include "base/Environment.h"
#include "tests/support/ui/SmallDepartment.h"
#include "tests/support/ui/Widgets.h"
#include "ui/common/StatePanel.h"
#include "ui/controls/FlatScrollBar.h"
#include "ui/controls/FlatTextbox.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/explorer/SearchResultList.h"
#include "ui/explorer/SearchResultRow.h"
#include "ui/platform/Twips.h"

namespace quellbrook::testing {

inline constexpr int RowPixels = 100;

// A result list of four rows in a window, above a field that can take the focus.
class SearchResultListTest : public SmallDepartment {
protected:
    SearchResultListTest() {
        m_window.resize(800, 700);
        MakeList();
        m_other = new FlatTextbox(&m_window);
        m_other->setObjectName("other");
        m_other->Move(ToTwips(0), ToTwips(600), ToTwips(100), ToTwips(36));
        ShowActive(m_window);
    }

    // A list of four rows.
    void MakeList() {
        m_list = new SearchResultList(&m_window);
        m_list->setObjectName("list");
        SetHeightInRows(4);
        m_list->show();
    }
    void SetHeightInRows(double rows) { m_list->Move(0, 0, ToTwips(700), ToTwips(rows * RowPixels)); }
    void Hold(int keyCode) {
        m_environment->isKeyDown = [keyCode](int key) { return key == keyCode; };
    }

    FlatScrollBar* Bar() { return Find<FlatScrollBar>(*m_list, "vertScroll"); }
    GroupBox* Container() { return Find<GroupBox>(*m_list, "picContainer"); }
    StatePanel* Empty() { return Find<StatePanel>(*m_list, "picNoResults"); }
    StatePanel* TooMany() { return Find<StatePanel>(*m_list, "picTooManyResults"); }
    SearchResultRow& Row(size_t i) { return *m_list->Rows().at(i); }

    int ShownRows() {
        int shown = 0;
        for (const SearchResultRow* row : m_list->Rows()) shown += row->IsShown();
        return shown;
    }

    // The position of the row that is shown as selected; -1 if there is none.
    int HighlightedRow() {
        int found = -1;
        for (size_t i = 0; i < m_list->Rows().size(); ++i) {
            if (!Row(i).Focused() || !Row(i).IsShown()) continue;
            EXPECT_EQ(found, -1) << "two rows are highlighted";
            found = static_cast<int>(i);
        }
        return found;
    }

    // Row i is at position i and shows item first + i.
    void ExpectRowsInOrder(const StoredItemList& items) {
        const int first = m_list->FirstVisibleIndex();
        for (int i = 0; i < ShownRows(); ++i) {
            SearchResultRow& row = Row(static_cast<size_t>(i));
            ASSERT_TRUE(row.IsShown()) << i;
            EXPECT_EQ(row.geometry().top(), i * RowPixels);
            EXPECT_EQ(row.Index(), i);
            EXPECT_EQ(row.Tag().toInt(), first + i);
            EXPECT_EQ(row.Item(), items.ItemAt(first + i - 1));
            EXPECT_EQ(Find<Label>(row, "lblID")->Caption().toStdString(), row.Item()->DisplayID());
        }
    }

    void ExpectCentered(const Control& panel) {
        EXPECT_EQ(panel.Left(), m_list->Width() / 2 - panel.Width() / 2);
        EXPECT_EQ(panel.Top(), m_list->Height() / 2 - panel.Height() / 2);
    }

    QPoint CenterOfRow(int i) { return QPoint(300, i * RowPixels + RowPixels / 2); }

    QWidget m_window;
    SearchResultList* m_list = nullptr;
    FlatTextbox* m_other = nullptr;
};

}  // namespace quellbrook::testing
