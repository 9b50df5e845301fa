#include "ui/common/ModalLayout.h"

#include "ui/platform/Twips.h"

#include <algorithm>

namespace quellbrook {

namespace {

constexpr float Margin = 360;
constexpr float MessagePadding = 720;
constexpr float TitleGap = 720;
constexpr float ButtonGap = 135;
constexpr float Lift = 8 * TwipsPerPixel;
constexpr float Pixel = TwipsPerPixel;
constexpr float TitlePadding = 360;
constexpr int MaxRounds = 8;

}  // namespace

void ModalLayout::Resize() {
    titlebar = {Pixel, Pixel, width - 2 * Pixel, titlebar.height};
    buttonStrip = {Pixel, height - buttonStrip.height - Pixel, width - 2 * Pixel, buttonStrip.height};
    border = {0, 0, width, height};
    AutoSize();
}

void ModalLayout::AutoSize() {
    FitHeight();
    CenterInBand(message);
    CenterInBand(icon);
    AlignContent();
    BreakTitle();
    FitWidth();
    close.left = width - close.width - Margin;
    message.width = width - message.left - Margin;
    message.height = messageHeight(message.width);
    title.width = std::min(message.width, TitleRoom());
    CenterButtons();
}

void ModalLayout::Settle() {
    for (int round = 0; round < MaxRounds; ++round) {
        const ModalLayout before = *this;
        Resize();
        const bool settled = before.width == width && before.height == height && before.message == message &&
                             before.buttonStrip == buttonStrip && before.titlebar == titlebar && before.icon == icon;
        if (settled) return;
    }
}

bool ModalLayout::MessageOverflows() const { return message.height > Band().height; }

Box ModalLayout::Band() const { return {0, titlebar.height, width, buttonStrip.top - titlebar.height}; }

void ModalLayout::FitHeight() {
    const float body = std::max(message.height + MessagePadding, icon.height + Margin);
    height = std::min(maxHeight, buttonStrip.height + titlebar.height + body);
}

void ModalLayout::CenterInBand(Box& box) const {
    const Box band = Band();
    box.top = band.height / 2 + band.top - box.height / 2 - Lift;
}

void ModalLayout::AlignContent() {
    icon.left = Margin;
    message.left = hasPicture ? icon.Right() + Margin : Margin;
    title.left = message.left;
}

float ModalLayout::TitleRoom() const { return maxWidth - close.width - title.left - TitleGap - Margin; }

// A title that does not fit in one line of the widest form wraps.
void ModalLayout::BreakTitle() {
    if (titleTextWidth <= TitleRoom()) return;
    title.height = titleHeight(TitleRoom());
    titlebar.height = std::max(titlebar.height, title.height + TitlePadding);
    title.top = (titlebar.height - title.height) / 2;
}

// A long title widens the form; a short one never narrows it.
void ModalLayout::FitWidth() {
    const float needed = close.width + title.left + titleTextWidth + TitleGap + Margin;
    width = std::min(maxWidth, std::max(width, needed));
}

void ModalLayout::CenterButtons() {
    if (buttons.empty()) return;
    float left = 0;
    for (Box& button : buttons) {
        button.left = left;
        left = button.Right() + ButtonGap;
    }
    const float shift = width / 2 - buttons.back().Right() / 2;
    for (Box& button : buttons) button.left += shift;
}

}  // namespace quellbrook
