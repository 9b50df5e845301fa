#pragma once

#include <QAccessibleWidget>

namespace quellbrook {

// A panel with rows as children: assistive tools read them from top to bottom, whatever their stacking order is.
class RowsAccessible : public QAccessibleWidget {
public:
    explicit RowsAccessible(QWidget* panel) : QAccessibleWidget(panel, QAccessible::Grouping) {}

    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;

private:
    QList<QAccessibleInterface*> Children() const;
};

}  // namespace quellbrook
