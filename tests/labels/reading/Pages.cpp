#include "tests/labels/reading/Pages.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quellbrook::testing {

namespace {

constexpr int limit = 300'000;  // milliseconds

}  // namespace

std::vector<QImage> RasterizePages(const QByteArray& pdf, int dotsPerInch) {
    const QTemporaryDir folder;
    QFile file(folder.filePath("labels.pdf"));
    if (!file.open(QIODevice::WriteOnly) || file.write(pdf) != pdf.size()) ADD_FAILURE() << "The PDF can't be written.";
    file.close();
    QProcess raster;
    raster.setProcessChannelMode(QProcess::MergedChannels);
    raster.start("pdftoppm", {"-gray", "-r", QString::number(dotsPerInch), file.fileName(), folder.filePath("page")});
    if (!raster.waitForFinished(limit) || raster.exitCode() != 0)
        ADD_FAILURE() << "pdftoppm: " << raster.readAll().toStdString();
    std::vector<QImage> pages;
    for (const QString& name : QDir(folder.path()).entryList({"*.pgm"}, QDir::Files, QDir::Name))
        pages.emplace_back(folder.filePath(name));
    return pages;
}

}  // namespace quellbrook::testing
