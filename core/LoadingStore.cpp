#include "core/LoadingStore.h"

#include "core/ActionTypes.h"

namespace quellbrook {

void LoadingStore::Handle(const Action& action) {
    const bool started = action.ActionType == ActionTypes::LOADING_STARTED;
    if (!started && action.ActionType != ActionTypes::LOADING_FINISHED) return;
    m_isLoading = started;
    OnChange();
}

}  // namespace quellbrook
