#pragma once

#include <QAccessibleWidget>

class QAbstractItemView;
class QComboBox;

namespace quellbrook {

// A dropdown named after its field, with the choice as its value and its list as its only child. Qt's interface would
// return the choice as the name.
class DropdownBoxAccessible : public QAccessibleWidget {
public:
    explicit DropdownBoxAccessible(QComboBox* box);  // its parent is a FlatDropdown

    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
    int childCount() const override { return 1; }
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;

    QStringList actionNames() const override;
    void doAction(const QString& name) override;

private:
    QAbstractItemView* List() const;

    QComboBox* m_box;
};

}  // namespace quellbrook
