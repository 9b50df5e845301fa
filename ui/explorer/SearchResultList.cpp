#include "ui/explorer/SearchResultList.h"

#include "base/KeyState.h"
#include "ui/common/ViewHelpers.h"
#include "ui/controls/Activation.h"
#include "ui/controls/FlatScrollBar.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/MouseEvents.h"
#include "ui/controls/View.h"
#include "ui/explorer/ListPlaceholder.h"
#include "ui/explorer/SearchResultRow.h"
#include "ui/explorer/StatePanel.h"
#include "ui/platform/Guard.h"
#include "ui/platform/Strings.h"
#include "ui/platform/Twips.h"

#include <QApplication>
#include <QDebug>
#include <QKeyEvent>
#include <QPointer>

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

constexpr int LeftButton = 1, RightButton = 2;
constexpr int EnterKey = 13, LeftKey = 37, UpKey = 38, RightKey = 39, DownKey = 40;

// The position in the list of the item that a row shows; 0 while it has shown none.
int32_t ShownIndex(const SearchResultRow& row) { return row.Tag().toInt(); }

}  // namespace

SearchResultList::SearchResultList(QWidget* parent) : Control(parent), m_items(std::make_shared<NoItems>()) {
    setFocusPolicy(Qt::StrongFocus);
    BuildControls();
    ConnectEvents();
}

// The toolkit's own destructor still moves the focus.
SearchResultList::~SearchResultList() { disconnect(m_focusWatch); }

void SearchResultList::BuildControls() {
    m_container = new GroupBox(this);
    m_container->setObjectName("picContainer");
    m_container->Move(0, 0);
    m_rows.push_back(new SearchResultRow(m_container));
    m_rows.front()->setObjectName("searchResult");
    m_rows.front()->SetIndex(0);
    m_rows.front()->Move(0, 0);
    m_rows.front()->hide();
    PrepareRow(m_rows.front());
    m_vertScroll = new FlatScrollBar(this);
    m_vertScroll->setObjectName("vertScroll");
    m_vertScroll->SetThumbFilter(true);
    m_vertScroll->SetArrows(FlatScrollBar::Down);
    m_vertScroll->hide();
    m_noResults = new StatePanel("search", "No items found.",
                                 "Check for typos in your search filter, or try a different search term.", this);
    m_noResults->setObjectName("picNoResults");
    m_noResults->hide();
    m_tooManyResults = new StatePanel("warning", "Too many results.",
                                      "There are too many results to display here. Please narrow your search.", this);
    m_tooManyResults->setObjectName("picTooManyResults");
    m_tooManyResults->hide();
    new ListPlaceholder(this);
}

void SearchResultList::ConnectEvents() {
    const auto* mouseEvents = new MouseEvents(m_container);
    connect(mouseEvents, &MouseEvents::Up, this,
            [this](int button, const QPoint& at) { Guard([&] { ListMouseEvents_Click(button, at); }); });
    connect(mouseEvents, &MouseEvents::DoubleClick, this,
            [this](const QPoint& at) { Guard([&] { ListMouseEvents_DoubleClick(at); }); });
    new ScrollWheelSupport(m_container, m_vertScroll);
    connect(m_vertScroll, &FlatScrollBar::Changed, this, [this] { Guard([this] { VertScroll_Change(); }); });
    m_focusWatch = connect(qApp, &QApplication::focusChanged, this,
                           [this](const QWidget* old, const QWidget* now) { Guard([&] { FollowFocus(old, now); }); });
}

void SearchResultList::SetItems(std::shared_ptr<StoredItemList> items) {
    if (!items) Raise(ErrorNumber::General, "SearchResultList.SetItems", "Items cannot be Nothing");
    m_items = std::move(items);
    LoadResults();
    if (m_rows.front()->IsShown()) SelectRow(*m_rows.front());
}

StoredItemRef SearchResultList::SelectedItem() const {
    if (m_items->IsEmpty()) return nullptr;
    return m_items->ItemAt(m_selectedIndex - 1);
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
    while (m_rows.size() > 1) {
        // Destroyed later: the click that led here may be on its way through the row.
        m_rows.back()->Retire();
        m_rows.back()->deleteLater();
        m_rows.pop_back();
    }
    m_rows.front()->hide();
    m_vertScroll->hide();
    m_vertScroll->SetValue(0);
}

float SearchResultList::InnerHeight() const { return ClientHeight(); }

float SearchResultList::RowHeight() const { return m_rows.front()->Height(); }

int32_t SearchResultList::VisibleRowCount() const {
    if (RowHeight() <= 0) return 0;
    return static_cast<int32_t>(std::nearbyint(static_cast<double>(InnerHeight() / RowHeight()) + 0.5));
}

int32_t SearchResultList::FirstVisibleIndex() const { return m_vertScroll->Value() + 1; }

int32_t SearchResultList::RowsToDisplay() const {
    return std::min(VisibleRowCount(), m_items->Count() - m_vertScroll->Value());
}

void SearchResultList::DisplayVisibleItems() { ShowRows(Filling::Anew); }

void SearchResultList::ShowRows(Filling filling) {
    try {
        FillRows(filling);
    } catch (...) {
        const Error error = CurrentError();
        Raise(error.Number(), "SearchResultList.DisplayVisibleItems", "DisplayVisibleItems: " + error.Description());
    }
}

void SearchResultList::FillRows(Filling filling) {
    const int32_t rows = RowsToDisplay();
    const int32_t first = FirstVisibleIndex();
    float top = 0;
    for (int32_t i = 0; i < rows; ++i) {
        if (first + i > m_items->Count()) return;
        const StoredItemRef item = m_items->ItemAt(first + i - 1);
        SearchResultRow* row = i < static_cast<int32_t>(m_rows.size()) ? m_rows[static_cast<size_t>(i)] : LoadRow();
        if (i > 0) top = m_rows[static_cast<size_t>(i) - 1]->Bottom();
        row->Move(0, top);
        if (filling == Filling::Anew || row->Item() != item || !row->IsUpToDate()) row->SetItem(item);
        row->SetTag(QString::number(first + i));
    }
    for (int32_t i = 0; i < static_cast<int32_t>(m_rows.size()); ++i)
        m_rows[static_cast<size_t>(i)]->setVisible(i < rows);
    UpdateRowFocus();
    update();
}

SearchResultRow* SearchResultList::LoadRow() {
    SearchResultRow* row = LoadMember(m_rows, m_container);
    row->SetWidth(m_container->Width());
    row->lower();
    PrepareRow(row);
    return row;
}

void SearchResultList::PrepareRow(SearchResultRow* row) {
    row->SetRefreshReport([this](const Error& error) { ReportRefreshError(error); });
}

// Each row reads its item anew at a change of the batch. Where the database does not answer, one of them says so for
// all.
void SearchResultList::ReportRefreshError(const Error& error) {
    if (m_refreshErrorReported) return;
    const QPointer<SearchResultList> self(this);
    m_refreshErrorReported = true;
    ReportUnexpected(error);
    if (!self) return;
    QMetaObject::invokeMethod(
        this, [this] { m_refreshErrorReported = false; }, Qt::QueuedConnection);
}

// Rows that stay in view keep their items and change places.
void SearchResultList::RotateRows() {
    const int32_t count = static_cast<int32_t>(m_rows.size());
    const int32_t shown = ShownIndex(*m_rows.front());
    const int32_t shift = FirstVisibleIndex() - shown;
    if (shown == 0 || shift == 0 || std::abs(shift) >= count) return;
    std::rotate(m_rows.begin(), m_rows.begin() + (shift > 0 ? shift : count + shift), m_rows.end());
    for (int32_t i = 0; i < count; ++i) m_rows[static_cast<size_t>(i)]->SetIndex(i);
}

void SearchResultList::UpdateRowFocus() {
    for (SearchResultRow* row : m_rows) {
        if (row->Tag().isEmpty()) continue;
        const bool focused = m_hasFocus && ShownIndex(*row) == m_selectedIndex;
        if (row->Focused() != focused) row->SetFocused(focused);
    }
}

void SearchResultList::UpdateScrollBar() {
    if (IsInsideDesigner()) return;
    GuardSilently([this] {
        m_vertScroll->Move(ClientWidth() - m_vertScroll->Width(), 0);
        m_vertScroll->SetHeight(InnerHeight());
        const float needed = static_cast<float>(m_items->Count()) * RowHeight();
        if (needed > InnerHeight()) {
            m_vertScroll->SetMin(0);
            m_vertScroll->SetMax(m_items->Count() - VisibleRowCount());
            m_vertScroll->SetSmallChange(1);
            m_vertScroll->SetLargeChange(1);
            m_vertScroll->show();
        } else {
            m_vertScroll->hide();
            m_vertScroll->SetValue(0);
        }
    });
}

void SearchResultList::LayoutRows() {
    m_container->SetWidth(ClientWidth() - m_vertScroll->Width());
    m_container->SetHeight(RowHeight() * static_cast<float>(VisibleRowCount()));
    for (SearchResultRow* row : m_rows) row->SetWidth(m_container->Width());
    for (StatePanel* panel : {m_noResults, m_tooManyResults})
        CenterInContainer(*panel, *this, Center::Horizontally | Center::Vertically);
}

void SearchResultList::Layout() {
    try {
        UpdateScrollBar();
        LayoutRows();
        DisplayVisibleItems();
    } catch (...) {
        qDebug().noquote() << "UserControl_Resize:" << ToQString(CurrentError().Description());
    }
}

void SearchResultList::VertScroll_Change() {
    const int value = m_vertScroll->Value();
    if (value == m_vertScroll->Min()) {
        m_container->SetTop(0);
        m_vertScroll->SetArrows(FlatScrollBar::Down);
    } else if (value == m_vertScroll->Max()) {
        m_vertScroll->SetArrows(FlatScrollBar::Up);
    } else {
        m_vertScroll->SetArrows(FlatScrollBar::Both);
    }
    RotateRows();
    ShowRows(Filling::WhereNeeded);
}

bool SearchResultList::IsValidIndex(int32_t index) const { return index >= 1 && index <= m_items->Count(); }

void SearchResultList::SelectRow(const SearchResultRow& row) { SelectIndex(ShownIndex(row)); }

void SearchResultList::MoveSelection(int32_t delta) { SelectIndex(m_selectedIndex + delta); }

void SearchResultList::SelectIndex(int32_t index) {
    if (IsValidIndex(index)) {
        m_selectedIndex = index;
        if (index > FirstVisibleIndex() + VisibleRowCount() - 1) ScrollDown();
        if (index < FirstVisibleIndex()) ScrollUp();
        if (isVisible() && isEnabled()) setFocus();
        UpdateRowFocus();
    }
    EnsureSelectionVisible();
}

void SearchResultList::ScrollUp() { SetScrollValue(m_vertScroll->Value() - 1); }

void SearchResultList::ScrollDown() { SetScrollValue(m_vertScroll->Value() + 1); }

void SearchResultList::SetScrollValue(int value) {
    if (value >= m_vertScroll->Min() && value <= m_vertScroll->Max()) m_vertScroll->SetValue(value);
}

int SearchResultList::FocusedRow() const {
    for (size_t i = 0; i < m_rows.size(); ++i)
        if (m_rows[i]->Focused() && m_rows[i]->IsShown()) return static_cast<int>(i);
    return -1;
}

void SearchResultList::EnsureSelectionVisible() {
    const int focused = FocusedRow();
    if (focused < 0) return;
    const SearchResultRow& row = *m_rows[static_cast<size_t>(focused)];
    const float top = m_container->Top() + row.Top();
    const bool clipped = top < 0 || top + row.Height() > InnerHeight();
    if (!clipped) return;
    m_container->SetTop(row.Top() == 0 ? 0 : InnerHeight() - m_container->Height());
}

int SearchResultList::HitTestRow(float x, float y) const {
    for (size_t i = 0; i < m_rows.size(); ++i) {
        const SearchResultRow& row = *m_rows[i];
        if (row.Left() < x && row.Right() > x && row.Top() < y && row.Bottom() > y) return static_cast<int>(i);
    }
    return -1;
}

void SearchResultList::ListMouseEvents_Click(int button, const QPoint& at) {
    const int hit = HitTestRow(ToTwips(at.x()), ToTwips(at.y()));
    if (hit < 0) return;
    if (button & (LeftButton | RightButton)) SelectRow(*m_rows[static_cast<size_t>(hit)]);
    if (!(button & RightButton)) return;
    QMenu* menu = nullptr;
    QAction* defaultItem = nullptr;
    emit ItemContextMenu(menu, defaultItem);
    ShowContextMenu(this, menu, defaultItem);
}

void SearchResultList::ListMouseEvents_DoubleClick(const QPoint& at) {
    const int hit = HitTestRow(ToTwips(at.x()), ToTwips(at.y()));
    if (hit < 0) return;
    const StoredItemRef item = m_rows[static_cast<size_t>(hit)]->Item();
    emit ItemOpenRequest(item);
}

bool SearchResultList::KeyDown(int keyCode) {
    switch (keyCode) {
    case EnterKey:
        if (const StoredItemRef item = SelectedItem()) emit ItemOpenRequest(item);
        return true;
    case LeftKey:
    case UpKey: MoveSelection(-1); return true;
    case RightKey:
    case DownKey: MoveSelection(1); return true;
    default: return false;
    }
}

void SearchResultList::keyPressEvent(QKeyEvent* event) {
    bool taken = true;
    Guard([&] { taken = KeyDown(KeyCodeOf(*event)); });
    if (!taken) Control::keyPressEvent(event);
}

bool SearchResultList::focusNextPrevChild(bool next) {
    bool refused = false;
    Guard([&] {
        const int row = FocusedRow();
        refused = row >= 0 && ValidateRow(row);
    });
    return refused || Control::focusNextPrevChild(next);
}

bool SearchResultList::ValidateRow(int row) {
    if (row == 0 && (IsKeyDown(LeftKey) || IsKeyDown(UpKey))) {
        if (m_vertScroll->Value() >= 1) m_vertScroll->SetValue(m_vertScroll->Value() - 1);
        return true;
    }
    if (row == VisibleRowCount() - 1 && (IsKeyDown(RightKey) || IsKeyDown(DownKey))) {
        if (m_vertScroll->Value() < m_vertScroll->Max()) m_vertScroll->SetValue(m_vertScroll->Value() + 1);
        return true;
    }
    return false;
}

// A menu, and a window that comes in front, do not take the focus from the list.
void SearchResultList::FollowFocus(const QWidget* old, const QWidget* now) {
    const bool inside = now && (now == this || isAncestorOf(now));
    const bool left = now ? now->window() == window() : old && QApplication::activeWindow() == window();
    if (!inside && !left) return;
    if (m_hasFocus == inside) return;
    m_hasFocus = inside;
    UpdateRowFocus();
}

}  // namespace quellbrook
