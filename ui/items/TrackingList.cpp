#include "ui/items/TrackingList.h"

#include "access/User.h"
#include "ui/common/StatePanel.h"
#include "ui/common/ViewHelpers.h"
#include "ui/controls/FlatScrollBar.h"
#include "ui/controls/MouseEvents.h"
#include "ui/platform/Guard.h"

#include <algorithm>
#include <cmath>

namespace quellbrook {

namespace {

constexpr int MaxScroll = 32767;
constexpr int RowsInATurn = 10;

int Rounded(float twips) { return static_cast<int>(std::nearbyint(twips)); }

}  // namespace

TrackingList::TrackingList(QWidget* parent) : ScrollingListOf(parent) {
    m_noAccess = AddPanel("picNoAccess", "secured", "You can't view this data.",
                          "You do not have the appropriate permissions to view chain-of-custody information.");
    WatchRow(m_rows.front());
    m_nextTurn.setSingleShot(true);
    connect(&m_nextTurn, &QTimer::timeout, this, [this] { Guard([this] { BuildRows(); }); });
}

void TrackingList::WatchRow(TrackingResult* row) {
    connect(row, &TrackingResult::GotFocus, this, [this, row] { Guard([this, row] { Row_GotFocus(row); }); });
}

void TrackingList::SetItem(const StoredItemRef& item) {
    SetRecords(std::make_shared<TrackingRecordList>(Require(item, "TrackingList.SetItem")->TrackingRecords()));
}

void TrackingList::SetRecords(std::shared_ptr<const TrackingRecordList> records) {
    if (!records) Raise(ErrorNumber::General, "TrackingList.SetRecords", "Results cannot be Nothing");
    m_records = std::move(records);
    Clear();
    m_noResults->setVisible(m_records->empty());
    const bool mayView = GetUser().Can(GetPermissions().VIEW_CHAIN_OF_CUSTODY());
    m_noAccess->setVisible(!mayView);
    m_noAccess->raise();
    if (mayView) BuildRows();
}

void TrackingList::Clear() {
    m_nextTurn.stop();
    m_built = 0;
    UnloadRows();
    m_rows.front()->SetTabIndex(0);
    m_rows.front()->SetTabStop(true);
    m_container->SetHeight(ClientHeight());
    m_vertScroll->hide();
    m_vertScroll->SetValue(0);
}

TrackingResult& TrackingList::AddRow() {
    TrackingResult* before = m_rows.back();
    TrackingResult* row = LoadRow();
    setTabOrder(before, row);
    row->SetTop(before->Bottom());
    WatchRow(row);
    return *row;
}

// Adds the next rows. A chain with a record that cannot be read shows none, since a part of it would mislead.
void TrackingList::BuildRows() {
    const size_t first = m_built;
    const size_t end = std::min(m_records->size(), first + RowsInATurn);
    try {
        for (; m_built < end; ++m_built) {
            TrackingResult& row = m_built == 0 ? *m_rows.front() : AddRow();
            row.SetItem((*m_records)[m_built]);
        }
    } catch (...) {
        Clear();
        throw;
    }
    for (size_t i = first; i < end; ++i) m_rows[i]->show();
    m_container->SetHeight(BottomOfRows());
    UpdateScrollBar();
    if (m_built < m_records->size()) m_nextTurn.start();
}

float TrackingList::BottomOfRows() const { return m_rows.back()->Bottom(); }

void TrackingList::UpdateScrollBar() {
    PlaceScrollBar();
    const float rowHeight = m_rows.front()->Height();
    const float overflow = BottomOfRows() - ClientHeight();
    if (overflow <= 0) {
        m_vertScroll->SetValue(0);
        m_vertScroll->hide();
        return;
    }
    m_vertScroll->SetThumbShare(ClientHeight() / BottomOfRows());
    m_vertScroll->SetMin(0);
    if (overflow < rowHeight) {
        m_vertScroll->SetMax(Rounded(overflow));
        m_vertScroll->SetSmallChange(1);
        m_vertScroll->SetLargeChange(Rounded(overflow / static_cast<float>(m_rows.size())));
    } else {
        m_vertScroll->SetMax(std::min(MaxScroll, Rounded(overflow)));
        m_vertScroll->SetSmallChange(Rounded(rowHeight));
        m_vertScroll->SetLargeChange(Rounded(rowHeight));
    }
    m_vertScroll->show();
}

void TrackingList::Layout() {
    UpdateScrollBar();
    LayoutRows(BottomOfRows());
}

void TrackingList::VertScroll_Change() {
    m_container->SetTop(-static_cast<float>(m_vertScroll->Value() + m_vertScroll->Min()));
}

int TrackingList::FocusedRow() const {
    const QWidget* focused = window()->focusWidget();
    if (!focused) return -1;
    for (int i = 0; i < RowCount(); ++i)
        if (&RowNo(i) == focused || RowNo(i).isAncestorOf(focused)) return i;
    return -1;
}

int TrackingList::LastRow() const { return RowCount() - 1; }

std::shared_ptr<TrackingRecord> TrackingList::SelectedItem() const {
    const int row = FocusedRow();
    return row < 0 ? nullptr : RowNo(row).Item();
}

void TrackingList::Row_GotFocus(TrackingResult* row) {
    for (TrackingResult* other : m_rows) other->SetTabStop(other == row);
    row->SetTabIndex(0);
    EnsureRowVisible(row->Index());
}

void TrackingList::EnsureRowVisible(int row) {
    if (!m_vertScroll->IsShown()) return;
    const TrackingResult& target = RowNo(row);
    const float top = m_container->Top() + target.Top();
    float value = 0;
    if (top < 0)
        value = target.Top();
    else if (top + target.Height() > ClientHeight())
        value = target.Bottom() - ClientHeight();
    else
        return;
    m_vertScroll->SetValue(std::clamp(Rounded(value), m_vertScroll->Min(), m_vertScroll->Max()));
}

void TrackingList::ClickRow(int row, int button) {
    if (button & MouseButton::Left) RowNo(row).SetTabIndex(0);
    if (button & MouseButton::Right && row == FocusedRow()) OfferContextMenu();
}

void TrackingList::DoubleClickRow(int row) {
    const std::shared_ptr<TrackingRecord> record = RowNo(row).Item();
    emit ItemOpenRequest(record);
}

void TrackingList::MoveSelection(int delta) {
    const int row = FocusedRow();
    if (row < 0 || ValidateRow(row)) return;
    const int target = row + delta;
    if (target >= 0 && target < RowCount()) FocusRow(target);
}

void TrackingList::FocusRow(int row) {
    TrackingResult& target = RowNo(row);
    if (target.isVisible() && target.isEnabled()) target.setFocus();  // not TrySetFocus, which counts its calls
}

void TrackingList::SelectPosition(int position) {
    FocusRow(position);
    EnsureRowVisible(position);
}

}  // namespace quellbrook
