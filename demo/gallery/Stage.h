#pragma once

#include "demo/gallery/Specimen.h"

#include <QPixmap>
#include <QPointer>
#include <QWidget>

namespace quellbrook::gallery {

// A window that no screen shows and that is the active one as long as it lives. On it a control gets the pointer or the
// focus by the events that the platform would send, and is pictured meanwhile.
class Stage {
public:
    // The room around a control on its picture, pixels: for the focus ring.
    static constexpr int Room = 4;

    Stage();
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    // The specimen in one of its states, with the list below it that it has opened.
    QPixmap Picture(const Specimen& specimen, State state);

private:
    QWidget m_window;
    QPointer<QWidget> m_activeBefore;
    bool m_animatedBefore;
};

// Puts a control that its specimen has just made into a state that lasts by itself.
void Apply(const Specimen& specimen, State state, Control& control);

}  // namespace quellbrook::gallery
