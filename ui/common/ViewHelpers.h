#pragma once

#include "base/TaggedValue.h"
#include "data/StoredItem.h"

#include <QPointer>

#include <cstdint>
#include <string>

class QAction;
class QMenu;
class QWidget;

namespace quellbrook {

class Control;
class Label;
class ListView;
class StatusTag;

// Caption and colour of an item's status.
void SetStatusTag(StatusTag& tag, StoredItem& item);
// The location's full path with " > ", without the root; empty without a location.
void SetLocationLabel(Label& label, StoredItem& item);

// The only way views set focus. A hidden or disabled control does not take it, now or later.
void TrySetFocus(QWidget* control);
// "<no control>" for null; the name, and "(index)" for a member of a control array.
std::string DescribeControl(const QWidget* control);

// Gives the last column what the others and six scroll bars' width leave, if anything.
void SizeLastColumn(ListView& listView);

namespace Center {
inline constexpr int Vertically = 1, Horizontally = 2;
}
void CenterInContainer(Control& control, const Control& container, int flags);

// Pops the menu up at the pointer and returns when it has closed; the default entry bold, if set and enabled. Null:
// nothing.
void ShowContextMenu(QWidget* owner, QMenu* contextMenu, QAction* defaultMenu);

// The hand pointer over a widget, for the moment.
void SetHandCursor(QWidget* over);

// Whether objects of this class have the named property; asked once for each class and member.
bool HasMember(const QObject& object, const char* memberName);

void AssignValue(TaggedValue& target, const TaggedValue& value);

// Wakes the layout of the window's parents with a size message of the same size. Returns what the message carries: the
// right edge on the screen in the low 16 bits, the bottom edge in the high ones.
uint32_t ForceSizeMessage(QWidget* window);
uint32_t PackSizeMessage(int right, int bottom);

// Hands a stored item to the host through its address scheme. Error 5 for any other object.
void OpenInHost(const ObjectRef& object);

// The "In Storage" green, nine tenths of the way to white, as 0xBBGGRR.
int32_t AccentColor();

}  // namespace quellbrook
