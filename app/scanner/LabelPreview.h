#pragma once

#include <QImage>
#include <QWidget>

namespace quellbrook {

// Shows the picture of a label as large as possible, up to its own size, or a sentence that explains why there is none.
class LabelPreview : public QWidget {
    Q_OBJECT

public:
    explicit LabelPreview(QWidget* parent = nullptr);
    void Show(const QImage& picture);
    void Explain(const QString& sentence);

    // Empty while a picture is shown.
    const QString& Sentence() const { return m_sentence; }
    // The rectangle of the picture in the widget's coordinates; empty without a picture.
    QRect PictureRect() const;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage m_picture;
    QImage m_scaled;  // at the size of the last painting
    QString m_sentence;
};

}  // namespace quellbrook
