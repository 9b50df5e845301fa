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

// Where everything stands on the form of a message: the rules of its geometry, in twips, without a widget. The form has
// no system frame, so its size is the size of its client area. Fill in the sizes, call Settle, and read the places.
struct ModalLayout {
    float width = 7500;
    float height = 0;
    // The form stays inside these, whatever it has to say.
    float maxWidth = 1e6f;
    float maxHeight = 1e6f;

    Box titlebar, title, close, icon, message, buttonStrip, border;
    std::vector<Box> buttons;
    bool hasPicture = false;

    // How wide the title's text is in one line, and how high it becomes when it has to be broken at a width.
    float titleTextWidth = 0;
    std::function<float(float width)> titleHeight = [](float) { return 0.0f; };
    // The height of the message's text at a width.
    std::function<float(float width)> messageHeight = [](float) { return 0.0f; };

    // What a change of the form's size does: the strips and the frame follow it, then AutoSize.
    void Resize();
    // Sizes the form to its content and centres the content in it.
    void AutoSize();
    // Resize until nothing changes any more: a wider form makes the message lower, a lower one the form.
    void Settle();

    // The message is higher than what is left of the form's greatest height.
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
