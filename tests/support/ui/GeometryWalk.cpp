#include "tests/support/ui/GeometryWalk.h"

#include "tests/support/ui/Widgets.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/FlatTabs.h"
#include "ui/controls/FontIcon.h"
#include "ui/controls/Label.h"
#include "ui/controls/Link.h"
#include "ui/controls/StatusTag.h"

#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QAccessible>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>

namespace quellbrook::testing {

namespace {

// The margins at each side of a caption: as a button requests them, and the minimum before it shortens the caption.
constexpr int buttonMargin = 16, leastButtonMargin = 4;

QString OwnName(const QWidget& widget) {
    return widget.objectName().isEmpty() ? QString::fromLatin1(widget.metaObject()->className()) : widget.objectName();
}

QString NameOf(const QWidget& widget) {
    const QWidget* parent = widget.parentWidget();
    return parent ? OwnName(*parent) + "/" + OwnName(widget) : OwnName(widget);
}

bool IsNamed(const QWidget& widget, const QString& name) { return name == OwnName(widget) || name == NameOf(widget); }

QString Text(const QRect& area) {
    return QStringLiteral("(%1, %2, %3 x %4)").arg(area.x()).arg(area.y()).arg(area.width()).arg(area.height());
}

QList<QWidget*> ChildrenOnShow(const QWidget& parent) {
    QList<QWidget*> children;
    for (QObject* object : parent.children()) {
        auto* child = qobject_cast<QWidget*>(object);
        if (!child || child->isWindow() || !child->isVisible() || child->size().isEmpty()) continue;
        const auto* icon = qobject_cast<const FontIcon*>(child);
        const bool showsNothing = icon && icon->IconName().isEmpty();
        if (!showsNothing) children.push_back(child);
    }
    return children;
}

// The size of a widget's text where it is not shortened; empty if the widget shows none, 0 in a direction in which it
// is shortened.
QSize RoomFor(const QWidget& widget) {
    if (const auto* tag = qobject_cast<const StatusTag*>(&widget)) return tag->sizeHint();
    if (const auto* link = qobject_cast<const Link*>(&widget)) return link->sizeHint();
    if (const auto* button = qobject_cast<const FlatButton*>(&widget))
        return QSize(button->sizeHint().width() - 2 * (buttonMargin - leastButtonMargin),
                     button->fontMetrics().height());
    if (const auto* label = qobject_cast<const Label*>(&widget))
        return label->Caption().isEmpty() ? QSize() : QSize(0, QFontMetrics(Theme::Font(label->Type())).height());
    if (const auto* tabs = qobject_cast<const FlatTabs*>(&widget)) {
        const QRect last = tabs->TabRect(tabs->Count() - 1);
        return QSize(last.right() + 1, last.bottom() + 1);
    }
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        if (label->text().isEmpty()) return QSize();
        return label->wordWrap() ? QSize(0, label->heightForWidth(label->width())) : label->sizeHint();
    }
    if (const auto* edit = qobject_cast<const QLineEdit*>(&widget)) return QSize(0, edit->fontMetrics().height());
    return QSize();
}

// The contents of a viewport may be larger: they scroll.
bool IsViewport(const QWidget& widget) {
    const auto* area = qobject_cast<const QAbstractScrollArea*>(widget.parentWidget());
    return area && area->viewport() == &widget;
}

bool IsElement(QAccessible::Role role) {
    switch (role) {
    case QAccessible::Client:
    case QAccessible::Window:
    case QAccessible::Grouping:
    case QAccessible::Separator:
    case QAccessible::Border:
    case QAccessible::ScrollBar:
    case QAccessible::Grip:
    case QAccessible::LayeredPane:
    case QAccessible::Splitter:
    case QAccessible::Whitespace: return false;
    default: return true;
    }
}

bool IsTabStop(const QWidget& widget) {
    return (widget.focusPolicy() & Qt::TabFocus) == Qt::TabFocus && widget.isEnabled() && widget.isVisible() &&
           !widget.focusProxy();
}

}  // namespace

std::vector<std::string> GeometryWalk::FaultsOf(QWidget& window) {
    m_faults.clear();
    ServeEvents();
    Visit(window);
    CheckTabStops(window);
    return m_faults;
}

void GeometryWalk::Visit(QWidget& parent) {
    ++m_visited;
    CheckText(parent);
    CheckName(parent);
    const QList<QWidget*> children = ChildrenOnShow(parent);
    CheckPlaces(parent, children);
    for (QWidget* child : children) Visit(*child);
}

void GeometryWalk::CheckPlaces(QWidget& parent, const QList<QWidget*>& children) {
    for (int i = 0; i < children.size(); ++i) {
        const QWidget& child = *children[i];
        if (!IsViewport(parent) && !parent.rect().contains(child.geometry()))
            Report(MeantFault::Kind::Outside, child, nullptr,
                   Text(child.geometry()) + " sticks out of its parent " + Text(parent.rect()));
        for (int k = i + 1; k < children.size(); ++k) {
            if (!child.geometry().intersects(children[k]->geometry())) continue;
            Report(MeantFault::Kind::Overlap, child, children[k],
                   Text(child.geometry()) + " overlaps " + NameOf(*children[k]) + " " + Text(children[k]->geometry()));
        }
    }
}

void GeometryWalk::CheckText(QWidget& widget) {
    const QSize room = RoomFor(widget);
    if (room.width() > widget.width() || room.height() > widget.height())
        Report(
            MeantFault::Kind::Clipped, widget, nullptr,
            Text(widget.rect()) + QStringLiteral(" cuts off a text of %1 x %2").arg(room.width()).arg(room.height()));
    const auto* view = qobject_cast<QAbstractItemView*>(&widget);
    if (!view || qobject_cast<QHeaderView*>(&widget)) return;
    if (view->textElideMode() == Qt::ElideNone)
        Report(MeantFault::Kind::Clipped, widget, nullptr, "does not shorten the texts of its rows");
    const QModelIndex first = view->indexAt(QPoint(1, 1));
    if (first.isValid() && view->visualRect(first).height() < view->fontMetrics().height())
        Report(MeantFault::Kind::Clipped, widget, nullptr, "has rows lower than their text");
}

void GeometryWalk::CheckName(QWidget& widget) {
    QAccessibleInterface* element = QAccessible::queryAccessibleInterface(&widget);
    const bool takesFocus =
        IsTabStop(widget) || (widget.parentWidget() && widget.parentWidget()->focusProxy() == &widget);
    const bool isElement = !widget.focusProxy() && element && (takesFocus || IsElement(element->role()));
    if (!isElement) return;
    if (element->text(QAccessible::Name).trimmed().isEmpty())
        Report(MeantFault::Kind::Unnamed, widget, nullptr, "has no accessible name");
}

void GeometryWalk::CheckTabStops(QWidget& window) {
    QSet<QWidget*> missing;
    for (QWidget* widget : window.findChildren<QWidget*>())
        if (widget->window() == &window && IsTabStop(*widget)) missing.insert(widget);
    const qsizetype stops = missing.size();
    QWidget* const before = window.focusWidget();
    for (qsizetype presses = 0; presses <= stops && !missing.isEmpty(); ++presses) {
        QWidget* focused = window.focusWidget() ? window.focusWidget() : &window;
        missing.remove(focused);
        Press(focused, Qt::Key_Tab);
    }
    if (before) before->setFocus();
    for (QWidget* widget : missing)
        Report(MeantFault::Kind::Unnamed, *widget, nullptr, "is a tab stop that Tab does not reach");
}

void GeometryWalk::Report(MeantFault::Kind kind, const QWidget& widget, const QWidget* other, const QString& sentence) {
    for (size_t i = 0; i < m_meant.size(); ++i) {
        const MeantFault& meant = m_meant[i];
        if (meant.kind != kind) continue;
        const bool isMeant =
            other ? (IsNamed(widget, meant.widget) && (meant.other.isEmpty() || IsNamed(*other, meant.other))) ||
                        (IsNamed(*other, meant.widget) && (meant.other.isEmpty() || IsNamed(widget, meant.other)))
                  : IsNamed(widget, meant.widget);
        if (!isMeant) continue;
        m_met.insert(i);
        return;
    }
    m_faults.push_back((NameOf(widget) + " " + sentence).toStdString());
}

std::vector<std::string> GeometryWalk::NeverMet() const {
    std::vector<std::string> names;
    for (size_t i = 0; i < m_meant.size(); ++i)
        if (!m_met.count(i)) names.push_back(m_meant[i].widget.toStdString());
    return names;
}

}  // namespace quellbrook::testing
