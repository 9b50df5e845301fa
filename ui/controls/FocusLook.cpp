#include "ui/controls/FocusLook.h"

#include "ui/platform/Guard.h"

#include <QApplication>
#include <QWidget>

#include <utility>

namespace quellbrook {

FocusLook::FocusLook(QWidget& list, std::function<void()> changed)
    : m_list(list),
      m_changed(std::move(changed)),
      m_focusChanged(
          QObject::connect(qApp, &QApplication::focusChanged, &list,
                           [this](const QWidget* old, const QWidget* now) { Guard([&] { Follow(old, now); }); })) {}

FocusLook::~FocusLook() { QObject::disconnect(m_focusChanged); }

void FocusLook::Follow(const QWidget* old, const QWidget* now) {
    const bool inside = now && (now == &m_list || m_list.isAncestorOf(now));
    const QWidget* window = m_list.window();
    const bool left = now ? now->window() == window : old && QApplication::activeWindow() == window;
    if ((!inside && !left) || inside == m_isFocused) return;
    m_isFocused = inside;
    m_changed();
}

}  // namespace quellbrook
