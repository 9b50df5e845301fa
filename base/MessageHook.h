#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace quellbrook {

// Numbers of the messages that a key gives rise to.
namespace KeyMessageNumber {
inline constexpr uint32_t Cancelled = 0;
inline constexpr uint32_t KeyDown = 0x100, KeyUp = 0x101, Char = 0x102, DeadChar = 0x103;
inline constexpr uint32_t SysKeyDown = 0x104, SysKeyUp = 0x105, SysChar = 0x106;
}  // namespace KeyMessageNumber

// One message on its way to the focused window. wParam is the key's code for the key messages and the character's code
// for the character messages. A handler may rewrite both; the number 0 cancels the message.
struct KeyMessage {
    uint32_t number;
    uint32_t wParam;
};

// Sees every key and character message of the user interface thread before it is dispatched, as long as it lives. One
// press of a key is a key-down message and then, where the key has one, a character message; the press is swallowed
// when either is cancelled. Each press and release is seen once.
class MessageHook {
public:
    virtual ~MessageHook() = default;

    // An Error that leaves it is caught and reported by the hook; the message then passes.
    std::function<void(KeyMessage&)> OnMessage;
};

// A new hook of the environment, active at once. Error 91 if it has none.
std::unique_ptr<MessageHook> MakeMessageHook();

}  // namespace quellbrook
