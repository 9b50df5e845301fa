#pragma once

#include "base/Error.h"
#include "data/StoredItemList.h"
#include "ui/controls/Control.h"

#include <memory>
#include <vector>

class QAction;
class QMenu;

namespace quellbrook {

class FlatScrollBar;
class GroupBox;
class SearchResultRow;
class StatePanel;

// Any number of stored items, up to a limit, in a scrolling list with no more rows than fit on the screen: scrolling
// gives the same rows other items. Owns selection, keys and scroll bar; what happens to an item is its holder's affair.
// Positions of items count from 1, those of rows from 0.
class SearchResultList : public Control {
    Q_OBJECT

public:
    // A list of this many items or more is not shown at all.
    static constexpr int32_t MaxDisplayedItems = 36766;

    explicit SearchResultList(QWidget* parent = nullptr);
    ~SearchResultList() override;
    std::string TypeName() const override { return "SearchResultList"; }

    // Shows these items, kept by reference, and selects the first. Error 5 for null.
    void SetItems(std::shared_ptr<StoredItemList> items);
    // Null for an empty list; Error 9 while none is selected in a list with items.
    StoredItemRef SelectedItem() const;

    // Fills the rows in view. Errors pass on, with "DisplayVisibleItems: " before their description.
    void DisplayVisibleItems();

    // The list's height in rows plus one half, rounded half to even.
    int32_t VisibleRowCount() const;
    int32_t FirstVisibleIndex() const;
    // The first row around this point of picContainer, in twips, edges excluded; hidden rows count. -1 for none.
    int HitTestRow(float x, float y) const;
    // Asked before the focus leaves the list: true when the move of an arrow key beyond the first or the last row is to
    // be refused, which scrolls by one item instead.
    bool ValidateRow(int row);

    // The rows loaded so far, hidden ones included; never empty.
    const std::vector<SearchResultRow*>& Rows() const { return m_rows; }

signals:
    // The receiver sets the menu, and the entry that is to look like the default one.
    void ItemContextMenu(QMenu*& menu, QAction*& defaultItem);
    void ItemOpenRequest(const quellbrook::StoredItemRef& item);

protected:
    void Layout() override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    enum class Filling { Anew, WhereNeeded };

    void BuildControls();
    void ConnectEvents();
    void PrepareRow(SearchResultRow* row);
    void ReportRefreshError(const Error& error);
    void LoadResults();
    void ClearRows();
    SearchResultRow* LoadRow();
    void RotateRows();
    void FillRows(Filling filling);
    void ShowRows(Filling filling);
    void UpdateRowFocus();
    void UpdateScrollBar();
    void LayoutRows();

    float InnerHeight() const;
    float RowHeight() const;
    int32_t RowsToDisplay() const;
    int FocusedRow() const;

    bool IsValidIndex(int32_t index) const;
    void SelectRow(const SearchResultRow& row);
    void MoveSelection(int32_t delta);
    void SelectIndex(int32_t index);
    void ScrollUp();
    void ScrollDown();
    void SetScrollValue(int value);
    void EnsureSelectionVisible();

    void VertScroll_Change();
    void ListMouseEvents_Click(int button, const QPoint& at);
    void ListMouseEvents_DoubleClick(const QPoint& at);
    bool KeyDown(int keyCode);
    void FollowFocus(const QWidget* old, const QWidget* now);

    bool m_hasFocus = false;
    bool m_refreshErrorReported = false;
    int32_t m_selectedIndex = 0;
    std::shared_ptr<StoredItemList> m_items;
    GroupBox* m_container = nullptr;
    std::vector<SearchResultRow*> m_rows;
    FlatScrollBar* m_vertScroll = nullptr;
    StatePanel* m_noResults = nullptr;
    StatePanel* m_tooManyResults = nullptr;
    QMetaObject::Connection m_focusWatch;
};

}  // namespace quellbrook
