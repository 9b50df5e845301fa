#include "ui/common/ViewHelpers.h"

#include "base/Environment.h"
#include "base/Error.h"
#include "base/Text.h"
#include "host/ColorTool.h"
#include "ui/common/FirstLetterKeys.h"
#include "ui/common/ItemStatus.h"
#include "ui/controls/Control.h"
#include "ui/controls/Label.h"
#include "ui/controls/ListView.h"
#include "ui/controls/StatusTag.h"
#include "ui/platform/Strings.h"
#include "ui/platform/Twips.h"

#include <QCoreApplication>
#include <QCursor>
#include <QMenu>
#include <QResizeEvent>
#include <QStyle>

#include <algorithm>
#include <map>

namespace quellbrook {

namespace {

constexpr int MenuIndent = 32;  // of a menu below a row, pixels

bool ProbeMember(const QObject& object, const char* memberName) {
    try {
        return object.property(memberName).isValid();
    } catch (...) {
        return false;
    }
}

std::string TypeNameOf(const QObject& object) {
    const auto* control = qobject_cast<const Control*>(&object);
    return control ? control->TypeName() : object.metaObject()->className();
}

[[noreturn]] void RaiseCannotOpen() {
    Raise(ErrorNumber::General, "UI.OpenInHost", "Cannot open this type of object in Tessarine.");
}

const char* ModuleWord(StoredItemTypes itemType) {
    switch (itemType) {
    case StoredItemTypes::Property: return "miproperty";
    case StoredItemTypes::vehicle: return "mivehicle";
    default: RaiseCannotOpen();
    }
}

}  // namespace

void SetStatusTag(StatusTag& tag, StoredItem& item) {
    const ItemStatus status = StatusOf(item);
    tag.SetCaption(ToQString(status.caption));
    tag.SetColor(status.color);
}

void SetLocationLabel(Label& label, StoredItem& item) {
    const StorageLocationRef location = item.Location();
    label.SetCaption(location ? ToQString(location->FullPath(" > ", false)) : QString());
}

void SizeLastColumn(ListView& listView) {
    const int last = listView.ColumnCount() - 1;
    if (last < 0) return;
    float total = 0;
    for (int column = 0; column < last; ++column) total += listView.ColumnWidth(column);
    const int scrollBar = listView.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &listView);
    const float width = listView.Width() - total - static_cast<float>(scrollBar) * 6 * TwipsPerPixel;
    if (width >= 0) listView.SetColumnWidth(last, width);
}

void CenterInContainer(Control& control, const Control& container, int flags) {
    const bool across = flags & Center::Horizontally;
    const bool down = flags & Center::Vertically;
    control.Move(across ? container.Width() / 2 - control.Width() / 2 : control.Left(),
                 down ? container.Height() / 2 - control.Height() / 2 : control.Top());
}

void ShowContextMenu(QWidget*, QMenu* contextMenu, QAction* defaultMenu, const std::optional<QPoint>& at) {
    if (!contextMenu) return;
    contextMenu->setDefaultAction(defaultMenu && defaultMenu->isEnabled() ? defaultMenu : nullptr);
    const FirstLetterKeys letters(*contextMenu);
    contextMenu->exec(at.value_or(QCursor::pos()));
}

QPoint MenuPositionBelow(const QRect& row, const QWidget& list) {
    const QPoint below = row.isEmpty() ? QPoint(MenuIndent, 0) : QPoint(row.left() + MenuIndent, row.bottom() + 1);
    return list.mapToGlobal(QPoint(below.x(), std::clamp(below.y(), 0, list.height())));
}

void SetHandCursor(QWidget* over) {
    if (over) over->setCursor(Qt::PointingHandCursor);
}

bool HasMember(const QObject& object, const char* memberName) {
    static std::map<std::string, bool> cache;
    const std::string key = TypeNameOf(object) + "." + memberName;
    auto found = cache.find(key);
    if (found == cache.end()) found = cache.emplace(key, ProbeMember(object, memberName)).first;
    return found->second;
}

void AssignValue(TaggedValue& target, const TaggedValue& value) { target = value; }

uint32_t PackSizeMessage(int right, int bottom) {
    return (static_cast<uint32_t>(right) & 0xFFFFu) | (static_cast<uint32_t>(bottom) << 16);
}

uint32_t ForceSizeMessage(QWidget* window) {
    const QPoint corner = window->mapToGlobal(QPoint(window->width(), window->height()));
    QResizeEvent event(window->size(), window->size());
    QCoreApplication::sendEvent(window, &event);
    return PackSizeMessage(corner.x(), corner.y());
}

void OpenInHost(const ObjectRef& object) {
    const auto item = std::dynamic_pointer_cast<StoredItem>(object);
    if (!item) RaiseCannotOpen();
    const std::string address = Join({ModuleWord(item->ItemType()), "open", std::to_string(item->ID())}, "/");
    RunCommand("cmd /c start tessarine://" + address);
}

int32_t AccentColor() { return ColorTool::FromColor(0x87AD24).Shade(0.9f).ToColor(); }

}  // namespace quellbrook
