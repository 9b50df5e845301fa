#include "base/Screen.h"
#include "ui/common/Dialogs.h"
#include "ui/explorer/EvidenceExplorer.h"
#include "ui/explorer/LocationTree.h"
#include "ui/explorer/LocationView.h"
#include "ui/platform/Guard.h"

#include <QPointer>

namespace quellbrook {

// The location that the commands New, Edit and Delete mean: the selected one, or the one of the heading if nothing is
// selected. Null for several objects or an item.
StorageLocationRef EvidenceExplorer::GetContextLocation() const {
    const std::shared_ptr<ObjectVector> selected = GetSelectedObjects();
    // After a failure, the pane shows no location.
    if (selected->Count() == 0) return m_itemPane->Location() ? m_itemPane->Location() : SelectedLocation();
    return selected->Count() == 1 ? std::dynamic_pointer_cast<StorageLocation>(selected->At(0)) : nullptr;
}

void EvidenceExplorer::RefreshPanes() {
    const QPointer<EvidenceExplorer> self(this);
    const auto keepFocus = KeepFocus();
    m_locationPane->RefreshInPlace();
    // A pane that shows no location has failed just now, and has reported it.
    if (self && m_itemPane->Location()) RefreshContents();
}

void EvidenceExplorer::PromptAddLocation(const StorageLocationRef& parent) {
    const QPointer<EvidenceExplorer> self(this);
    const StorageLocationRef added = GetDialogs().AddLocation(parent);
    if (!added || !self) return;
    RefreshPanes();
    if (self) OpenItemRequest(added);
}

void EvidenceExplorer::PromptEditLocation(const StorageLocationRef& location) {
    const QPointer<EvidenceExplorer> self(this);
    if (GetDialogs().EditLocation(location) && self) RefreshPanes();
}

void EvidenceExplorer::PromptDeleteLocation(StorageLocationRef location) {
    const QPointer<EvidenceExplorer> self(this);
    Guard(
        [&] {
            Require(location, "EvidenceExplorer.PromptDeleteLocation");
            const std::string question = "Are you sure you want to delete this location ('" + location->Name() + "')?";
            const int32_t answer = ShowMessage(question, MessageStyle::YesNoQuestion, "Are you sure?");
            if (answer == MessageAnswer::No || !self) return;
            location->Delete();
            RefreshPanes();
        },
        [](const Error& error) { ShowMessage(error.Description(), MessageStyle::Critical, "Error"); });
}

}  // namespace quellbrook
