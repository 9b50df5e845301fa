#pragma once

#include "base/Picture.h"

#include <string>

namespace quellbrook {

// Draws a barcode for the screen: black on white, each module a whole number of device pixels wide and at least two,
// with its quiet zones. The width follows from the text.
class BarcodeImage {
public:
    // 1: Code 128. Any other is Error 380.
    void SetSymbology(int symbology);
    // 0 to 32767 twips; any other is Error 380.
    void SetHeight(double heightTwips);
    // Twips to a device pixel, 15 at scale factor 1; 1 to 60, any other is Error 380.
    void SetTwipsPerPixel(double value);
    void SetText(const std::string& text) { m_text = text; }

    // At least one pixel high. Error 5 with a sentence for a text that the symbology can't hold.
    Picture GetPicture() const;

private:
    double m_heightTwips = 0;
    double m_twipsPerPixel = 15;
    std::string m_text;
};

}  // namespace quellbrook
