#pragma once

#include <QWidget>

namespace quellbrook {

class PrinterPanel;

// The host's page "Labels and Scanner": a test of this workstation's scanner and the choice of its label printer.
// Printers and pictures are loaded by Load. The scanner's field is the focus proxy.
class ScannerPage : public QWidget {
    Q_OBJECT

public:
    // The choice of the printer is saved in this file.
    explicit ScannerPage(const QString& choiceFile, QWidget* parent = nullptr);

    static QString Title();
    void Load();

private:
    PrinterPanel* m_printer;
};

}  // namespace quellbrook
