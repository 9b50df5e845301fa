#include "ui/accessibility/TabBarAccessible.h"

#include <QPointer>
#include <QTabBar>

namespace quellbrook {

namespace {

class TabAccessible : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    TabAccessible(QTabBar* bar, int index) : m_bar(bar), m_index(index) {}

    bool isValid() const override { return m_bar && m_index < m_bar->count(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(m_bar); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text kind) const override {
        if (kind != QAccessible::Name || !isValid()) return QString();
        return m_bar->tabText(m_index).replace(QLatin1String("&&"), QLatin1String("&"));
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override {
        if (!isValid()) return QRect();
        const QRect tab = m_bar->tabRect(m_index);
        return QRect(m_bar->mapToGlobal(tab.topLeft()), tab.size());
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
        state.selected = m_bar->currentIndex() == m_index;
        state.focused = state.selected && m_bar->hasFocus();
        state.invisible = !m_bar->isVisible();
        state.disabled = !m_bar->isEnabled();
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
    }

    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& name) override {
        if (name == pressAction() && isValid() && m_bar->isEnabled()) m_bar->setCurrentIndex(m_index);
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    QPointer<QTabBar> m_bar;
    int m_index;
};

}  // namespace

TabBarAccessible::TabBarAccessible(QTabBar* bar) : QAccessibleWidget(bar, QAccessible::PageTabList), m_bar(bar) {}

TabBarAccessible::~TabBarAccessible() {
    for (const QAccessible::Id tab : m_tabs) QAccessible::deleteAccessibleInterface(tab);
}

int TabBarAccessible::childCount() const { return m_bar->count(); }

QAccessibleInterface* TabBarAccessible::child(int index) const {
    if (index < 0 || index >= childCount()) return nullptr;
    while (static_cast<int>(m_tabs.size()) <= index)
        m_tabs.push_back(
            QAccessible::registerAccessibleInterface(new TabAccessible(m_bar, static_cast<int>(m_tabs.size()))));
    return QAccessible::accessibleInterface(m_tabs[static_cast<size_t>(index)]);
}

int TabBarAccessible::indexOfChild(const QAccessibleInterface* child) const {
    for (int i = 0; i < childCount(); ++i)
        if (this->child(i) == child) return i;
    return -1;
}

QAccessibleInterface* TabBarAccessible::childAt(int x, int y) const {
    return child(m_bar->tabAt(m_bar->mapFromGlobal(QPoint(x, y))));
}

}  // namespace quellbrook
