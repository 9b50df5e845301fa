#include "app/scanner/ScannerPage.h"

#include "app/common/PageSections.h"
#include "app/common/PlainLabels.h"
#include "app/scanner/PrinterPanel.h"
#include "app/scanner/ScanField.h"
#include "app/scanner/ScannerPanel.h"

#include <QHBoxLayout>
#include <QScrollArea>

namespace quellbrook {

namespace {

constexpr int margin = 20, headingHeight = 76, widestScanner = 500;

QWidget* MakeHeading(QWidget* parent) {
    auto* heading = new QWidget(parent);
    heading->setFixedHeight(headingHeight);
    auto* lines = new QVBoxLayout(heading);
    lines->setContentsMargins(margin, 10, margin, 8);
    lines->setSpacing(2);
    lines->addWidget(new ElidedLabel(ScannerPage::Title(), 20, QFont::DemiBold));
    const QString contents = ScannerPage::tr("The barcode scanner and the label printer of this workstation");
    auto* subtitle = new ElidedLabel(contents, 13, QFont::Normal);
    MakeQuiet(subtitle);
    lines->addWidget(subtitle);
    return heading;
}

}  // namespace

QString ScannerPage::Title() { return tr("Labels and Scanner"); }

ScannerPage::ScannerPage(const QString& choiceFile, QWidget* parent) : QWidget(parent) {
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(MakeHeading(this));
    rows->addWidget(MakeRule(this));

    auto* panels = new QWidget;
    auto* columns = new QHBoxLayout(panels);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(0);
    auto* scanner = new ScannerPanel(panels);
    scanner->setMaximumWidth(widestScanner);
    m_printer = new PrinterPanel(choiceFile, panels);
    columns->addWidget(scanner, 1);
    columns->addWidget(m_printer, 1);

    auto* area = new QScrollArea(this);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    area->setWidget(panels);
    rows->addWidget(area, 1);
    setFocusProxy(scanner->Field());
}

void ScannerPage::Load() { m_printer->Load(); }

}  // namespace quellbrook
