#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace quellbrook {

// Numbers of the messages that a key causes.
namespace KeyMessageNumber {
inline constexpr uint32_t Cancelled = 0;
inline constexpr uint32_t KeyDown = 0x100, KeyUp = 0x101, Char = 0x102, DeadChar = 0x103;
inline constexpr uint32_t SysKeyDown = 0x104, SysKeyUp = 0x105, SysChar = 0x106;
}  // namespace KeyMessageNumber

// A message to the focused window. wParam is the key code of a key message or the character code of a character
// message. A handler may change both; setting the number to 0 cancels the message.
struct KeyMessage {
    uint32_t number;
    uint32_t wParam;
};

// Receives every key and character message of the user interface thread before it is dispatched, for its own lifetime.
// A key press is a key-down message and then, if the key has one, a character message; cancelling either one drops the
// press. Each press and release is received once.
class MessageHook {
public:
    virtual ~MessageHook() = default;

    // The hook catches and reports an Error from the handler, and then lets the message through.
    std::function<void(KeyMessage&)> OnMessage;
};

// Creates a hook from the environment; it is active at once. Error 91 if the environment provides none.
std::unique_ptr<MessageHook> MakeMessageHook();

}  // namespace quellbrook
