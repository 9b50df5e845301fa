#pragma once

#include "demo/gallery/Specimen.h"

#include <QPixmap>
#include <QWidget>

namespace quellbrook {
class Label;
}

namespace quellbrook::gallery {

class Stage;

// One specimen in one state over a caption that names it. A state that lasts is shown by a live control, a fleeting one
// by a picture of the control taken in that state. A picture that looks like the normal state says so.
class Cell : public QWidget {
    Q_OBJECT

public:
    // An empty caption takes the name of the state. At least as wide as given, pixels.
    Cell(const Specimen& specimen, State state, const QString& caption, int leastWidth, QWidget* parent);

    const Specimen& Shown() const { return m_specimen; }
    State InState() const { return m_state; }
    Control* Live() const { return m_live; }  // null for a picture
    const QPixmap& Picture() const { return m_picture; }
    QString Caption() const;

    // Pictures the specimen anew, in the palette in use. Nothing for a live control.
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
