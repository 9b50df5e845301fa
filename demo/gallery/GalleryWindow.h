#pragma once

#include <QWidget>

#include <optional>
#include <string>

class QScrollArea;

namespace quellbrook {
class FlatButton;
}

namespace quellbrook::gallery {

// A window with every control in its states, below a strip with a switch ("switchPalette") between light and dark.
// Needs neither database nor session.
class GalleryWindow : public QWidget {
    Q_OBJECT

public:
    GalleryWindow();

    bool IsDark() const;
    // The palette of the whole application, with all pictures taken anew.
    void SetDark(bool dark);

    // Writes all of it, at a width of 1280 pixels, as light.png and dark.png into this directory, which is made where
    // it does not stand. The window is not to be seen on a screen after that. Error 5 with a sentence.
    void WritePictures(const QString& directory);

private:
    QWidget* MakeStrip();
    QWidget* MakePage();
    void RetakePictures();

    FlatButton* m_switch = nullptr;
    QScrollArea* m_scroll;
};

// Shows the gallery until it is closed, or only writes its pictures into a directory. Returns the exit code.
int RunGallery(const std::optional<std::string>& pictureDirectory);

}  // namespace quellbrook::gallery
