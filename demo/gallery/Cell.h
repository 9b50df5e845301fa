#pragma once

#include "demo/gallery/Specimen.h"

#include <QPixmap>
#include <QWidget>

namespace quellbrook {
class Label;
}

namespace quellbrook::gallery {

class Stage;

// One specimen in one state, above its caption. A permanent state is shown by a live control, a transient state by a
// picture of the control. The caption mentions if the picture equals the normal state.
class Cell : public QWidget {
    Q_OBJECT

public:
    // An empty caption means the name of the state. The width is a minimum, in pixels.
    Cell(const Specimen& specimen, State state, const QString& caption, int leastWidth, QWidget* parent);

    const Specimen& Shown() const { return m_specimen; }
    State InState() const { return m_state; }
    Control* Live() const { return m_live; }  // null for a picture
    const QPixmap& Picture() const { return m_picture; }
    QString Caption() const;

    // Takes the picture again in the current palette. Does nothing for a live control.
    void Retake(Stage& stage);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Fit(const QSize& content);

    Specimen m_specimen;
    State m_state;
    int m_leastWidth;
    Control* m_live = nullptr;
    QPixmap m_picture;
    Label* m_caption;
};

}  // namespace quellbrook::gallery
