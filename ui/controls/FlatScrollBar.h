#pragma once

#include "ui/controls/Control.h"

class QScrollBar;

namespace quellbrook {

// A vertical scroll bar with a 16-bit range. Setters fail with 6 outside -32768 to 32767 and with 380 for a Value
// outside Min to Max. Changed is raised at every change of the value, also while the thumb moves.
// Who asks what:
// - SearchResultList: Value as items above the first row, SetMax failing with 6, SetArrows, the thumb filter, Changed
//   while the thumb moves.
// - TrackingList: Value in twips up to 32767, small and large changes of its own, Changed while the thumb moves.
class FlatScrollBar : public Control {
    Q_OBJECT

public:
    // Which arrows can be used: both, only up, only down.
    enum Arrows { Both = 0, Up = 1, Down = 2 };

    explicit FlatScrollBar(QWidget* parent = nullptr);
    std::string TypeName() const override { return "FlatScrollBar"; }

    int Min() const;
    int Max() const;  // 32767 at first
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
    QScrollBar* Bar() const { return m_bar; }

    // The thumb's message filter as a pure function: a code with bits 0 and 2 set loses bit 0.
    static int FilterScrollCode(int code);
    // Whether that filter stands before the bar: then "Bottom" (code 7) goes to the top. Off at first.
    bool HasThumbFilter() const { return m_thumbFilter; }
    void SetThumbFilter(bool filter) { m_thumbFilter = filter; }

    // One notch of the wheel is the system's number of wheel lines, each a small change, none beyond the range.
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
