#pragma once

#include "demo/gallery/Specimen.h"

#include <QPixmap>
#include <QPointer>
#include <QWidget>

namespace quellbrook::gallery {

// An invisible window that is active while it exists. It sends pointer or focus events to a control, as the platform
// does, and takes its picture.
class Stage {
public:
    // The margin around a control in its picture for the focus ring, in pixels.
    static constexpr int Margin = 4;

    Stage();
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    // A picture of the specimen in the state, including an opened list.
    QPixmap Picture(const Specimen& specimen, State state);

private:
    QWidget m_window;
    QPointer<QWidget> m_activeBefore;
    bool m_animatedBefore;
};

// Changes a newly created control to a permanent state.
void Apply(const Specimen& specimen, State state, Control& control);

}  // namespace quellbrook::gallery
