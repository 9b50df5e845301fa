#pragma once

#include <QPointer>
#include <QWidget>

namespace quellbrook {

// Darkens a window for its own lifetime to emphasize the dialog over it. Does not change a window that is already
// darkened.
class WindowShade {
public:
    explicit WindowShade(QWidget* window);
    ~WindowShade();
    WindowShade(const WindowShade&) = delete;
    WindowShade& operator=(const WindowShade&) = delete;

private:
    QPointer<QWidget> m_veil;  // may be destroyed earlier, with the window
};

}  // namespace quellbrook
