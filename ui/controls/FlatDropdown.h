#pragma once

#include "ui/controls/Control.h"

class QComboBox;

namespace quellbrook {

// A list to choose one entry from. An entry has a text and an integer. Typing selects an entry by its first letters.
class FlatDropdown : public Control {
    Q_OBJECT

public:
    explicit FlatDropdown(QWidget* parent = nullptr);
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
    QComboBox* Box() const { return m_box; }

signals:
    void Clicked();

protected:
    void Layout() override;
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void RaiseClicked();

    QComboBox* m_box;
    bool m_raised = false;  // Clicked was already raised for the user's current choice
};

}  // namespace quellbrook
