#pragma once

#include "app/scanner/PrinterChoice.h"

#include <QWidget>

class QLabel;
class QLineEdit;
class QPushButton;

namespace quellbrook {

class ChoiceBox;
class LabelPreview;

// "Labels": the choice of this workstation's label printer and a test label. A change takes effect at once and is
// saved.
class PrinterPanel : public QWidget {
    Q_OBJECT

public:
    explicit PrinterPanel(QString choiceFile, QWidget* parent = nullptr);

    // Reads the choice, the system's printers and the label template again.
    void Load();

private:
    QWidget* MakeFields();
    void ShowPrinters(const std::vector<std::string>& printers);
    void ShowChoice();
    void Choose(PrinterChoice choice);
    void ChooseFolder();
    void ShowPicture();
    void PrintTestLabel();
    void ShowOutcome(const QString& sentence);

    const QString m_choiceFile;
    PrinterChoice m_choice;
    QString m_gone;  // the chosen printer, if the system does not have it; otherwise empty
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
