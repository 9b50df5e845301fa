#pragma once

#include "labels/LabelPrinter.h"

#include <QString>
#include <QStringList>

namespace quellbrook {

// Writes each label to a separate PDF file, named after its barcode: "P0000004711.pdf". Printing a label again
// replaces its file.
class PdfLabelPrinter : public LabelPrinter {
public:
    PdfLabelPrinter(QString directory, int dotsPerInch)
        : m_directory(std::move(directory)), m_dotsPerInch(dotsPerInch) {}

    void Print(const FilledLabel& label) override;
    std::string Destination() const override;

private:
    QString m_directory;
    int m_dotsPerInch;
};

// Sends each label to a printer of this system as a job with the label's page size. The name is the one used by the
// print system (CUPS). A job that is not accepted within the limit is ended and counts as rejected.
class SystemLabelPrinter : public LabelPrinter {
public:
    SystemLabelPrinter(QString name, int dotsPerInch, int limitMilliseconds = 15'000)
        : m_name(std::move(name)), m_dotsPerInch(dotsPerInch), m_limit(limitMilliseconds) {}

    void Print(const FilledLabel& label) override;
    std::string Destination() const override;

private:
    QString m_name;
    int m_dotsPerInch;
    int m_limit;
};

// The names of this system's printers; empty if there is no print system or it does not respond.
QStringList SystemPrinterNames();

}  // namespace quellbrook
