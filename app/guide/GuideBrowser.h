#pragma once

#include <QTextBrowser>

#include <vector>

namespace quellbrook {

// A heading of a text of the guide. The address is what a link to it contains, and the level is 1 for the text's title.
struct GuideHeading {
    QString caption;
    QUrl address;
    int level;
};

// Shows a text of the guide: Markdown with headings as anchors, in the colors of the palette. Links to addresses
// outside the guide are passed to the desktop.
class GuideBrowser : public QTextBrowser {
    Q_OBJECT

public:
    explicit GuideBrowser(QWidget* parent = nullptr);

    // The headings of a text, in its order. Empty if there is no such text.
    static std::vector<GuideHeading> HeadingsOf(const QString& file);
    static QUrl AddressOf(const QString& file);

    // Selects the next place that contains the text, from the top again after the last one. Returns false if there is
    // none.
    bool FindNext(const QString& text);

protected:
    void doSetSource(const QUrl& address, QTextDocument::ResourceType type) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void FormatText();
    void ApplyColors();
    void LayOutAgain();
    void FollowLink(const QUrl& address);
};

}  // namespace quellbrook
