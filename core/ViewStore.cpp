#include "core/ViewStore.h"

#include "core/ActionTypes.h"

namespace quellbrook {

void ViewStore::Handle(const Action& action) {
    if (action.ActionType == ActionTypes::VIEW_NAVIGATE_TO)
        NavigateTo(*ToObject<ViewState>(action.Payload));
    else if (action.ActionType == ActionTypes::VIEW_GO_BACK)
        GoBack();
}

void ViewStore::NavigateTo(const ViewState& state) {
    if (state.ViewName() == m_current->ViewName()) return;
    m_current = std::make_shared<const ViewState>(state.ViewName(), state.ViewParameters());
    m_history.push_back(m_current);
    OnChange();
}

void ViewStore::GoBack() {
    if (m_history.empty()) return;
    m_history.pop_back();
    if (m_history.empty()) return;
    m_current = m_history.back();
    OnChange();
}

}  // namespace quellbrook
