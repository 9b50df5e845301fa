#include "ui/accessibility/Accessibility.h"

#include "ui/accessibility/DropdownBoxAccessible.h"
#include "ui/accessibility/RowsAccessible.h"
#include "ui/accessibility/TabBarAccessible.h"
#include "ui/controls/FlatDropdown.h"
#include "ui/controls/FlatTabs.h"
#include "ui/controls/FlatTitleBar.h"
#include "ui/controls/FontIcon.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/Line.h"
#include "ui/controls/Link.h"
#include "ui/controls/StatusTag.h"
#include "ui/controls/View.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QTabBar>

namespace quellbrook {

namespace {

class PressableAccessible : public QAccessibleWidget {
public:
    explicit PressableAccessible(Pressable* control)
        : QAccessibleWidget(control, qobject_cast<Link*>(control) ? QAccessible::Link : QAccessible::Button),
          m_control(control) {}

    QStringList actionNames() const override { return QStringList(pressAction()) + QAccessibleWidget::actionNames(); }

    // Queued, because a click may open a dialog while the assistive tool waits for this call to return.
    void doAction(const QString& name) override {
        if (name == pressAction())
            QMetaObject::invokeMethod(
                m_control, [control = m_control] { control->Click(); }, Qt::QueuedConnection);
        else
            QAccessibleWidget::doAction(name);
    }

    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    Pressable* m_control;
};

class ControlAccessible : public QAccessibleWidget {
public:
    ControlAccessible(Control* control, QAccessible::Role role) : QAccessibleWidget(control, role) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        const QVariant focused = widget()->property("Focused");
        if (focused.isValid()) {
            state.selectable = true;
            state.selected = focused.toBool();
            state.focusable = true;
            state.focused = focused.toBool();
        }
        return state;
    }
};

QAccessible::Role RoleOf(const Control* widget) {
    if (widget->AccessibleRole() != 0) return static_cast<QAccessible::Role>(widget->AccessibleRole());
    if (qobject_cast<const Label*>(widget) || qobject_cast<const StatusTag*>(widget)) return QAccessible::StaticText;
    if (qobject_cast<const FontIcon*>(widget)) return QAccessible::Graphic;
    if (qobject_cast<const FlatTitleBar*>(widget)) return QAccessible::TitleBar;
    if (qobject_cast<const Line*>(widget)) return QAccessible::Separator;
    if (qobject_cast<const FlatTabPage*>(widget)) return QAccessible::PropertyPage;
    if (qobject_cast<const View*>(widget)) return QAccessible::Pane;
    return QAccessible::Grouping;
}

bool IsPanelOfList(const Control& control) {
    const auto* parent = qobject_cast<const Control*>(control.parentWidget());
    return parent && parent->AccessibleRole() == QAccessible::List && qobject_cast<const GroupBox*>(&control);
}

QAccessibleInterface* MakeInterface(const QString&, QObject* object) {
    auto* box = qobject_cast<QComboBox*>(object);
    if (box && qobject_cast<FlatDropdown*>(box->parentWidget())) return new DropdownBoxAccessible(box);
    auto* bar = qobject_cast<QTabBar*>(object);
    if (bar && qobject_cast<FlatTabs*>(bar->parentWidget())) return new TabBarAccessible(bar);
    auto* control = qobject_cast<Control*>(object);
    if (!control) return nullptr;
    if (auto* pressable = qobject_cast<Pressable*>(control)) return new PressableAccessible(pressable);
    if (IsPanelOfList(*control)) return new RowsAccessible(control);
    return new ControlAccessible(control, RoleOf(control));
}

}  // namespace

void InstallAccessibility() {
    static const bool installed = [] {
        QAccessible::installFactory(MakeInterface);
        return true;
    }();
    Q_UNUSED(installed);
}

}  // namespace quellbrook
