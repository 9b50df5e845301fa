#pragma once

#include "base/Picture.h"

#include <string>

namespace quellbrook {

// Draws a barcode for the screen: black on white, with quiet zones, each module a whole number of device pixels
// wide and at least two. The width follows from the text.
class BarcodeImage {
public:
    // 1 is Code 128; Error 380 for any other.
    void SetSymbology(int symbology);
    // 0 to 32767 twips; Error 380 for any other.
    void SetHeight(double heightTwips);
    // Twips per device pixel, 1 to 60, 15 at scale factor 1; Error 380 for any other.
    void SetTwipsPerPixel(double value);
    void SetText(const std::string& text) { m_text = text; }

    // At least one pixel high. Error 5 with a sentence for a text that the symbology can't encode.
    Picture GetPicture() const;

private:
    double m_heightTwips = 0;
    double m_twipsPerPixel = 15;
    std::string m_text;
};

}  // namespace quellbrook
