#include "component/EvidenceUI.h"

#include "ui/shell/EvidenceUI.h"

namespace quellbrook {

QWidget* CreateEvidenceUI(QWidget* parent) {
    auto* control = new EvidenceUI(parent);
    control->hide();
    return control;
}

}  // namespace quellbrook
