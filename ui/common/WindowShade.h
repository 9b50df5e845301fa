#pragma once

#include <QPointer>
#include <QWidget>

namespace quellbrook {

// Darkens a window for its own lifetime, so that the dialog over it stands out. A window that is already dark is not
// changed.
class WindowShade {
public:
    explicit WindowShade(QWidget* window);
    ~WindowShade();
    WindowShade(const WindowShade&) = delete;
    WindowShade& operator=(const WindowShade&) = delete;

private:
    QPointer<QWidget> m_veil;  // destroyed with the window, if that is first
};

}  // namespace quellbrook
