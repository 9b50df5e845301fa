#pragma once

#include <functional>
#include <vector>

namespace quellbrook {

// A rectangle in twips.
struct Box {
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;

    float Right() const { return left + width; }
    float Bottom() const { return top + height; }
    bool operator==(const Box&) const = default;
};

// The layout rules of a message form, in twips and without widgets. The form has no system frame, so its size is the
// size of its client area. Set the sizes, call Settle, then read the positions.
struct ModalLayout {
    float width = 7500;
    float height = 0;
    // The form's limits.
    float maxWidth = 1e6f;
    float maxHeight = 1e6f;

    Box titlebar, title, close, icon, message, buttonStrip, border;
    std::vector<Box> buttons;
    bool hasPicture = false;

    // The width of the title in one line, and its height when wrapped at a width.
    float titleTextWidth = 0;
    std::function<float(float width)> titleHeight = [](float) { return 0.0f; };
    // The height of the message's text at a width.
    std::function<float(float width)> messageHeight = [](float) { return 0.0f; };

    // Resizes the strips and the frame to the form's size, then calls AutoSize.
    void Resize();
    // Sizes the form to its content and centers the content in it.
    void AutoSize();
    // Resizes until nothing changes: a wider form makes the message less tall, which makes the form less tall.
    void Settle();

    // Whether the message is too tall for the form's maximum height.
    bool MessageOverflows() const;
    // The band between the title strip and the button strip.
    Box Band() const;

private:
    void FitHeight();
    void CenterInBand(Box& box) const;
    void AlignContent();
    float TitleRoom() const;
    void BreakTitle();
    void FitWidth();
    void CenterButtons();
};

}  // namespace quellbrook
