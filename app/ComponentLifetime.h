#pragma once

namespace quellbrook {

// Its constructor starts the component in the system's light or dark theme. Its destructor clears the host's services
// and shuts the component down.
class ComponentLifetime {
public:
    ComponentLifetime();
    ~ComponentLifetime();
    ComponentLifetime(const ComponentLifetime&) = delete;
    ComponentLifetime& operator=(const ComponentLifetime&) = delete;
};

}  // namespace quellbrook
