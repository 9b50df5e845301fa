#include "ui/explorer/SearchResultList.h"

#include "ui/common/StatePanel.h"
#include "ui/controls/Activation.h"
#include "ui/controls/FlatScrollBar.h"
#include "ui/controls/MouseEvents.h"
#include "ui/controls/View.h"
#include "ui/platform/Guard.h"
#include "ui/platform/KeyRepetition.h"
#include "ui/platform/Strings.h"

#include <QDebug>
#include <QKeyEvent>
#include <QPointer>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace quellbrook {

namespace {

class NoItems : public StoredItemList {
public:
    std::string TypeName() const override { return "Collection"; }
    int32_t Count() const override { return 0; }
    StoredItemRef ItemAt(int32_t) const override { Raise(ErrorNumber::SubscriptOutOfRange, "SearchResultList"); }
};

// The position in the list of the item that a row shows; 0 before the row has shown one.
int32_t ShownIndex(const SearchResultRow& row) { return row.Tag().toInt(); }

}  // namespace

SearchResultList::SearchResultList(QWidget* parent)
    : ScrollingListOf(parent), m_items(std::make_shared<NoItems>()), m_focusLook(*this, [this] { UpdateRowFocus(); }) {
    setFocusPolicy(Qt::StrongFocus);
    WatchKeyRepetition();
    m_rows.front()->lower();
    m_vertScroll->SetThumbFilter(true);
    m_vertScroll->SetArrows(FlatScrollBar::Down);
    m_tooManyResults = AddPanel("picTooManyResults", "warning", "Too many results.",
                                "There are too many results to display here. Please narrow your search.");
}

void SearchResultList::SetItems(std::shared_ptr<const StoredItemList> items) {
    if (!items) Raise(ErrorNumber::General, "SearchResultList.SetItems", "Items cannot be Nothing");
    m_items = std::move(items);
    LoadResults();
    if (m_rows.front()->IsShown()) SelectRow(*m_rows.front());
}

StoredItemRef SearchResultList::SelectedItem() const {
    if (m_items->IsEmpty()) return nullptr;
    return m_items->ItemAt(m_selectedIndex - 1);
}

SearchResultList::Place SearchResultList::CurrentPlace() const {
    StoredItemRef item = m_shownSelection;
    if (!item && IsValidIndex(m_selectedIndex)) item = m_items->ItemAt(m_selectedIndex - 1);
    if (!item) return {};
    return {item, m_selectedIndex, m_vertScroll->Value()};
}

void SearchResultList::Restore(const Place& place) {
    if (!place.item || m_items->IsEmpty() || !m_rows.front()->IsShown()) return;
    const QPointer<SearchResultList> self(this);
    m_selectedIndex = IndexOf(place);
    m_shownSelection = m_items->ItemAt(m_selectedIndex - 1);
    const int scroll = place.scroll + m_selectedIndex - place.index;
    if (m_vertScroll->IsShown()) m_vertScroll->SetValue(std::clamp(scroll, m_vertScroll->Min(), m_vertScroll->Max()));
    if (!self) return;
    UpdateRowFocus();
    EnsureSelectionVisible();
}

int32_t SearchResultList::IndexOf(const Place& place) const {
    const auto isAt = [&](int32_t index) {
        const StoredItemRef item = m_items->ItemAt(index - 1);
        return item->ID() == place.item->ID() && item->ItemType() == place.item->ItemType();
    };
    const int32_t count = m_items->Count();
    if (place.index <= count && isAt(place.index)) return place.index;
    for (int32_t index = 1; index <= count; ++index)
        if (isAt(index)) return index;
    return std::min(place.index, count);
}

void SearchResultList::LoadResults() {
    ClearRows();
    const int32_t count = m_items->Count();
    m_noResults->setVisible(count < 1);
    m_tooManyResults->setVisible(count >= MaxDisplayedItems);
    setEnabled(count >= 1 && count < MaxDisplayedItems);
    if (count >= MaxDisplayedItems) m_items = std::make_shared<NoItems>();
    DisplayVisibleItems();
    UpdateScrollBar();
}

void SearchResultList::ClearRows() {
    m_selectedIndex = 0;
    m_shownSelection = nullptr;
    for (int i = 1; i < RowCount(); ++i) RowNo(i).Retire();
    UnloadRows();
    Forget(*m_rows.front());
    m_vertScroll->hide();
    const QSignalBlocker quiet(m_vertScroll);  // there is nothing to show yet
    m_vertScroll->SetValue(0);
    ShowScrollPosition();
}

float SearchResultList::RowHeight() const { return m_rows.front()->Height(); }

int32_t SearchResultList::VisibleRowCount() const {
    if (RowHeight() <= 0) return 0;
    return static_cast<int32_t>(std::nearbyint(static_cast<double>(ClientHeight() / RowHeight()) + 0.5));
}

int32_t SearchResultList::FirstVisibleIndex() const { return m_vertScroll->Value() + 1; }

int32_t SearchResultList::RowsToDisplay() const {
    return std::min(VisibleRowCount(), m_items->Count() - m_vertScroll->Value());
}

void SearchResultList::DisplayVisibleItems() { ShowRows(Fill::All); }

void SearchResultList::ShowRows(Fill fill) {
    try {
        FillRows(fill);
    } catch (...) {
        const Error error = CurrentError();
        HideUnfilledRows();
        Raise(error.Number(), "SearchResultList.DisplayVisibleItems", "DisplayVisibleItems: " + error.Description());
    }
}

void SearchResultList::FillRows(Fill fill) {
    const int32_t rows = RowsToDisplay();
    const int32_t first = FirstVisibleIndex();
    float top = 0;
    for (int32_t i = 0; i < rows; ++i) {
        if (first + i > m_items->Count()) return;
        const StoredItemRef item = m_items->ItemAt(first + i - 1);
        if (i == RowCount()) LoadRow()->lower();
        SearchResultRow& row = RowNo(i);
        if (i > 0) top = RowNo(i - 1).Bottom();
        row.Move(0, top);
        row.SetTag(QString());
        if (fill == Fill::All || row.Item() != item || !row.IsUpToDate()) row.SetItem(item);
        row.SetTag(QString::number(first + i));
    }
    for (int32_t i = 0; i < RowCount(); ++i) RowNo(i).setVisible(i < rows);
    UpdateRowFocus();
    repaint();
}

// A row that could not be filled may show another item's text.
void SearchResultList::HideUnfilledRows() {
    for (int i = 0; i < RowCount(); ++i) {
        SearchResultRow& row = RowNo(i);
        row.Move(0, RowHeight() * static_cast<float>(i));
        if (ShownIndex(row) != FirstVisibleIndex() + i) Forget(row);
    }
    UpdateRowFocus();
}

void SearchResultList::Forget(SearchResultRow& row) {
    row.SetTag(QString());
    row.SetSelected(false);
    if (row.Focused()) row.SetFocused(false);
    row.hide();
}

// Rows that stay visible keep their items and change their positions.
void SearchResultList::RotateRows() {
    const int32_t count = RowCount();
    const int32_t shown = ShownIndex(*m_rows.front());
    const int32_t shift = FirstVisibleIndex() - shown;
    if (shown == 0 || shift == 0 || std::abs(shift) >= count) return;
    std::rotate(m_rows.begin(), m_rows.begin() + (shift > 0 ? shift : count + shift), m_rows.end());
    for (int32_t i = 0; i < count; ++i) RowNo(i).SetIndex(i);
}

void SearchResultList::UpdateRowFocus() {
    for (SearchResultRow* row : m_rows) {
        if (row->Tag().isEmpty()) continue;
        const bool selected = ShownIndex(*row) == m_selectedIndex;
        if (selected) m_shownSelection = row->Item();
        row->SetSelected(selected);
        const bool focused = selected && m_focusLook.IsFocused();
        if (row->Focused() != focused) row->SetFocused(focused);
    }
}

void SearchResultList::UpdateScrollBar() {
    if (IsInsideDesigner()) return;
    GuardSilently([this] {
        const QSignalBlocker quiet(m_vertScroll);  // the caller fills the rows
        const int before = m_vertScroll->Value();
        PlaceScrollBar();
        const float needed = static_cast<float>(m_items->Count()) * RowHeight();
        if (needed > ClientHeight()) {
            m_vertScroll->SetMin(0);
            m_vertScroll->SetMax(m_items->Count() - VisibleRowCount());
            m_vertScroll->SetSmallChange(1);
            m_vertScroll->SetLargeChange(1);
            m_vertScroll->SetThumbShare(ClientHeight() / needed);
            m_vertScroll->show();
        } else {
            m_vertScroll->hide();
            m_vertScroll->SetValue(0);
            ShowScrollPosition();  // a row that was clipped may have moved the container
        }
        if (m_vertScroll->Value() != before) ShowScrollPosition();
    });
}

void SearchResultList::Layout() {
    try {
        UpdateScrollBar();
        LayoutRows(RowHeight() * static_cast<float>(VisibleRowCount()));
        DisplayVisibleItems();
    } catch (...) {
        qDebug().noquote() << "UserControl_Resize:" << ToQString(CurrentError().Description());
    }
}

void SearchResultList::VertScroll_Change() {
    ShowScrollPosition();
    RotateRows();
    ShowRows(Fill::Changed);
}

void SearchResultList::ShowScrollPosition() {
    const int value = m_vertScroll->Value();
    if (value == m_vertScroll->Min()) {
        m_container->SetTop(0);
        m_vertScroll->SetArrows(FlatScrollBar::Down);
    } else if (value == m_vertScroll->Max()) {
        m_vertScroll->SetArrows(FlatScrollBar::Up);
    } else {
        m_vertScroll->SetArrows(FlatScrollBar::Both);
    }
}

bool SearchResultList::IsValidIndex(int32_t index) const { return index >= 1 && index <= m_items->Count(); }

void SearchResultList::SelectRow(const SearchResultRow& row) { SelectIndex(ShownIndex(row)); }

void SearchResultList::MoveSelection(int delta) {
    if (m_selectedIndex == 0 && !m_rows.front()->IsShown()) return;
    if (IsUnread(m_selectedIndex + delta)) ShowRows(Fill::Changed);
    SelectIndex(m_selectedIndex + delta);
}

// Whether the index is inside the view and the row for it could not be filled.
bool SearchResultList::IsUnread(int32_t index) const {
    const int32_t row = index - FirstVisibleIndex();
    return row >= 0 && row < RowsToDisplay() && (row >= RowCount() || ShownIndex(RowNo(row)) != index);
}

// Scrolling may report that a row cannot be read, and the report may destroy the list or show other items.
void SearchResultList::SelectIndex(int32_t index) {
    if (IsValidIndex(index)) {
        const QPointer<SearchResultList> self(this);
        const auto items = m_items;
        const Place before{m_shownSelection, m_selectedIndex};
        if (index != m_selectedIndex) m_shownSelection = nullptr;
        m_selectedIndex = index;
        if (index > FirstVisibleIndex() + VisibleRowCount() - 1) ScrollDown();
        if (self && index < FirstVisibleIndex()) ScrollUp();
        if (!self) return;
        if (m_items == items && m_selectedIndex == index && IsUnread(index)) {
            m_selectedIndex = before.index;
            m_shownSelection = before.item;
        }
        if (isVisible() && isEnabled()) setFocus();
        UpdateRowFocus();
    }
    EnsureSelectionVisible();
}

// The arrow keys scroll by one row at a time; this goes any distance.
void SearchResultList::ScrollTo(int32_t index) {
    int value = m_vertScroll->Value();
    if (index > FirstVisibleIndex() + VisibleRowCount() - 1) value = index - VisibleRowCount();
    if (index < FirstVisibleIndex()) value = index - 1;
    SetScrollValue(std::clamp(value, m_vertScroll->Min(), m_vertScroll->Max()));
}

void SearchResultList::SelectPosition(int position) {
    const QPointer<SearchResultList> self(this);
    if (IsUnread(position + 1)) ShowRows(Fill::Changed);
    ScrollTo(position + 1);
    if (self) SelectIndex(position + 1);
}

void SearchResultList::ScrollUp() { SetScrollValue(m_vertScroll->Value() - 1); }

void SearchResultList::ScrollDown() { SetScrollValue(m_vertScroll->Value() + 1); }

void SearchResultList::SetScrollValue(int value) {
    if (value >= m_vertScroll->Min() && value <= m_vertScroll->Max()) m_vertScroll->SetValue(value);
}

int SearchResultList::FocusedRow() const {
    for (int i = 0; i < RowCount(); ++i)
        if (RowNo(i).Focused() && RowNo(i).IsShown()) return i;
    return -1;
}

int SearchResultList::LastRow() const { return VisibleRowCount() - 1; }

void SearchResultList::MoveRefused(int delta) { SetScrollValue(m_vertScroll->Value() + delta); }

void SearchResultList::EnsureSelectionVisible() {
    const int focused = FocusedRow();
    if (focused < 0) return;
    const SearchResultRow& row = RowNo(focused);
    const float top = m_container->Top() + row.Top();
    const bool clipped = top < 0 || top + row.Height() > ClientHeight();
    if (!clipped) return;
    m_container->SetTop(row.Top() == 0 ? 0 : ClientHeight() - m_container->Height());
}

void SearchResultList::ClickRow(int row, int button) {
    if (!RowNo(row).IsShown()) return;
    const QPointer<SearchResultList> self(this);
    if (button & (MouseButton::Left | MouseButton::Right)) SelectRow(RowNo(row));
    if (self && button & MouseButton::Right) OfferContextMenu();
}

void SearchResultList::DoubleClickRow(int row) {
    if (!RowNo(row).IsShown()) return;
    const StoredItemRef item = RowNo(row).Item();
    emit ItemOpenRequest(item);
}

void SearchResultList::keyPressEvent(QKeyEvent* event) {
    if (KeyCodeOf(*event) != KeyCode::Enter) return ScrollingListOf::keyPressEvent(event);
    if (IsRepetition(*event)) return;  // an Enter held since the search must not open the first item
    if (m_selectedIndex == 0 || IsUnread(m_selectedIndex)) return;
    Guard([this] {
        if (const StoredItemRef item = SelectedItem()) emit ItemOpenRequest(item);
    });
}

}  // namespace quellbrook
