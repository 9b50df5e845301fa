#pragma once

#include <QString>

#include <optional>
#include <string>
#include <vector>

namespace quellbrook {

// Where this workstation's labels go.
struct PrinterChoice {
    QString printer;  // a printer of the system; empty for PDF files in the folder
    QString folder;   // absolute
    int dotsPerInch = 203;

    bool operator==(const PrinterChoice&) const = default;
};

// The resolutions that may be chosen, dots to an inch.
inline constexpr int PrinterResolutions[] = {203, 300, 600};

// The user's file that holds the choice.
QString PrinterChoiceFile();

// Nothing where none has been made, or where the file can't be read. What makes no sense in the file is replaced by
// what a new choice would have.
std::optional<PrinterChoice> LoadPrinterChoice(const QString& file);
// Error 5 with a sentence for a file that can't be written.
void SavePrinterChoice(const PrinterChoice& choice, const QString& file);

// Where nothing has been chosen: the system's printer if it has exactly one, otherwise PDF files in the folder "Labels"
// of the user's documents.
PrinterChoice DefaultPrinterChoice(const std::vector<std::string>& systemPrinters);

// From now on labels go there.
void ApplyPrinterChoice(const PrinterChoice& choice);
// At the program's start: the choice in the file, or, without one, what DefaultPrinterChoice says when the first label
// is printed. Waits for no print system.
void ApplyPrinterChoice(const QString& file);

}  // namespace quellbrook
