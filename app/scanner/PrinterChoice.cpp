#include "app/scanner/PrinterChoice.h"

#include "base/Error.h"
#include "component/Labels.h"
#include "host/HostServices.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

#include <algorithm>
#include <iterator>
#include <memory>

namespace quellbrook {

namespace {

const QString wayKey = QStringLiteral("labels/way"), printerKey = QStringLiteral("labels/printer"),
              folderKey = QStringLiteral("labels/folder"), resolutionKey = QStringLiteral("labels/dotsPerInch");
const QString printerWay = QStringLiteral("printer"), filesWay = QStringLiteral("files");

QString UsualFolder() {
    return QDir(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)).filePath(QStringLiteral("Labels"));
}

bool IsResolution(int dotsPerInch) {
    return std::find(std::begin(PrinterResolutions), std::end(PrinterResolutions), dotsPerInch) !=
           std::end(PrinterResolutions);
}

std::shared_ptr<LabelPrinter> PrinterOf(const PrinterChoice& choice) {
    if (choice.printer.isEmpty()) return MakePdfPrinter(choice.folder.toStdString(), choice.dotsPerInch);
    return MakeSystemPrinter(choice.printer.toStdString(), choice.dotsPerInch);
}

// Finds the default printer when the first label is printed, since a print system may be slow.
class UnchosenPrinter : public LabelPrinter {
public:
    void Print(const FilledLabel& label) override { Chosen().Print(label); }
    std::string Destination() const override { return Chosen().Destination(); }

private:
    LabelPrinter& Chosen() const {
        if (!m_printer) m_printer = PrinterOf(DefaultPrinterChoice(SystemPrinters()));
        return *m_printer;
    }

    mutable std::shared_ptr<LabelPrinter> m_printer;
};

}  // namespace

QString PrinterChoiceFile() {
    return QDir(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation))
        .filePath(QStringLiteral("workstation.ini"));
}

std::optional<PrinterChoice> LoadPrinterChoice(const QString& file) {
    if (!QFileInfo::exists(file)) return std::nullopt;
    const QSettings settings(file, QSettings::IniFormat);
    const QString way = settings.value(wayKey).toString();
    if (way != printerWay && way != filesWay) return std::nullopt;
    PrinterChoice choice = DefaultPrinterChoice({});
    if (way == printerWay) choice.printer = settings.value(printerKey).toString();
    const QString folder = settings.value(folderKey).toString();
    if (QDir::isAbsolutePath(folder)) choice.folder = folder;
    const int dotsPerInch = settings.value(resolutionKey).toInt();
    if (IsResolution(dotsPerInch)) choice.dotsPerInch = dotsPerInch;
    return choice;
}

void SavePrinterChoice(const PrinterChoice& choice, const QString& file) {
    QDir().mkpath(QFileInfo(file).path());
    QSettings settings(file, QSettings::IniFormat);
    settings.setValue(wayKey, choice.printer.isEmpty() ? filesWay : printerWay);
    settings.setValue(printerKey, choice.printer);
    settings.setValue(folderKey, choice.folder);
    settings.setValue(resolutionKey, choice.dotsPerInch);
    settings.sync();
    if (settings.status() != QSettings::NoError)
        Raise(ErrorNumber::General, "SavePrinterChoice",
              "The choice can't be saved: the file '" + file.toStdString() + "' can't be written.");
}

PrinterChoice DefaultPrinterChoice(const std::vector<std::string>& systemPrinters) {
    PrinterChoice choice;
    if (systemPrinters.size() == 1) choice.printer = QString::fromStdString(systemPrinters.front());
    choice.folder = UsualFolder();
    return choice;
}

void ApplyPrinterChoice(const PrinterChoice& choice) { HostServices::Current().SetPrinter(PrinterOf(choice)); }

void ApplyPrinterChoice(const QString& file) {
    if (const auto choice = LoadPrinterChoice(file)) return ApplyPrinterChoice(*choice);
    HostServices::Current().SetPrinter(std::make_shared<UnchosenPrinter>());
}

}  // namespace quellbrook
