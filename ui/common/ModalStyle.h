#pragma once

#include <cstdint>
#include <vector>

namespace quellbrook {

// What the style of a message asks for.

struct ModalButton {
    const char* caption;
    int32_t result;
    bool isCancel = false;  // the close control gives the same result
};

// The buttons from left to right, by the low four bits.
std::vector<ModalButton> ModalButtons(int32_t style);
// Whether Esc closes the form; not where every way on is a decision of its own.
bool ModalCancelsOnEscape(int32_t style);
// "error", "question", "warning", or the empty text, by the next four bits.
const char* ModalIcon(int32_t style);

}  // namespace quellbrook
