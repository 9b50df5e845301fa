#include "app/common/PageSections.h"

#include "app/common/PlainLabels.h"
#include "app/common/ThemedSheet.h"

#include <QFrame>

namespace quellbrook {

QFrame* MakeRule(QWidget* parent) {
    auto* rule = new QFrame(parent);
    rule->setFixedHeight(1);
    SetThemedSheet(rule, QStringLiteral("background: palette(mid); border: none;"));
    return rule;
}

void AddSection(QVBoxLayout& column, const QString& caption, QWidget* parent) {
    auto* label = MakeLabel(caption.toUpper(), 13, QFont::DemiBold, parent);
    MakeQuiet(label);
    column.addWidget(label);
    column.addSpacing(4);
    column.addWidget(MakeRule(parent));
    column.addSpacing(8);
}

}  // namespace quellbrook
