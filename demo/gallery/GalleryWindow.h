#pragma once

#include <QWidget>

#include <optional>
#include <string>

class QScrollArea;

namespace quellbrook {
class FlatButton;
}

namespace quellbrook::gallery {

// Shows every control in all its states, below a strip with a switch ("switchPalette") between light and dark. Does not
// need a database or a session.
class GalleryWindow : public QWidget {
    Q_OBJECT

public:
    GalleryWindow();

    bool IsDark() const;
    // Changes the palette of the application and takes all pictures again.
    void SetDark(bool dark);

    // Writes the whole page, 1280 pixels wide, as light.png and dark.png into the directory, and creates it if
    // needed. The window cannot be shown on a screen afterwards. Error 5 with a sentence.
    void WritePictures(const QString& directory);

private:
    QWidget* MakeStrip();
    QWidget* MakePage();
    void RetakePictures();

    FlatButton* m_switch = nullptr;
    QScrollArea* m_scroll;
};

// Shows the gallery until it is closed, or only writes its pictures to a directory. Returns the exit code.
int RunGallery(const std::optional<std::string>& pictureDirectory);

}  // namespace quellbrook::gallery
