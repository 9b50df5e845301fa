#pragma once

#include "labels/LabelPrinter.h"

#include <QString>
#include <QStringList>

namespace quellbrook {

// Writes each label into a PDF file of its own, named after its barcode: "P0000004711.pdf". A label printed again
// replaces its file.
class PdfLabelPrinter : public LabelPrinter {
public:
    PdfLabelPrinter(QString directory, int dotsPerInch)
        : m_directory(std::move(directory)), m_dotsPerInch(dotsPerInch) {}

    void Print(const FilledLabel& label) override;

private:
    QString m_directory;
    int m_dotsPerInch;
};

// Hands each label to a printer of this system, as a job with the label's page size. Knows a printer by the name that
// the print system (CUPS) gives it. A job that has not been taken after fifteen seconds counts as refused.
class SystemLabelPrinter : public LabelPrinter {
public:
    SystemLabelPrinter(QString name, int dotsPerInch) : m_name(std::move(name)), m_dotsPerInch(dotsPerInch) {}

    void Print(const FilledLabel& label) override;

private:
    QString m_name;
    int m_dotsPerInch;
};

// The names of this system's printers; empty where there is no print system, or none that answers.
QStringList SystemPrinterNames();

}  // namespace quellbrook
