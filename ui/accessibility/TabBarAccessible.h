#pragma once

#include <QAccessibleWidget>

#include <vector>

class QTabBar;

namespace quellbrook {

// A list of tabs, each with its caption, state and press action. Unlike Qt's interface, it reports which tab is
// selected, reports the focus only when the bar has it, and does not list scroll buttons.
class TabBarAccessible : public QAccessibleWidget {
public:
    explicit TabBarAccessible(QTabBar* bar);
    ~TabBarAccessible() override;

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;

private:
    QTabBar* m_bar;
    mutable std::vector<QAccessible::Id> m_tabs;
};

}  // namespace quellbrook
