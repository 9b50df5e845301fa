#pragma once

#include "app/scanner/PrinterChoice.h"

#include <QWidget>

class QLabel;
class QLineEdit;
class QPushButton;

namespace quellbrook {

class ChoiceBox;
class LabelPreview;

// "Labels": which printer this workstation's labels go to, and a test label to try it with. What is chosen takes effect
// at once and is remembered in the file.
class PrinterPanel : public QWidget {
    Q_OBJECT

public:
    explicit PrinterPanel(QString choiceFile, QWidget* parent = nullptr);

    // Reads the choice, the system's printers and the label's template anew.
    void Load();

private:
    QWidget* MakeFields();
    void ShowPrinters(const std::vector<std::string>& printers);
    void ShowChoice();
    void Choose(PrinterChoice choice);
    void ChooseFolder();
    void ShowPicture();
    void PrintTestLabel();
    void SayOutcome(const QString& sentence);

    const QString m_choiceFile;
    PrinterChoice m_choice;
    QString m_gone;  // the printer that was chosen and that the system does not know; empty for none
    ChoiceBox* m_printers;
    QLabel* m_printerGone;
    QLabel* m_folderCaption;
    QLineEdit* m_folder;
    ChoiceBox* m_resolutions;
    QPushButton* m_print;
    QLabel* m_outcome;
    LabelPreview* m_preview;
};

}  // namespace quellbrook
