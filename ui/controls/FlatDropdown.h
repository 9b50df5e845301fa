#pragma once

#include "ui/controls/Control.h"

class QAbstractItemView;
class QComboBox;

namespace quellbrook {

class DropdownBox;

// A list to choose one entry from. An entry has a text and an integer.
class FlatDropdown : public Control {
    Q_OBJECT

public:
    // What typing does: it selects an entry by its first letters, or it shows the entries that contain the text.
    enum class Typing { Selects, Filters };

    explicit FlatDropdown(QWidget* parent = nullptr, Typing typing = Typing::Selects);
    std::string TypeName() const override { return "FlatDropdown"; }

    void Clear();  // does not raise Clicked
    void AddItem(const QString& text, int32_t itemData);
    int Count() const;
    QString ItemText(int index) const;
    int32_t ItemData(int index) const;
    // -1 while nothing is selected. Setting an index raises Clicked only when it changes, and error 380 outside the
    // list.
    int ListIndex() const;
    void SetListIndex(int index);
    void SetAccessibleCaption(const QString& name);
    void SetPlaceholder(const QString& text);  // shown while nothing is selected
    // For a dropdown that filters: whether the user typed a text that matches no single entry and either left the field
    // with the mouse or is still editing it. Restores the text of the current choice. Returns true only once, and false
    // after Clear and SetListIndex.
    bool TakeDroppedText();
    QComboBox* Box() const;
    QAbstractItemView* List() const;  // the list that opens

signals:
    void Clicked();

protected:
    void Layout() override;
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void RaiseClicked();

    DropdownBox* m_box;
    bool m_raised = false;  // Clicked was already raised for the user's current choice
};

}  // namespace quellbrook
