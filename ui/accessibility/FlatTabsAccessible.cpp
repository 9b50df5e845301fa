#include "ui/accessibility/FlatTabsAccessible.h"

#include "ui/controls/FlatTabs.h"

#include <QPointer>

namespace quellbrook {

namespace {

class TabAccessible : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    TabAccessible(FlatTabs* tabs, int index) : m_tabs(tabs), m_index(index) {}

    bool isValid() const override { return m_tabs && m_index < m_tabs->Count(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(m_tabs); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name && isValid() ? m_tabs->Caption(m_index) : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override {
        if (!isValid()) return QRect();
        const QRect place = m_tabs->TabRect(m_index);
        return QRect(m_tabs->mapToGlobal(place.topLeft()), place.size());
    }
    QAccessible::Role role() const override { return QAccessible::PageTab; }
    QAccessible::State state() const override {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        state.selectable = true;
        state.focusable = true;
        state.selected = m_tabs->SelectedIndex() == m_index;
        state.focused = state.selected && m_tabs->hasFocus();
        state.invisible = !m_tabs->isVisible();
        state.disabled = !m_tabs->isEnabled();
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
    }

    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& name) override {
        if (name == pressAction() && isValid() && m_tabs->isEnabled()) m_tabs->SetSelectedIndex(m_index);
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    QPointer<FlatTabs> m_tabs;
    int m_index;
};

}  // namespace

FlatTabsAccessible::FlatTabsAccessible(FlatTabs* tabs)
    : QAccessibleWidget(tabs, QAccessible::PageTabList), m_tabs(tabs) {}

FlatTabsAccessible::~FlatTabsAccessible() {
    for (const auto& entry : m_entries) QAccessible::deleteAccessibleInterface(entry.second);
}

int FlatTabsAccessible::childCount() const { return m_tabs->Count() + (m_tabs->Count() > 0 ? 1 : 0); }

QAccessibleInterface* FlatTabsAccessible::child(int index) const {
    if (index < 0 || index >= childCount()) return nullptr;
    if (index == m_tabs->Count()) return QAccessible::queryAccessibleInterface(m_tabs->Page(m_tabs->SelectedIndex()));
    const auto found = m_entries.find(index);
    if (found != m_entries.end()) return QAccessible::accessibleInterface(found->second);
    auto* entry = new TabAccessible(m_tabs, index);
    m_entries[index] = QAccessible::registerAccessibleInterface(entry);
    return entry;
}

int FlatTabsAccessible::indexOfChild(const QAccessibleInterface* child) const {
    for (int i = 0; i < childCount(); ++i)
        if (this->child(i) == child) return i;
    return -1;
}

QAccessibleInterface* FlatTabsAccessible::childAt(int x, int y) const {
    for (int i = 0; i < childCount(); ++i)
        if (child(i)->rect().contains(x, y)) return child(i);
    return nullptr;
}

}  // namespace quellbrook
