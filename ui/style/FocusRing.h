#pragma once

#include <QPointer>
#include <QWidget>

#include <vector>

namespace quellbrook {

// The ring around the control that has the focus: 2 px, 1 px outside the control. It lies over the nearest ancestor
// that has room for it, so that no control is clipped or has to keep a margin, and follows the control wherever it
// goes. There is one ring at most.
class FocusRing : public QWidget {
    Q_OBJECT

public:
    static void Follow(QWidget* control);
    // Takes the ring away if it is around this control.
    static void Leave(QWidget* control);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    FocusRing(QWidget* host, QWidget* control);
    void Place();

    QPointer<QWidget> m_control;
    std::vector<QPointer<QWidget>> m_watched;
};

}  // namespace quellbrook
