#include "app/scanner/PrinterPanel.h"

#include "app/common/HostGuard.h"
#include "app/common/PageSections.h"
#include "app/common/PlainLabels.h"
#include "app/scanner/ChoiceBox.h"
#include "app/scanner/LabelPreview.h"
#include "component/Labels.h"
#include "host/HostServices.h"

#include <QDir>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>

#include <algorithm>

namespace quellbrook {

namespace {

constexpr int margin = 20, captionWidth = 120, fieldsWidth = 640, previewWidth = 560;

class WaitCursor {
public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

QLabel* AddCaption(QGridLayout& grid, const QString& caption, int row, QWidget* parent) {
    auto* label = MakeLabel(caption, 14, QFont::Normal, parent);
    MakeQuiet(label);
    label->setFixedWidth(captionWidth);
    grid.addWidget(label, row, 0, Qt::AlignVCenter);
    return label;
}

QString WordsOf(const Error& error) { return QString::fromStdString(error.Description()); }

}  // namespace

PrinterPanel::PrinterPanel(QString choiceFile, QWidget* parent) : QWidget(parent), m_choiceFile(std::move(choiceFile)) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(0);
    AddSection(*column, tr("Labels"), this);
    const QString purpose = tr("Where the labels of this workstation are printed. A change takes effect at once.");
    column->addWidget(new WrappedLabel(purpose, 14, QFont::Normal, this));
    column->addSpacing(12);
    column->addWidget(MakeFields());
    column->addSpacing(16);

    m_print = new QPushButton(tr("Print Test Label"), this);
    m_print->setDefault(true);
    m_print->setObjectName(QStringLiteral("printTestLabel"));
    m_outcome = new WrappedLabel(QString(), 14, QFont::Normal, this);
    m_outcome->setObjectName(QStringLiteral("outcome"));
    auto* row = new QHBoxLayout;
    row->setSpacing(12);
    row->addWidget(m_print, 0, Qt::AlignLeft);
    row->addWidget(m_outcome, 1, Qt::AlignVCenter);
    column->addLayout(row);
    column->addSpacing(24);

    AddSection(*column, tr("Test Label"), this);
    m_preview = new LabelPreview(this);
    m_preview->setObjectName(QStringLiteral("preview"));
    m_preview->setMaximumWidth(previewWidth);
    column->addWidget(m_preview, 1);

    connect(m_printers, &QComboBox::activated, this, [this] {
        PrinterChoice choice = m_choice;
        choice.printer = m_printers->currentData().toString();
        Choose(choice);
    });
    connect(m_resolutions, &QComboBox::activated, this, [this] {
        PrinterChoice choice = m_choice;
        choice.dotsPerInch = m_resolutions->currentData().toInt();
        Choose(choice);
    });
    connect(m_folder, &QLineEdit::editingFinished, this, [this] { ChooseFolder(); });
    connect(m_print, &QPushButton::clicked, this, [this] { GuardHost(this, [this] { PrintTestLabel(); }); });
}

QWidget* PrinterPanel::MakeFields() {
    auto* fields = new QWidget(this);
    fields->setMaximumWidth(fieldsWidth);
    auto* grid = new QGridLayout(fields);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setColumnStretch(1, 1);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(8);
    AddCaption(*grid, tr("Printer:"), 0, fields);
    m_printers = new ChoiceBox(tr("Printer"), fields);
    m_printers->setObjectName(QStringLiteral("printers"));
    grid->addWidget(m_printers, 0, 1);
    m_printerGone = new WrappedLabel(QString(), 14, QFont::Normal, fields);
    m_printerGone->setObjectName(QStringLiteral("printerGone"));
    grid->addWidget(m_printerGone, 1, 1);

    m_folderCaption = AddCaption(*grid, tr("Folder:"), 2, fields);
    m_folder = new QLineEdit(fields);
    m_folder->setObjectName(QStringLiteral("folder"));
    m_folder->setAccessibleName(tr("Folder"));
    grid->addWidget(m_folder, 2, 1);

    AddCaption(*grid, tr("Resolution:"), 3, fields);
    m_resolutions = new ChoiceBox(tr("Resolution"), fields);
    m_resolutions->setObjectName(QStringLiteral("resolutions"));
    for (const int dotsPerInch : PrinterResolutions)
        m_resolutions->addItem(tr("%1 dots per inch").arg(dotsPerInch), dotsPerInch);
    grid->addWidget(m_resolutions, 3, 1);
    return fields;
}

void PrinterPanel::Load() {
    const WaitCursor waiting;
    const std::vector<std::string> printers = SystemPrinters();
    const auto remembered = LoadPrinterChoice(m_choiceFile);
    m_choice = remembered.value_or(DefaultPrinterChoice(printers));
    if (!remembered) ApplyPrinterChoice(m_choice);
    ShowPrinters(printers);
    ShowOutcome(QString());
    ShowChoice();
    ShowPicture();
}

void PrinterPanel::ShowPrinters(const std::vector<std::string>& printers) {
    const QSignalBlocker quiet(m_printers);
    m_printers->clear();
    for (const std::string& printer : printers) {
        const QString name = QString::fromStdString(printer);
        m_printers->addItem(name, name);
    }
    const bool isKnown = m_choice.printer.isEmpty() || m_printers->findData(m_choice.printer) >= 0;
    m_gone = isKnown ? QString() : m_choice.printer;
    if (!isKnown) m_printers->addItem(tr("%1 (not found)").arg(m_gone), m_gone);
    m_printers->addItem(tr("PDF files in a folder"), QString());
    m_printerGone->setText(tr("The printer '%1' was not found on this computer. It stays selected until you "
                              "choose another.")
                               .arg(m_gone));
}

void PrinterPanel::ShowChoice() {
    const bool writesFiles = m_choice.printer.isEmpty();
    m_printers->setCurrentIndex(m_printers->findData(m_choice.printer));
    m_resolutions->setCurrentIndex(m_resolutions->findData(m_choice.dotsPerInch));
    m_folder->setText(QDir::toNativeSeparators(m_choice.folder));
    m_folder->setCursorPosition(0);
    m_folder->setVisible(writesFiles);
    m_folderCaption->setVisible(writesFiles);
    m_printerGone->setVisible(!m_gone.isEmpty() && m_choice.printer == m_gone);
}

void PrinterPanel::Choose(PrinterChoice choice) {
    GuardHost(this, [&] {
        if (choice == m_choice) return;
        const bool sameResolution = choice.dotsPerInch == m_choice.dotsPerInch;
        m_choice = std::move(choice);
        ShowOutcome(QString());
        ApplyPrinterChoice(m_choice);
        ShowChoice();
        if (!sameResolution) ShowPicture();
        try {
            SavePrinterChoice(m_choice, m_choiceFile);
        } catch (const Error& error) {
            ShowOutcome(WordsOf(error));
        }
    });
}

// A relative path is below the user's home directory.
void PrinterPanel::ChooseFolder() {
    const QString text = QDir::fromNativeSeparators(m_folder->text().trimmed());
    PrinterChoice choice = m_choice;
    if (!text.isEmpty()) choice.folder = QDir::cleanPath(QDir::home().absoluteFilePath(text));
    Choose(choice);
    ShowChoice();
}

void PrinterPanel::ShowPicture() {
    try {
        m_preview->Show(PictureOfLabel(MakeTestLabel().Filled(), m_choice.dotsPerInch));
    } catch (const Error& error) {
        m_preview->Explain(tr("The test label can't be shown: %1").arg(WordsOf(error)));
    }
    m_print->setEnabled(m_preview->Sentence().isEmpty());
}

void PrinterPanel::ShowOutcome(const QString& sentence) {
    m_outcome->setText(sentence);
    m_outcome->setVisible(!sentence.isEmpty());
}

void PrinterPanel::PrintTestLabel() {
    try {
        const WaitCursor waiting;
        MakeTestLabel().Print();
        const std::string destination = HostServices::Current().Printer().Destination();
        ShowOutcome(tr("Sent 1 label %1.").arg(QString::fromStdString(destination)));
    } catch (const Error& error) {
        ShowOutcome(WordsOf(error));
    }
}

}  // namespace quellbrook
