#include "ui/common/ModalStyle.h"

#include "base/Screen.h"

namespace quellbrook {

namespace {

constexpr int32_t ButtonBits = 15;
constexpr int32_t IconBits = 240;
constexpr int32_t AbortRetryIgnore = 2;

}  // namespace

std::vector<ModalButton> ModalButtons(int32_t style) {
    using namespace MessageAnswer;
    switch (style & ButtonBits) {
    case 1: return {{"OK", Ok}, {"Cancel", Cancel, true}};
    case AbortRetryIgnore: return {{"Abort", Abort}, {"Retry", Retry}, {"Ignore", Ignore, true}};
    case 3: return {{"Yes", Yes}, {"No", No}, {"Cancel", Cancel, true}};
    case 4: return {{"Yes", Yes}, {"No", No, true}};
    case 5: return {{"Retry", Retry}, {"Cancel", Cancel, true}};
    default: return {{"OK", Ok, true}};
    }
}

bool ModalCancelsOnEscape(int32_t style) { return (style & ButtonBits) != AbortRetryIgnore; }

const char* ModalIcon(int32_t style) {
    switch (style & IconBits) {
    case 16: return "error";
    case 32: return "question";
    case 48: return "warning";
    default: return "";
    }
}

}  // namespace quellbrook
