#pragma once

#include <QWidget>

class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace quellbrook {

class GuideBrowser;

// The user guide in a window of its own: the contents beside the text. Ctrl+F searches, Esc closes. The program does
// not stay open for it.
class GuideWindow : public QWidget {
    Q_OBJECT

public:
    GuideWindow();

    // Shows the window, or brings it to the front.
    void Open();

private:
    QWidget* MakeContents();
    void AddText(const QString& file);
    void Search();

    QLineEdit* m_search = nullptr;
    QTreeWidget* m_contents = nullptr;
    GuideBrowser* m_text = nullptr;
};

}  // namespace quellbrook
