#include "app/scanner/ScannerPanel.h"

#include "app/common/HostGuard.h"
#include "app/common/PageSections.h"
#include "app/common/PlainLabels.h"
#include "app/scanner/ScanField.h"
#include "app/scanner/TestSymbol.h"
#include "component/Labels.h"

#include <QApplication>
#include <QEvent>
#include <QGridLayout>
#include <QVBoxLayout>

namespace quellbrook {

namespace {

constexpr int margin = 20, captionWidth = 120, captionGap = 12;

QString TextOf(ScanVerdict verdict) {
    switch (verdict) {
    case ScanVerdict::Correct:
    case ScanVerdict::Works: return QObject::tr("\u2713 This scanner works");
    case ScanVerdict::NeedsChange: return QObject::tr("This scanner needs a change");
    case ScanVerdict::TypedByHand: break;
    }
    return QObject::tr("This was not a scan.");
}

QColor ColorOf(ScanVerdict verdict) {
    const QPalette palette = QApplication::palette();
    switch (verdict) {
    case ScanVerdict::Correct:
    case ScanVerdict::Works: return palette.color(QPalette::Link);
    case ScanVerdict::NeedsChange: return FailureColor();
    case ScanVerdict::TypedByHand: break;
    }
    return palette.color(QPalette::WindowText);
}

QString TextOf(const std::vector<std::string>& sentences) {
    QStringList lines;
    for (const std::string& sentence : sentences) lines << QString::fromStdString(sentence);
    return lines.join(QStringLiteral("\n\n"));
}

QLabel* AddField(QGridLayout& grid, const QString& caption, const char* name, QWidget* parent) {
    const int row = grid.rowCount();
    auto* captionLabel = MakeLabel(caption, 14, QFont::Normal, parent);
    captionLabel->setWordWrap(false);
    MakeQuiet(captionLabel);
    grid.addWidget(captionLabel, row, 0, Qt::AlignTop);
    auto* text = new WrappedLabel(QString(), 14, QFont::Medium, parent);
    text->setObjectName(QString::fromLatin1(name));
    grid.addWidget(text, row, 1);
    return text;
}

}  // namespace

ScannerPanel::ScannerPanel(QWidget* parent) : QWidget(parent) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(0);
    AddSection(*column, tr("Test Your Scanner"), this);
    const QString instruction =
        tr("Scan the test label on the screen, or one that you have printed. It is "
           "for property number 0, which no item has.");
    column->addWidget(new WrappedLabel(instruction, 14, QFont::Normal, this));
    column->addSpacing(12);
    auto* symbol = new TestSymbol(TestBarcodeText(), this);
    symbol->setObjectName(QStringLiteral("testSymbol"));
    column->addWidget(symbol);
    column->addSpacing(16);
    m_field = new ScanField(this);
    m_field->setObjectName(QStringLiteral("scanField"));
    column->addWidget(m_field);
    column->addSpacing(24);
    AddReading(*column);
    column->addStretch(1);
    connect(m_field, &ScanField::Read, this,
            [this](const std::vector<ScannedKey>& keys) { GuardHost(this, [&] { ShowReading(keys); }); });
}

void ScannerPanel::AddReading(QVBoxLayout& column) {
    m_result = new QWidget(this);
    m_result->setObjectName(QStringLiteral("reading"));
    auto* rows = new QVBoxLayout(m_result);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    AddSection(*rows, tr("Last Reading"), m_result);
    m_verdict = MakeLabel(QString(), 16, QFont::DemiBold, m_result);
    m_verdict->setObjectName(QStringLiteral("verdict"));
    rows->addWidget(m_verdict);
    rows->addSpacing(8);
    m_sentences = new WrappedLabel(QString(), 14, QFont::Normal, m_result);
    m_sentences->setObjectName(QStringLiteral("sentences"));
    rows->addWidget(m_sentences);
    rows->addSpacing(16);
    auto* grid = new QGridLayout;
    grid->setColumnMinimumWidth(0, captionWidth);
    grid->setColumnStretch(1, 1);
    grid->setVerticalSpacing(8);
    grid->setHorizontalSpacing(captionGap);
    m_reading = AddField(*grid, tr("Characters received:"), "keys", m_result);
    m_meaning = AddField(*grid, tr("Understood as:"), "meaning", m_result);
    rows->addLayout(grid);
    m_result->hide();
    column.addWidget(m_result);
}

void ScannerPanel::ShowReading(const std::vector<ScannedKey>& keys) {
    const ScanDiagnosis diagnosis = DiagnoseScan(keys);
    m_verdict->setText(TextOf(diagnosis.verdict));
    m_lastVerdict = diagnosis.verdict;
    SetColor(m_verdict, ColorOf(m_lastVerdict));
    m_sentences->setText(TextOf(diagnosis.sentences));
    m_reading->setText(QString::fromStdString(diagnosis.reading));
    m_meaning->setText(diagnosis.meaning.empty() ? tr("Nothing") : QString::fromStdString(diagnosis.meaning));
    m_reading->setAccessibleName(tr("Characters received: %1").arg(m_reading->text()));
    m_meaning->setAccessibleName(tr("Understood as: %1").arg(m_meaning->text()));
    m_result->show();
    // A screen reader reports the result while the focus stays in the field.
    m_field->setAccessibleDescription(m_verdict->text() + ". " + m_sentences->text());
}

void ScannerPanel::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_verdict) SetColor(m_verdict, ColorOf(m_lastVerdict));
}

}  // namespace quellbrook
