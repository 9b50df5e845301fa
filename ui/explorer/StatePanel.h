#pragma once

#include "ui/controls/GroupBox.h"

namespace quellbrook {

// What a list shows in place of its rows: an icon, a bold line and a sentence below each other, centred. Opaque, as
// tall as its words need, and in full colour over a disabled list too.
class StatePanel : public GroupBox {
    Q_OBJECT

public:
    StatePanel(const QString& iconName, const QString& title, const QString& sentence, QWidget* parent);

    const QString& Title() const { return m_title; }
    const QString& Sentence() const { return m_sentence; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_icon;
    QString m_title;
    QString m_sentence;
};

}  // namespace quellbrook
