#include "ui/accessibility/DropdownBoxAccessible.h"

#include "ui/controls/FlatDropdown.h"

#include <QAbstractItemView>
#include <QComboBox>

namespace quellbrook {

DropdownBoxAccessible::DropdownBoxAccessible(QComboBox* box)
    : QAccessibleWidget(box, QAccessible::ComboBox), m_box(box) {}

QAbstractItemView* DropdownBoxAccessible::List() const {
    return static_cast<const FlatDropdown*>(m_box->parentWidget())->List();
}

QString DropdownBoxAccessible::text(QAccessible::Text kind) const {
    return kind == QAccessible::Value ? m_box->currentText() : QAccessibleWidget::text(kind);
}

QAccessible::State DropdownBoxAccessible::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.expandable = true;
    state.hasPopup = true;
    state.editable = m_box->isEditable();
    state.expanded = List()->isVisible();
    state.collapsed = !state.expanded;
    return state;
}

QAccessibleInterface* DropdownBoxAccessible::child(int index) const {
    return index == 0 ? QAccessible::queryAccessibleInterface(List()) : nullptr;
}

int DropdownBoxAccessible::indexOfChild(const QAccessibleInterface* child) const {
    return child && child->object() == List() ? 0 : -1;
}

QStringList DropdownBoxAccessible::actionNames() const {
    if (!m_box->isEnabled()) return {};
    return QStringList{showMenuAction(), pressAction()} + QAccessibleWidget::actionNames();
}

void DropdownBoxAccessible::doAction(const QString& name) {
    if (name != showMenuAction() && name != pressAction()) return QAccessibleWidget::doAction(name);
    if (!m_box->isEnabled()) return;
    if (List()->isVisible())
        m_box->hidePopup();
    else
        m_box->showPopup();
}

}  // namespace quellbrook
