#include "ui/printing/LabelPrinters.h"

#include "base/Error.h"
#include "labels/BarcodeSymbol.h"
#include "ui/platform/Strings.h"
#include "ui/printing/LabelOutput.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QSaveFile>

namespace quellbrook {

namespace {

constexpr int ListLimit = 5'000;  // milliseconds

[[noreturn]] void Refuse(const QString& sentence) {
    Raise(ErrorNumber::General, "BarcodeLabel.Print", ToUtf8(sentence));
}

QString FileNameOf(const FilledLabel& label) {
    QString name = label.barcodes.empty() ? QString() : ToQString(ReadableText(label.barcodes.front().text));
    for (QChar& character : name)
        if (!character.isLetterOrNumber()) character = QLatin1Char('_');
    return (name.isEmpty() ? QStringLiteral("label") : name) + QStringLiteral(".pdf");
}

// The output of the print command without its name or path at the start.
QString WordsOf(QProcess& process) {
    static const QRegularExpression prefix(QStringLiteral("^(\\S*lp: )?(Error - )?"));
    return QString::fromLocal8Bit(process.readAllStandardError()).simplified().remove(prefix);
}

QStringList JobArguments(const QString& printer, const FilledLabel& label) {
    const QString media = QStringLiteral("media=Custom.%1x%2mm").arg(label.width).arg(label.height);
    return {"-d", printer, "-t", "Label", "-o", media, "-o", "print-scaling=none"};
}

}  // namespace

void PdfLabelPrinter::Print(const FilledLabel& label) {
    const QByteArray pdf = MakeLabelPdf({label}, m_dotsPerInch);
    const QString path = QDir(m_directory).filePath(FileNameOf(label));
    QDir().mkpath(m_directory);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(pdf) != pdf.size() || !file.commit())
        Refuse(QStringLiteral("The file '%1' can't be written: %2.").arg(path, file.errorString()));
}

std::string PdfLabelPrinter::Destination() const {
    return ToUtf8(QStringLiteral("to the folder '%1'").arg(QDir::toNativeSeparators(m_directory)));
}

void SystemLabelPrinter::Print(const FilledLabel& label) {
    const QByteArray pdf = MakeLabelPdf({label}, m_dotsPerInch);
    QProcess job;
    job.start(QStringLiteral("lp"), JobArguments(m_name, label));
    if (!job.waitForStarted(m_limit))
        Refuse(QStringLiteral("The print command 'lp' of this system can't be started: %1.").arg(job.errorString()));
    job.write(pdf);
    job.closeWriteChannel();
    if (!job.waitForFinished(m_limit)) {
        job.kill();
        job.waitForFinished();
        Refuse(QStringLiteral("The printer '%1' did not respond.").arg(m_name));
    }
    if (job.exitStatus() == QProcess::NormalExit && job.exitCode() == 0) return;
    const QString words = WordsOf(job);
    Refuse(words.isEmpty() ? QStringLiteral("The printer '%1' rejected the label.").arg(m_name) : words);
}

std::string SystemLabelPrinter::Destination() const {
    return ToUtf8(QStringLiteral("to the printer '%1'").arg(m_name));
}

QStringList SystemPrinterNames() {
    QProcess list;
    list.start(QStringLiteral("lpstat"), {QStringLiteral("-e")});
    if (!list.waitForStarted(ListLimit)) return {};
    list.closeWriteChannel();
    if (!list.waitForFinished(ListLimit)) {
        list.kill();
        list.waitForFinished();
        return {};
    }
    return QString::fromLocal8Bit(list.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

}  // namespace quellbrook
