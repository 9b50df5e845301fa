#include "ui/explorer/ScrollingList.h"

#include "base/Environment.h"
#include "ui/common/StatePanel.h"
#include "ui/common/ViewHelpers.h"
#include "ui/controls/Activation.h"
#include "ui/controls/FlatScrollBar.h"
#include "ui/controls/MouseEvents.h"
#include "ui/explorer/ListPlaceholder.h"
#include "ui/platform/Guard.h"
#include "ui/platform/Twips.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QKeyEvent>

#include <algorithm>

namespace quellbrook {

ScrollingList::ScrollingList(QWidget* parent)
    : Control(parent), m_container(new GroupBox(this)), m_vertScroll(new FlatScrollBar(this)) {
    SetAccessibleRole(QAccessible::List);
    m_container->setObjectName("picContainer");
    m_container->Move(0, 0);
    m_vertScroll->setObjectName("vertScroll");
    m_vertScroll->hide();
    m_noResults = AddPanel("picNoResults", "search", "No items found.",
                           "Check for typos in your search filter, or try a different search term.");
    new ListPlaceholder(this);
    const auto* mouseEvents = new MouseEvents(m_container);
    connect(mouseEvents, &MouseEvents::Up, this, [this](int button, const QPoint& at) {
        Guard([&] {
            if (const int row = RowAt(at.x(), at.y()); row >= 0) ClickRow(row, button);
        });
    });
    connect(mouseEvents, &MouseEvents::DoubleClick, this, [this](const QPoint& at) {
        Guard([&] {
            if (const int row = RowAt(at.x(), at.y()); row >= 0) DoubleClickRow(row);
        });
    });
    new ScrollWheelSupport(m_container, m_vertScroll);
    connect(m_vertScroll, &FlatScrollBar::Changed, this, [this] { Guard([this] { VertScroll_Change(); }); });
}

StatePanel* ScrollingList::AddPanel(const char* name, const QString& icon, const QString& title,
                                    const QString& sentence) {
    auto* panel = new StatePanel(icon, title, sentence, this);
    panel->setObjectName(name);
    panel->hide();
    m_panels.push_back(panel);
    return panel;
}

int ScrollingList::HitTestRow(float x, float y) const {
    for (int i = 0; i < RowCount(); ++i) {
        const Control& row = RowNo(i);
        if (row.Left() < x && x < row.Right() && row.Top() < y && y < row.Bottom()) return i;
    }
    return -1;
}

int ScrollingList::RowAt(int x, int y) const { return HitTestRow(ToTwips(x), ToTwips(y)); }

bool ScrollingList::ValidateRow(int row) {
    int delta = 0;
    if (row == 0 && (IsKeyDown(KeyCode::Left) || IsKeyDown(KeyCode::Up)))
        delta = -1;
    else if (row == LastRow() && (IsKeyDown(KeyCode::Right) || IsKeyDown(KeyCode::Down)))
        delta = 1;
    if (delta != 0) MoveRefused(delta);
    return delta != 0;
}

void ScrollingList::OfferContextMenu(const std::optional<QPoint>& at) {
    QMenu* menu = nullptr;
    QAction* defaultItem = nullptr;
    emit ItemContextMenu(menu, defaultItem);
    ShowContextMenu(this, menu, defaultItem, at);
}

void ScrollingList::PlaceScrollBar() {
    m_vertScroll->Move(ClientWidth() - m_vertScroll->Width(), 0);
    m_vertScroll->SetHeight(ClientHeight());
}

void ScrollingList::LayoutRows(float containerHeight) {
    m_container->SetWidth(ClientWidth() - m_vertScroll->Width());
    m_container->SetHeight(containerHeight);
    for (int i = 0; i < RowCount(); ++i) RowNo(i).SetWidth(m_container->Width());
    for (StatePanel* panel : m_panels) CenterInContainer(*panel, *this, Center::Horizontally | Center::Vertically);
}

// For the mouse, `ClickRow` opens the menu.
void ScrollingList::contextMenuEvent(QContextMenuEvent* event) {
    const int row = FocusedRow();
    if (event->reason() != QContextMenuEvent::Keyboard || row < 0) return Control::contextMenuEvent(event);
    Guard([&] {
        const Control& focused = RowNo(row);
        OfferContextMenu(MenuPositionBelow(QRect(focused.mapTo(this, QPoint()), focused.size()), *this));
    });
}

int ScrollingList::WholeRows() const {
    const float height = RowNo(0).Height();
    return height > 0 ? std::max(1, static_cast<int>(ClientHeight() / height)) : 1;
}

std::optional<int> ScrollingList::TargetOf(const QKeyEvent& event) const {
    switch (event.key()) {
    case Qt::Key_Home: return 0;
    case Qt::Key_End: return PositionCount() - 1;
    case Qt::Key_PageUp: return SelectedPosition() - WholeRows();
    case Qt::Key_PageDown: return SelectedPosition() + WholeRows();
    default: return std::nullopt;
    }
}

void ScrollingList::keyPressEvent(QKeyEvent* event) {
    if (SendMenuKey(*this, *event)) return;
    if (event->modifiers() & Qt::AltModifier) return Control::keyPressEvent(event);
    if (const std::optional<int> target = TargetOf(*event)) {
        return Guard([&] {
            if (SelectedPosition() >= 0) SelectPosition(std::clamp(*target, 0, PositionCount() - 1));
        });
    }
    switch (KeyCodeOf(*event)) {
    case KeyCode::Left:
    case KeyCode::Up: return Guard([this] { MoveSelection(-1); });
    case KeyCode::Right:
    case KeyCode::Down: return Guard([this] { MoveSelection(1); });
    default: Control::keyPressEvent(event);
    }
}

bool ScrollingList::focusNextPrevChild(bool next) {
    bool refused = false;
    Guard([&] {
        const int row = FocusedRow();
        refused = row >= 0 && ValidateRow(row);
    });
    return refused || Control::focusNextPrevChild(next);
}

}  // namespace quellbrook
