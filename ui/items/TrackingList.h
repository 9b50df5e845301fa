#pragma once

#include "data/CustodyRecords.h"
#include "data/StoredItem.h"
#include "ui/explorer/ScrollingList.h"
#include "ui/items/TrackingResult.h"

#include <QTimer>

#include <memory>

namespace quellbrook {

// The chain of custody of one item, one row for each record in a tall panel that scrolls. Rows appear ten at a time,
// in successive turns of the message loop. Arrow and page keys, Home and End move the focus between the rows. A user
// without the right to view chains of custody sees no rows.
class TrackingList : public ScrollingListOf<TrackingResult> {
    Q_OBJECT

public:
    explicit TrackingList(QWidget* parent = nullptr);
    std::string TypeName() const override { return "TrackingList"; }

    // Reads the item's chain and shows it. It replaces a chain that is still being built.
    void SetItem(const StoredItemRef& item);
    // Error 5 for null. Rethrows errors of the first ten records; a later one is reported. The list is then empty.
    void SetRecords(std::shared_ptr<const TrackingRecordList> records);

    // The record of the row that has the focus; null if no control of the list has the focus.
    std::shared_ptr<TrackingRecord> SelectedItem() const;

    // Scrolls as little as possible to bring the row into view.
    void EnsureRowVisible(int row);

signals:
    void ItemOpenRequest(const std::shared_ptr<quellbrook::TrackingRecord>& record);

protected:
    int FocusedRow() const override;
    int LastRow() const override;
    void MoveSelection(int delta) override;
    int SelectedPosition() const override { return FocusedRow(); }
    int PositionCount() const override { return RowCount(); }
    void SelectPosition(int position) override;
    void ClickRow(int row, int button) override;
    void DoubleClickRow(int row) override;
    void VertScroll_Change() override;
    void Layout() override;

private:
    void WatchRow(TrackingResult* row);
    void Clear();
    TrackingResult& AddRow();
    void BuildRows();
    void UpdateScrollBar();
    float BottomOfRows() const;
    void FocusRow(int row);
    void Row_GotFocus(TrackingResult* row);

    std::shared_ptr<const TrackingRecordList> m_records = std::make_shared<TrackingRecordList>();
    size_t m_built = 0;  // the records that have rows
    QTimer m_nextTurn;
    StatePanel* m_noAccess;
};

}  // namespace quellbrook
