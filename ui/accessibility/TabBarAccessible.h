#pragma once

#include <QAccessibleWidget>

#include <vector>

class QTabBar;

namespace quellbrook {

// A list of tabs, each with its caption, its state and a press action. Unlike Qt's own interface it reports which tab
// is selected, reports the focus only when the bar has it, and lists no scroll buttons.
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
