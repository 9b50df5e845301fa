#pragma once

#include "base/Error.h"
#include "data/StoredItemList.h"
#include "ui/controls/FocusLook.h"
#include "ui/explorer/ScrollingList.h"
#include "ui/explorer/SearchResultRow.h"

#include <memory>

namespace quellbrook {

// A scrolling list of stored items, up to a limit. It has only as many rows as fit on the screen and reuses them for
// other items when it scrolls. The parent handles actions on items. Positions of items count from 1, rows from 0.
class SearchResultList : public ScrollingListOf<SearchResultRow> {
    Q_OBJECT

public:
    // A list with this number of items or more is not shown at all.
    static constexpr int32_t MaxDisplayedItems = 36766;

    explicit SearchResultList(QWidget* parent = nullptr);
    std::string TypeName() const override { return "SearchResultList"; }

    // Shows these items, kept by reference, and selects the first. Error 5 for null.
    void SetItems(std::shared_ptr<const StoredItemList> items);
    // Null for an empty list; Error 9 if a list with items has no selection.
    StoredItemRef SelectedItem() const;

    // The selected item and the scroll position, to restore them after the items have been read again, also if the list
    // of items has changed in the meantime. If the item is no longer in the list, the one at its position is selected.
    struct Place {
        StoredItemRef item;  // null for an empty list
        int32_t index = 0;
        int scroll = 0;
    };
    Place CurrentPlace() const;
    void Restore(const Place& place);

    // Fills the visible rows. Rethrows errors with "DisplayVisibleItems: " before their description; then the rows that
    // could not be filled are hidden.
    void DisplayVisibleItems();

    // The list's height in rows plus one half, rounded half to even.
    int32_t VisibleRowCount() const;
    int32_t FirstVisibleIndex() const;

signals:
    void ItemOpenRequest(const quellbrook::StoredItemRef& item);

protected:
    int FocusedRow() const override;
    int LastRow() const override;
    void MoveSelection(int delta) override;
    int SelectedPosition() const override { return m_selectedIndex - 1; }
    int PositionCount() const override { return m_items->Count(); }
    void SelectPosition(int position) override;
    void MoveRefused(int delta) override;
    void ClickRow(int row, int button) override;
    void DoubleClickRow(int row) override;
    void VertScroll_Change() override;
    void Layout() override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    enum class Fill { All, Changed };

    void LoadResults();
    void ClearRows();
    void RotateRows();
    void FillRows(Fill fill);
    void ShowRows(Fill fill);
    void HideUnfilledRows();
    void Forget(SearchResultRow& row);
    void UpdateRowFocus();
    void UpdateScrollBar();
    void ShowScrollPosition();

    float RowHeight() const;
    int32_t RowsToDisplay() const;

    bool IsValidIndex(int32_t index) const;
    bool IsUnread(int32_t index) const;
    void SelectRow(const SearchResultRow& row);
    void SelectIndex(int32_t index);
    int32_t IndexOf(const Place& place) const;
    void ScrollUp();
    void ScrollDown();
    void SetScrollValue(int value);
    void ScrollTo(int32_t index);
    void EnsureSelectionVisible();

    int32_t m_selectedIndex = 0;
    StoredItemRef m_shownSelection;  // the selected item; null until a row has shown it
    std::shared_ptr<const StoredItemList> m_items;
    StatePanel* m_tooManyResults;
    FocusLook m_focusLook;
};

}  // namespace quellbrook
