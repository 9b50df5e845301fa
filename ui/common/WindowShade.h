#pragma once

#include <QPointer>
#include <QWidget>

namespace quellbrook {

// Darkens a window for as long as it lives, so that what stands over it stands out. A window that is dark already stays
// as it is.
class WindowShade {
public:
    explicit WindowShade(QWidget* window);
    ~WindowShade();
    WindowShade(const WindowShade&) = delete;
    WindowShade& operator=(const WindowShade&) = delete;

private:
    QPointer<QWidget> m_veil;  // goes with the window, if that goes first
};

}  // namespace quellbrook
