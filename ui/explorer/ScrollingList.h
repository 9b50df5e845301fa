#pragma once

#include "ui/controls/GroupBox.h"

#include <optional>
#include <vector>

class QAction;
class QMenu;

namespace quellbrook {

class FlatScrollBar;
class StatePanel;

// Base class of lists with controls as rows, in a panel beside a scroll bar: hit testing, arrow and page keys, context
// menu, and the check before the focus leaves a row. Rows count from 0.
class ScrollingList : public Control {
    Q_OBJECT

public:
    // The first row that contains a point of picContainer, excluding edges and including hidden rows; -1 for none. In
    // twips and in pixels.
    int HitTestRow(float x, float y) const;
    int RowAt(int x, int y) const;
    // Called before the focus leaves a row: true if an arrow key is down that would move it out of the list.
    bool ValidateRow(int row);

signals:
    // The receiver sets the menu and the entry to show as the default one.
    void ItemContextMenu(QMenu*& menu, QAction*& defaultItem);

protected:
    explicit ScrollingList(QWidget* parent);

    virtual int RowCount() const = 0;
    virtual Control& RowNo(int row) const = 0;
    virtual int FocusedRow() const = 0;  // -1 for none
    virtual int LastRow() const = 0;     // the row that Right and Down may not leave
    virtual void MoveSelection(int delta) = 0;
    // The selected position, counted from 0, or -1; the number of positions; selects one and scrolls it into view.
    virtual int SelectedPosition() const = 0;
    virtual int PositionCount() const = 0;
    virtual void SelectPosition(int position) = 0;
    // Called when ValidateRow has refused a move by this number of rows.
    virtual void MoveRefused(int) {}
    virtual void ClickRow(int row, int button) = 0;
    virtual void DoubleClickRow(int row) = 0;
    virtual void VertScroll_Change() = 0;

    void OfferContextMenu(const std::optional<QPoint>& at = std::nullopt);
    void PlaceScrollBar();
    // Fits the container and its rows to the list's width and centers the panels.
    void LayoutRows(float containerHeight);
    StatePanel* AddPanel(const char* name, const QString& icon, const QString& title, const QString& sentence);

    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool focusNextPrevChild(bool next) override;

    GroupBox* m_container;
    FlatScrollBar* m_vertScroll;
    StatePanel* m_noResults;

private:
    int WholeRows() const;
    // For Home, End and the page keys; no value for any other key.
    std::optional<int> TargetOf(const QKeyEvent& event) const;

    std::vector<StatePanel*> m_panels;
};

template <typename RowControl>
class ScrollingListOf : public ScrollingList {
public:
    // The rows loaded so far, hidden ones included; never empty.
    const std::vector<RowControl*>& Rows() const { return m_rows; }

protected:
    explicit ScrollingListOf(QWidget* parent) : ScrollingList(parent) { LoadRow()->setObjectName("searchResult"); }

    int RowCount() const final { return static_cast<int>(m_rows.size()); }
    RowControl& RowNo(int row) const final { return *m_rows.at(static_cast<size_t>(row)); }

    // Adds a hidden row.
    RowControl* LoadRow() {
        RowControl* row = LoadMember(m_rows, m_container);
        row->Move(0, 0);
        row->SetWidth(m_container->Width());
        row->hide();
        return row;
    }
    // Keeps only the first row, hidden. The others are destroyed later, since the current event may come from one.
    void UnloadRows() {
        for (; m_rows.size() > 1; m_rows.pop_back()) {
            m_rows.back()->hide();
            m_rows.back()->deleteLater();
        }
        m_rows.front()->hide();
    }

    std::vector<RowControl*> m_rows;
};

}  // namespace quellbrook
