#include "ui/printing/LabelOutput.h"

#include "base/Error.h"
#include "ui/printing/LabelPainter.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>

#include <cmath>

namespace quellbrook {

namespace {

QPageSize PageSizeOf(const FilledLabel& label) {
    return QPageSize(QSizeF(label.width, label.height), QPageSize::Millimeter, QStringLiteral("Label"),
                     QPageSize::ExactMatch);
}

int DotsOf(double millimeters, int dotsPerInch) {
    return static_cast<int>(std::lround(millimeters * dotsPerInch / MillimetersPerInch));
}

}  // namespace

QByteArray MakeLabelPdf(const std::vector<FilledLabel>& labels, int dotsPerInch) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(dotsPerInch);
    writer.setPageMargins(QMarginsF(0, 0, 0, 0));
    writer.setCreator(QStringLiteral("Quellbrook"));
    writer.setTitle(QStringLiteral("Label"));
    QPainter painter;
    for (const FilledLabel& label : labels) {
        writer.setPageSize(PageSizeOf(label));
        const bool isReady = painter.isActive() ? writer.newPage() : painter.begin(&writer);
        if (!isReady) Raise(ErrorNumber::General, "MakeLabelPdf", "The page of a label can't be created.");
        PaintLabel(painter, label, dotsPerInch);
    }
    painter.end();
    return bytes;
}

QImage MakeLabelImage(const FilledLabel& label, int dotsPerInch) {
    QImage image(DotsOf(label.width, dotsPerInch), DotsOf(label.height, dotsPerInch), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    PaintLabel(painter, label, dotsPerInch);
    return image;
}

}  // namespace quellbrook
