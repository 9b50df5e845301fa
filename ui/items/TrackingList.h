#pragma once

#include "data/CustodyRecords.h"
#include "data/StoredItem.h"
#include "ui/controls/Control.h"

#include <memory>
#include <vector>

class QAction;
class QMenu;

namespace quellbrook {

class FlatScrollBar;
class GroupBox;
class StatePanel;
class TrackingResult;

// The chain of custody of one item, a row a record in a tall panel that scrolls. Rows are built ten at a time, with the
// message loop run in between. Shows no row to a user without the right to view chains of custody.
class TrackingList : public Control {
    Q_OBJECT

public:
    explicit TrackingList(QWidget* parent = nullptr);
    std::string TypeName() const override { return "TrackingList"; }

    // Reads the item's chain anew and shows it. While an earlier chain is being built it takes that one's place at the
    // next turn of the message loop.
    void SetItem(const StoredItemRef& item);
    // Error 5 for null.
    void SetRecords(std::shared_ptr<const TrackingRecordList> records);

    // The record of the row that has the focus; null when no control of the list has it.
    std::shared_ptr<TrackingRecord> SelectedItem() const;

    // The first row around this point of picContainer, in pixels, edges excluded; -1 for none.
    int RowAt(int x, int y) const;
    // Scrolls by as little as brings the row into view.
    void EnsureRowVisible(int row);
    // Asked before the focus leaves a row: true when an arrow key would take it out of the list.
    bool ValidateRow(int row) const;

    // A row a record; one hidden row while there is none. Never empty.
    const std::vector<TrackingResult*>& Rows() const { return m_rows; }

signals:
    // The receiver sets the menu, and the entry that is to look like the default one.
    void ItemContextMenu(QMenu*& menu, QAction*& defaultItem);
    void ItemOpenRequest(const std::shared_ptr<quellbrook::TrackingRecord>& record);

protected:
    void Layout() override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void BuildControls();
    void ConnectEvents();
    void WatchRow(TrackingResult* row);
    TrackingResult* LoadRow();
    void UnloadRows();
    void Rebuild();
    bool BuildRows();
    bool Yield();
    void ShowRows(size_t from, size_t to);
    void UpdateScrollBar();
    void LayoutList();
    float BottomOfRows() const;

    int FocusedRow() const;
    void Row_GotFocus(TrackingResult* row);
    void VertScroll_Change();
    void ListMouseEvents_MouseUp(int button, const QPoint& at);
    void ListMouseEvents_DoubleClick(const QPoint& at);
    void MoveFocus(int delta);

    std::shared_ptr<const TrackingRecordList> m_records = std::make_shared<TrackingRecordList>();
    bool m_isYielding = false;
    std::shared_ptr<const TrackingRecordList> m_pendingRecords;
    GroupBox* m_container = nullptr;
    std::vector<TrackingResult*> m_rows;
    FlatScrollBar* m_vertScroll = nullptr;
    StatePanel* m_noResults = nullptr;
    StatePanel* m_noAccess = nullptr;
};

}  // namespace quellbrook
