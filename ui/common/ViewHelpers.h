#pragma once

#include "base/TaggedValue.h"
#include "data/StoredItem.h"

#include <QPoint>
#include <QPointer>
#include <QRect>

#include <cstdint>
#include <optional>
#include <string>

class QAction;
class QMenu;
class QWidget;

namespace quellbrook {

class Control;
class Label;
class ListView;
class StatusTag;

// Sets the tag's caption and color from the item's status.
void SetStatusTag(StatusTag& tag, StoredItem& item);
// The location's full path with " > ", without the root; empty without a location.
void SetLocationLabel(Label& label, StoredItem& item);

// Views set the focus only through this function. A hidden or disabled control does not get it, now or later.
void TrySetFocus(QWidget* control);
// "<no control>" for null; the name, and "(index)" for a member of a control array.
std::string DescribeControl(const QWidget* control);

// Sets the last column to the width that remains after the other columns and six scroll bars, if any.
void SizeLastColumn(ListView& listView);

namespace Center {
inline constexpr int Vertically = 1, Horizontally = 2;
}
void CenterInContainer(Control& control, const Control& container, int flags);

// Opens the menu at the pointer, or at this position on the screen, and returns after it has closed. The default entry,
// if set and enabled, is bold. A letter highlights the next entry that begins with it. Ignores a null menu.
void ShowContextMenu(QWidget* owner, QMenu* contextMenu, QAction* defaultMenu,
                     const std::optional<QPoint>& at = std::nullopt);
// Where a menu that a key has opened belongs, on the screen: below a row, inside its list. The row is in the list's
// coordinates; an empty one means the list's corner.
QPoint MenuPositionBelow(const QRect& row, const QWidget& list);

// Sets the hand pointer over a widget.
void SetHandCursor(QWidget* over);

// Whether objects of this class have the named property. Cached by class and member.
bool HasMember(const QObject& object, const char* memberName);

void AssignValue(TaggedValue& target, const TaggedValue& value);

// Makes the window's parents update their layout, by a resize event with the same size. Returns the event's parameter:
// the right edge on the screen in the low 16 bits, the bottom edge in the high 16 bits.
uint32_t ForceSizeMessage(QWidget* window);
uint32_t PackSizeMessage(int right, int bottom);

// Opens a stored item in the host through its address scheme. Error 5 for any other object.
void OpenInHost(const ObjectRef& object);

// The "In Storage" green mixed with 90 percent white, 0xBBGGRR.
int32_t AccentColor();

}  // namespace quellbrook
