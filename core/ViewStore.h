#pragma once

#include "base/Dictionary.h"
#include "base/Event.h"
#include "core/Dispatcher.h"

#include <memory>
#include <string>
#include <vector>

namespace quellbrook {

// The names of the views, and of the shell's controls that contain them.
namespace ViewNames {
inline constexpr const char* Explorer = "explorer";
inline constexpr const char* ItemView = "itemView";  // parameter "Item": the StoredItem
inline constexpr const char* SubmitNewEvidence = "submitNewEvidence";
inline constexpr const char* Cart = "cart";
inline constexpr const char* Loading = "loading";  // shown by the shell itself, never navigated to
}  // namespace ViewNames

// A view and its parameters. Immutable.
class ViewState : public Object {
public:
    ViewState(std::string viewName, std::shared_ptr<Dictionary> parameters)
        : m_viewName(std::move(viewName)), m_parameters(std::move(parameters)) {}

    std::string TypeName() const override { return "ViewState"; }
    const std::string& ViewName() const { return m_viewName; }
    const std::shared_ptr<Dictionary>& ViewParameters() const { return m_parameters; }

private:
    std::string m_viewName;
    std::shared_ptr<Dictionary> m_parameters;
};

// A view that loads its data from parameters. Called before the view becomes visible.
class AppView {
public:
    virtual ~AppView() = default;
    virtual void Show(const std::shared_ptr<Dictionary>& viewParameters) = 0;
};

// The visible top-level view and the history for going back.
class ViewStore : public DispatcherCallback {
public:
    const std::string& ViewName() const { return m_current->ViewName(); }
    const std::shared_ptr<Dictionary>& ViewParameters() const { return m_current->ViewParameters(); }

    void Handle(const Action& action) override;
    std::string CallbackTypeName() const override { return "ViewStore"; }

    Event<> OnChange;

private:
    void NavigateTo(const ViewState& state);
    void GoBack();

    std::vector<std::shared_ptr<const ViewState>> m_history;  // oldest first; the last is the current one
    std::shared_ptr<const ViewState> m_current = std::make_shared<ViewState>("", nullptr);
};

}  // namespace quellbrook
