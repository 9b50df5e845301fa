#pragma once

#include "ui/controls/GroupBox.h"

namespace quellbrook {

class FontIcon;
class Label;

// A message shown instead of a view's contents: an icon, above a bold title, above a sentence, all centered.
// Opaque, as tall as its texts require, and not dimmed over a disabled list. The icon "busy" is a rotating ring.
class StatePanel : public GroupBox {
    Q_OBJECT

public:
    static constexpr int DefaultWidth = 340;  // pixels

    StatePanel(const QString& iconName, const QString& title, const QString& sentence, QWidget* parent,
               int width = DefaultWidth);

    FontIcon* Icon() const { return m_icon; }
    Label* Title() const { return m_title; }
    Label* Sentence() const { return m_sentence; }

private:
    Label* AddText(const QString& text, Theme::Type type, int top);

    FontIcon* m_icon;
    Label* m_title;
    Label* m_sentence;
};

}  // namespace quellbrook
