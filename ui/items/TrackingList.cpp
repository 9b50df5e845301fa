#include "ui/items/TrackingList.h"

#include "access/User.h"
#include "base/KeyState.h"
#include "ui/common/ViewHelpers.h"
#include "ui/controls/Activation.h"
#include "ui/controls/FlatScrollBar.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/MouseEvents.h"
#include "ui/explorer/ListPlaceholder.h"
#include "ui/explorer/StatePanel.h"
#include "ui/items/TrackingResult.h"
#include "ui/platform/Guard.h"
#include "ui/platform/Twips.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPointer>

#include <algorithm>
#include <cmath>

namespace quellbrook {

namespace {

constexpr int LeftButton = 1, RightButton = 2;
constexpr int LeftKey = 37, UpKey = 38, RightKey = 39, DownKey = 40;
constexpr int MaxScroll = 32767;
constexpr size_t RowsBetweenYields = 10;

int Rounded(float twips) { return static_cast<int>(std::nearbyint(twips)); }

}  // namespace

TrackingList::TrackingList(QWidget* parent) : Control(parent) {
    BuildControls();
    ConnectEvents();
}

void TrackingList::BuildControls() {
    m_container = new GroupBox(this);
    m_container->setObjectName("picContainer");
    m_container->Move(0, 0);
    m_rows.push_back(new TrackingResult(m_container));
    m_rows.front()->setObjectName("searchResult");
    m_rows.front()->SetIndex(0);
    m_rows.front()->Move(0, 0);
    m_rows.front()->hide();
    m_vertScroll = new FlatScrollBar(this);
    m_vertScroll->setObjectName("vertScroll");
    m_vertScroll->hide();
    m_noResults = new StatePanel("search", "No items found.",
                                 "Check for typos in your search filter, or try a different search term.", this);
    m_noResults->setObjectName("picNoResults");
    m_noResults->hide();
    m_noAccess =
        new StatePanel("secured", "You can't view this data.",
                       "You do not have the appropriate permissions to view chain-of-custody information.", this);
    m_noAccess->setObjectName("picNoAccess");
    m_noAccess->hide();
    new ListPlaceholder(this);
}

void TrackingList::ConnectEvents() {
    WatchRow(m_rows.front());
    const auto* mouseEvents = new MouseEvents(m_container);
    connect(mouseEvents, &MouseEvents::Up, this,
            [this](int button, const QPoint& at) { Guard([&] { ListMouseEvents_MouseUp(button, at); }); });
    connect(mouseEvents, &MouseEvents::DoubleClick, this,
            [this](const QPoint& at) { Guard([&] { ListMouseEvents_DoubleClick(at); }); });
    new ScrollWheelSupport(m_container, m_vertScroll);
    connect(m_vertScroll, &FlatScrollBar::Changed, this, [this] { Guard([this] { VertScroll_Change(); }); });
}

void TrackingList::WatchRow(TrackingResult* row) {
    connect(row, &TrackingResult::GotFocus, this, [this, row] { Guard([this, row] { Row_GotFocus(row); }); });
}

void TrackingList::SetItem(const StoredItemRef& item) {
    SetRecords(std::make_shared<TrackingRecordList>(Require(item, "TrackingList.SetItem")->TrackingRecords()));
}

void TrackingList::SetRecords(std::shared_ptr<const TrackingRecordList> records) {
    if (!records) Raise(ErrorNumber::General, "TrackingList.SetRecords", "Results cannot be Nothing");
    if (m_isYielding) {
        m_pendingRecords = std::move(records);
        return;
    }
    m_records = std::move(records);
    Rebuild();
}

void TrackingList::Rebuild() {
    UnloadRows();
    m_container->SetHeight(ClientHeight());
    m_vertScroll->hide();
    m_vertScroll->SetValue(0);
    m_noResults->setVisible(m_records->empty());
    const bool mayView = GetUser().Can(GetPermissions().VIEW_CHAIN_OF_CUSTODY());
    m_noAccess->setVisible(!mayView);
    m_noAccess->raise();
    if (mayView && !BuildRows()) return;
    m_container->SetHeight(BottomOfRows());
    UpdateScrollBar();
}

void TrackingList::UnloadRows() {
    while (m_rows.size() > 1) {
        // Destroyed later: the event that led here may be on its way through the row.
        m_rows.back()->hide();
        m_rows.back()->deleteLater();
        m_rows.pop_back();
    }
    TrackingResult* first = m_rows.front();
    first->hide();
    first->SetTabIndex(0);
    first->SetTabStop(true);
}

TrackingResult* TrackingList::LoadRow() {
    TrackingResult* before = m_rows.back();
    TrackingResult* row = LoadMember(m_rows, m_container);
    setTabOrder(before, row);
    row->hide();
    row->SetWidth(m_rows.front()->Width());
    WatchRow(row);
    return row;
}

// False when another chain has taken this one's place, or the list has gone.
bool TrackingList::BuildRows() {
    const std::shared_ptr<const TrackingRecordList> records = m_records;
    float top = 0;
    for (size_t i = 1; i <= records->size(); ++i) {
        TrackingResult* row = m_rows.front();
        if (i > 1) {
            top = m_rows.back()->Bottom();
            row = LoadRow();
        }
        row->Move(0, top);
        row->SetItem((*records)[i - 1]);
        if (i % RowsBetweenYields > 0) continue;
        ShowRows(i - RowsBetweenYields, i);
        if (!Yield()) return false;
    }
    ShowRows(0, records->size());
    return true;
}

bool TrackingList::Yield() {
    const QPointer<TrackingList> self(this);
    m_isYielding = true;
    QCoreApplication::processEvents();
    if (!self) return false;
    m_isYielding = false;
    if (!m_pendingRecords) return true;
    m_records = std::move(m_pendingRecords);
    m_pendingRecords = nullptr;
    Rebuild();
    return false;
}

void TrackingList::ShowRows(size_t from, size_t to) {
    for (size_t i = from; i < to; ++i) m_rows[i]->show();
}

float TrackingList::BottomOfRows() const { return m_rows.back()->Bottom(); }

void TrackingList::UpdateScrollBar() {
    m_vertScroll->Move(ClientWidth() - m_vertScroll->Width(), 0);
    m_vertScroll->SetHeight(ClientHeight());
    const float rowHeight = m_rows.front()->Height();
    const float overflow = BottomOfRows() - ClientHeight();
    if (overflow <= 0) {
        m_vertScroll->hide();
        return;
    }
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

void TrackingList::LayoutList() {
    m_container->SetWidth(ClientWidth() - m_vertScroll->Width());
    m_container->SetHeight(BottomOfRows());
    for (TrackingResult* row : m_rows) row->SetWidth(m_container->Width());
    for (StatePanel* panel : {m_noResults, m_noAccess})
        CenterInContainer(*panel, *this, Center::Horizontally | Center::Vertically);
}

void TrackingList::Layout() {
    UpdateScrollBar();
    LayoutList();
}

void TrackingList::VertScroll_Change() {
    m_container->SetTop(-static_cast<float>(m_vertScroll->Value() + m_vertScroll->Min()));
}

int TrackingList::FocusedRow() const {
    const QWidget* focused = window()->focusWidget();
    if (!focused) return -1;
    for (size_t i = 0; i < m_rows.size(); ++i)
        if (m_rows[i] == focused || m_rows[i]->isAncestorOf(focused)) return static_cast<int>(i);
    return -1;
}

std::shared_ptr<TrackingRecord> TrackingList::SelectedItem() const {
    const int row = FocusedRow();
    return row < 0 ? nullptr : m_rows[static_cast<size_t>(row)]->Item();
}

void TrackingList::Row_GotFocus(TrackingResult* row) {
    for (TrackingResult* other : m_rows) other->SetTabStop(other == row);
    row->SetTabIndex(0);
    const auto found = std::find(m_rows.begin(), m_rows.end(), row);
    if (found != m_rows.end()) EnsureRowVisible(static_cast<int>(found - m_rows.begin()));
}

void TrackingList::EnsureRowVisible(int row) {
    if (!m_vertScroll->IsShown()) return;
    const TrackingResult& target = *m_rows.at(static_cast<size_t>(row));
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

int TrackingList::RowAt(int x, int y) const {
    const float left = ToTwips(x), top = ToTwips(y);
    for (size_t i = 0; i < m_rows.size(); ++i) {
        const TrackingResult& row = *m_rows[i];
        if (row.Left() < left && left < row.Right() && row.Top() < top && top < row.Bottom())
            return static_cast<int>(i);
    }
    return -1;
}

void TrackingList::ListMouseEvents_MouseUp(int button, const QPoint& at) {
    const int hit = RowAt(at.x(), at.y());
    if (hit < 0) return;
    if (button & LeftButton) m_rows[static_cast<size_t>(hit)]->SetTabIndex(0);
    if (!(button & RightButton) || hit != FocusedRow()) return;
    QMenu* menu = nullptr;
    QAction* defaultItem = nullptr;
    emit ItemContextMenu(menu, defaultItem);
    ShowContextMenu(this, menu, defaultItem);
}

void TrackingList::ListMouseEvents_DoubleClick(const QPoint& at) {
    const int hit = RowAt(at.x(), at.y());
    if (hit < 0) return;
    const std::shared_ptr<TrackingRecord> record = m_rows[static_cast<size_t>(hit)]->Item();
    emit ItemOpenRequest(record);
}

bool TrackingList::ValidateRow(int row) const {
    if (row == 0 && (IsKeyDown(LeftKey) || IsKeyDown(UpKey))) return true;
    return row == static_cast<int>(m_rows.size()) - 1 && (IsKeyDown(RightKey) || IsKeyDown(DownKey));
}

void TrackingList::MoveFocus(int delta) {
    const int row = FocusedRow();
    if (row < 0 || ValidateRow(row)) return;
    const int target = row + delta;
    if (target < 0 || target >= static_cast<int>(m_rows.size())) return;
    TrackingResult* next = m_rows[static_cast<size_t>(target)];
    if (next->isVisible() && next->isEnabled()) next->setFocus();
}

void TrackingList::keyPressEvent(QKeyEvent* event) {
    switch (KeyCodeOf(*event)) {
    case LeftKey:
    case UpKey: Guard([this] { MoveFocus(-1); }); break;
    case RightKey:
    case DownKey: Guard([this] { MoveFocus(1); }); break;
    default: Control::keyPressEvent(event);
    }
}

bool TrackingList::focusNextPrevChild(bool next) {
    const int row = FocusedRow();
    return (row >= 0 && ValidateRow(row)) || Control::focusNextPrevChild(next);
}

}  // namespace quellbrook
