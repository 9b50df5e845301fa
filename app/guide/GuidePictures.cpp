#include "app/guide/GuidePictures.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QTextDocument>
#include <QTextFormat>
#include <QUrl>

#include <algorithm>

namespace quellbrook {

namespace {

QImage PictureOf(const QTextDocument& document, const QTextFormat& format) {
    return document.resource(QTextDocument::ImageResource, QUrl(format.toImageFormat().name())).value<QImage>();
}

}  // namespace

GuidePictures::GuidePictures(QTextDocument* document) : QObject(document) {}

void GuidePictures::Install(QTextDocument* document) {
    document->documentLayout()->registerHandler(QTextFormat::ImageObject, new GuidePictures(document));
}

QSizeF GuidePictures::intrinsicSize(QTextDocument* document, int, const QTextFormat& format) {
    const QSizeF full = PictureOf(*document, format).size();
    const qreal width = document->textWidth() - 2 * document->documentMargin();
    return width <= 0 || full.width() <= width ? full : full * (width / full.width());
}

void GuidePictures::drawObject(QPainter* painter, const QRectF& rect, QTextDocument* document, int,
                               const QTextFormat& format) {
    painter->save();
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->drawImage(rect, PictureOf(*document, format));
    painter->setPen(QApplication::palette().color(QPalette::Mid));
    painter->drawRect(rect.adjusted(0.5, 0.5, -0.5, -0.5));
    painter->restore();
}

}  // namespace quellbrook
