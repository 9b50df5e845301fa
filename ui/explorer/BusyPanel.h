#pragma once

#include "ui/controls/GroupBox.h"

namespace quellbrook {

class Label;

// A ring that turns, a bold line and a sentence below each other, centred: what stands over a view while it loads.
class BusyPanel : public GroupBox {
    Q_OBJECT

public:
    // Width in pixels; the height follows.
    BusyPanel(const QString& title, const QString& sentence, int width, QWidget* parent);

    Label* Title() const { return m_title; }
    Label* Sentence() const { return m_sentence; }

private:
    Label* m_title;
    Label* m_sentence;
};

}  // namespace quellbrook
