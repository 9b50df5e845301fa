#pragma once

#include <QObject>

#include <functional>

class QWidget;

namespace quellbrook {

// Whether a list looks focused: while it or a widget inside it has the focus. A menu or another window does not take
// that away. A member of the list, since the destructors of the list's base classes still move the focus.
class FocusLook {
public:
    // Calls `changed` after each change.
    FocusLook(QWidget& list, std::function<void()> changed);
    ~FocusLook();
    FocusLook(const FocusLook&) = delete;
    FocusLook& operator=(const FocusLook&) = delete;

    bool IsFocused() const { return m_isFocused; }

private:
    void Follow(const QWidget* old, const QWidget* now);

    QWidget& m_list;
    std::function<void()> m_changed;
    bool m_isFocused = false;
    QMetaObject::Connection m_focusChanged;
};

}  // namespace quellbrook
