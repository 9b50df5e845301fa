#pragma once

#include <cstdint>
#include <vector>

namespace quellbrook {

// The parts of a message style.

struct ModalButton {
    const char* caption;
    int32_t result;
    bool isCancel = false;  // the close control gives the same result
};

// The buttons from left to right, by the low four bits.
std::vector<ModalButton> ModalButtons(int32_t style);
// Whether Esc closes the form. False if every button is a decision.
bool ModalCancelsOnEscape(int32_t style);
// "error", "question", "warning", or the empty text, by the next four bits.
const char* ModalIcon(int32_t style);

}  // namespace quellbrook
