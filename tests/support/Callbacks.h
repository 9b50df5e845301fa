#pragma once

#include "core/ActionTypes.h"
#include "core/Dispatcher.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace quellbrook::testing {

// A callback that runs a test's function.
class FunctionCallback : public DispatcherCallback {
public:
    FunctionCallback(std::string typeName, std::function<void(const Action&)> handle)
        : m_typeName(std::move(typeName)), m_handle(std::move(handle)) {}

    void Handle(const Action& action) override { m_handle(action); }
    std::string CallbackTypeName() const override { return m_typeName; }

private:
    std::string m_typeName;
    std::function<void(const Action&)> m_handle;
};

// Records every action.
class RecordingCallback : public DispatcherCallback {
public:
    void Handle(const Action& action) override { actions.push_back(action); }
    std::string CallbackTypeName() const override { return "RecordingCallback"; }

    std::vector<std::string> Types() const {
        std::vector<std::string> types;
        for (const Action& action : actions) types.push_back(action.ActionType);
        return types;
    }

    // The notifications shown to the user.
    std::vector<std::string> Notices() const {
        std::vector<std::string> notices;
        for (const Action& action : actions)
            if (action.ActionType == ActionTypes::NOTIFY_USER) notices.push_back(ToText(action.Payload));
        return notices;
    }

    std::vector<Action> actions;
};

}  // namespace quellbrook::testing
