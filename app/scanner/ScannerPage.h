#pragma once

#include <QWidget>

namespace quellbrook {

class PrinterPanel;

// The host's page "Labels and Scanner": whether this workstation's scanner is set up as it should be, and where its
// labels are printed. Empty of printers and pictures until Load. The focus goes to the field of the scanner.
class ScannerPage : public QWidget {
    Q_OBJECT

public:
    // The file in which the choice of the printer is remembered.
    explicit ScannerPage(const QString& choiceFile, QWidget* parent = nullptr);

    static QString Title();
    void Load();

private:
    PrinterPanel* m_printer;
};

}  // namespace quellbrook
