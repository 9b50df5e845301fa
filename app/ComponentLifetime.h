#pragma once

namespace quellbrook {

// Starts the component at construction, in the system's light or dark theme; at destruction clears the host's services
// and shuts the component down.
class ComponentLifetime {
public:
    ComponentLifetime();
    ~ComponentLifetime();
    ComponentLifetime(const ComponentLifetime&) = delete;
    ComponentLifetime& operator=(const ComponentLifetime&) = delete;
};

}  // namespace quellbrook
