#pragma once

#include <QComboBox>

class QListView;

namespace quellbrook {

// The box inside a FlatDropdown, which paints the background and border of the field.
class DropdownBox : public QComboBox {
public:
    explicit DropdownBox(QWidget* parent);

    // The list that opens.
    virtual QAbstractItemView* List() const { return view(); }
    virtual bool TakeDroppedText() { return false; }  // see FlatDropdown
    virtual void ForgetDroppedText() {}
    void showPopup() override;

protected:
    // Gives a list the rows of a dropdown. Call it after the list's owner has set its own delegate.
    static void SetUp(QListView& list);
    static void SetFrameColor(QWidget& framed);
    // As wide as the widest entry, at least the field and at most half of the screen.
    int ListWidth();
    int ListHeight(int entries) const;
    QRect TextRect() const;
    virtual bool ShowsSelectedText() const { return false; }

    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    // The wheel scrolls the form and does not change the choice.
    void wheelEvent(QWheelEvent* event) override;

private:
    void PaintText(QPainter& painter) const;

    int m_widest = -1;  // width of the widest entry; -1: not measured
};

}  // namespace quellbrook
