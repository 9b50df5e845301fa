#include "ui/shell/ShellViews.h"

#include "core/ViewStore.h"
#include "ui/explorer/EvidenceExplorer.h"
#include "ui/items/CartView.h"
#include "ui/items/StoredItemView.h"
#include "ui/items/SubmitEvidenceView.h"
#include "ui/shell/EvidenceUI.h"
#include "ui/shell/LoadingView.h"

namespace quellbrook {

namespace {

template <typename T>
Control* Make(QWidget* parent) {
    return new T(parent);
}

}  // namespace

ShellViews StandardShellViews() {
    return {
        {ViewNames::Explorer, "Evidence Explorer", Make<EvidenceExplorer>},
        {ViewNames::Cart, "Cart", Make<CartView>},
        {ViewNames::ItemView, "Item Viewer", Make<StoredItemView>},
        {ViewNames::Loading, "Loading", Make<LoadingView>},
        {ViewNames::SubmitNewEvidence, "Submit Evidence", Make<SubmitEvidenceView>},
    };
}

EvidenceUI::EvidenceUI(QWidget* parent) : EvidenceUI(StandardShellViews(), parent) {}

}  // namespace quellbrook
