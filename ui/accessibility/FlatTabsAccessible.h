#pragma once

#include <QAccessibleWidget>

#include <map>

namespace quellbrook {

class FlatTabs;

// The tabs as a list of tabs, each with its caption, its state and a press action, and then the page on show.
class FlatTabsAccessible : public QAccessibleWidget {
public:
    explicit FlatTabsAccessible(FlatTabs* tabs);
    ~FlatTabsAccessible() override;

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;

private:
    FlatTabs* m_tabs;
    mutable std::map<int, QAccessible::Id> m_entries;
};

}  // namespace quellbrook
