#pragma once

#include "ui/controls/Control.h"

class QComboBox;

namespace quellbrook {

// A list of entries to choose one from, each with a text and a whole number. Typing goes to the entry that begins so.
// Who asks what:
// - LocationPicker: entries with the ID as number and 0 for "(None)", SetListIndex, Clicked at the user's choice, the
//   font of its Box.
// - frmAddEditLocation (cboType): a set index raises Clicked on a change and only then, since the handler sets it
//   again.
// - SubmitEvidenceView (cboFilter): index 0 after Clear and filling raises Clicked; the number is the kind of search.
// - TessarineDropdown: -1 for NULL.
class FlatDropdown : public Control {
    Q_OBJECT

public:
    explicit FlatDropdown(QWidget* parent = nullptr);
    std::string TypeName() const override { return "FlatDropdown"; }

    void Clear();  // no entry, no selection; raises nothing
    void AddItem(const QString& text, int32_t itemData);
    int Count() const;
    QString ItemText(int index) const;
    int32_t ItemData(int index) const;
    // -1 while nothing is selected. A set index raises Clicked only when it changes.
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
    bool m_raised = false;  // the change behind the user's choice has raised Clicked already
};

}  // namespace quellbrook
