#pragma once

#include "ui/controls/DropdownBox.h"

class QCompleter;

namespace quellbrook {

// A dropdown whose list shows the entries that contain what is typed, in any case. Enter chooses the highlighted entry,
// which is the first one that matches; one with the data 0, which stands for no choice, only if no other matches.
// Escape gives up what was typed. So does leaving the field, unless the text is that of exactly one entry. While the
// field has the focus and nothing is typed, its text is selected, and looks so if the keyboard is used.
class FilteringBox : public DropdownBox {
public:
    explicit FilteringBox(QWidget* parent);

    QAbstractItemView* List() const override;
    bool TakeDroppedText() override;
    void ForgetDroppedText() override { m_hasDroppedText = false; }
    // Lists every entry.
    void showPopup() override;
    void hidePopup() override;

protected:
    bool ShowsSelectedText() const override;

    bool eventFilter(QObject* watched, QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void SetUpEdit();
    void SetUpList();
    void ShowEdit();
    bool IsTyping() const;
    void OpenList(const QString& filter);
    bool TakeKey(int key);
    void Choose(const QModelIndex& match);
    void Choose(int index);
    void EndTyping();
    void ShowChoice();
    void StartOver();

    QCompleter* m_completer;
    bool m_byKeyboard = false;
    bool m_hasDroppedText = false;
};

}  // namespace quellbrook
