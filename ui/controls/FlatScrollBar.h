#pragma once

#include "ui/controls/Control.h"

class QScrollBar;

namespace quellbrook {

// A vertical scroll bar with a 16-bit range. Setters raise error 6 outside -32768 to 32767 and error 380 for a Value
// outside Min to Max. Changed is raised on every change of the value, also while the thumb moves.
class FlatScrollBar : public Control {
    Q_OBJECT

public:
    // The arrows that are shown.
    enum Arrows { Both = 0, Up = 1, Down = 2 };

    explicit FlatScrollBar(QWidget* parent = nullptr);
    std::string TypeName() const override { return "FlatScrollBar"; }

    int Min() const;
    int Max() const;  // initially 32767
    int Value() const;
    int SmallChange() const;
    int LargeChange() const;
    void SetMin(int min);
    void SetMax(int max);
    void SetValue(int value);
    void SetSmallChange(int step);
    void SetLargeChange(int step);
    int GetArrows() const { return m_arrows; }
    void SetArrows(int arrows);
    // The length of the thumb as a share of the track, above 0 and up to 1. Until set, the share of LargeChange in the
    // range.
    void SetThumbShare(float share);
    QScrollBar* Bar() const { return m_bar; }

    // The message filter of the thumb: clears bit 0 of a code with bits 0 and 2 set.
    static int FilterScrollCode(int code);
    // While that filter is active, "Bottom" (code 7) scrolls to the top. Initially off.
    void SetThumbFilter(bool filter) { m_thumbFilter = filter; }

    // One notch scrolls by the system's number of wheel lines, each a small change, within the range. Changed is raised
    // once.
    void TurnWheel(int angleDelta);

signals:
    void Changed();

protected:
    void Layout() override;

private:
    void Filter(int action);

    QScrollBar* m_bar;
    int m_arrows = Both;
    int m_wheelRest = 0;
    bool m_thumbFilter = false;
};

}  // namespace quellbrook
