#pragma once

#include "base/Event.h"
#include "core/Dispatcher.h"

namespace quellbrook {

// Whether a long operation is running. No nesting count.
class LoadingStore : public DispatcherCallback {
public:
    bool IsLoading() const { return m_isLoading; }

    void Handle(const Action& action) override;
    std::string CallbackTypeName() const override { return "LoadingStore"; }

    Event<> OnChange;

private:
    bool m_isLoading = false;
};

}  // namespace quellbrook
