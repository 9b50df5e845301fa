#pragma once

#include <QString>

#include <optional>
#include <string>
#include <vector>

namespace quellbrook {

// The printer of this workstation's labels.
struct PrinterChoice {
    QString printer;  // a printer of the system; empty for PDF files in the folder
    QString folder;   // absolute
    int dotsPerInch = 203;

    bool operator==(const PrinterChoice&) const = default;
};

// The supported resolutions in dots per inch.
inline constexpr int PrinterResolutions[] = {203, 300, 600};

// The user's file that stores the choice.
QString PrinterChoiceFile();

// Empty if there is no choice or the file cannot be read. Invalid values are replaced by those of
// DefaultPrinterChoice.
std::optional<PrinterChoice> LoadPrinterChoice(const QString& file);
// Error 5 with a sentence if the file cannot be written.
void SavePrinterChoice(const PrinterChoice& choice, const QString& file);

// The default: the system's printer if there is exactly one, otherwise PDF files in the folder "Labels" of the user's
// documents.
PrinterChoice DefaultPrinterChoice(const std::vector<std::string>& systemPrinters);

// Sets the printer of the host's services.
void ApplyPrinterChoice(const PrinterChoice& choice);
// Sets the printer when the program starts: the choice in the file, or else DefaultPrinterChoice. The default is
// determined when the first label is printed, so that the start does not wait for the print system.
void ApplyPrinterChoice(const QString& file);

}  // namespace quellbrook
