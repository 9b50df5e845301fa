#pragma once

#include <QObject>
#include <QTextObjectInterface>

class QTextDocument;

namespace quellbrook {

// Draws the pictures of a document in a thin frame, shrunk to the width of the text. Owned by the document.
class GuidePictures : public QObject, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    // From now on, the document's pictures are drawn so.
    static void Install(QTextDocument* document);

    QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
    void drawObject(QPainter* painter, const QRectF& rect, QTextDocument* document, int position,
                    const QTextFormat& format) override;

private:
    explicit GuidePictures(QTextDocument* document);
};

}  // namespace quellbrook
