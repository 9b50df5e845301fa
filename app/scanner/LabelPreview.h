#pragma once

#include <QImage>
#include <QWidget>

namespace quellbrook {

// A picture of a label as large as its place allows, never larger than it is; or a sentence that says why there is
// none.
class LabelPreview : public QWidget {
    Q_OBJECT

public:
    explicit LabelPreview(QWidget* parent = nullptr);
    void Show(const QImage& picture);
    void Explain(const QString& sentence);

    // Empty while a picture is shown.
    const QString& Sentence() const { return m_sentence; }
    // Where the picture is painted, in the widget's coordinates; empty while there is none.
    QRect PicturePlace() const;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage m_picture;
    QImage m_scaled;  // for the place in which it was painted last
    QString m_sentence;
};

}  // namespace quellbrook
