#pragma once

#include <QAccessibleWidget>

namespace quellbrook {

class DropdownBox;

// A dropdown by the name of its field, whatever is chosen in it, with the choice as its value and its list as its only
// child. The toolkit's own gives the choice as the name.
class DropdownBoxAccessible : public QAccessibleWidget {
public:
    explicit DropdownBoxAccessible(DropdownBox* box);

    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
    int childCount() const override { return 1; }
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;

    QStringList actionNames() const override;
    void doAction(const QString& name) override;

private:
    DropdownBox* m_box;
};

}  // namespace quellbrook
