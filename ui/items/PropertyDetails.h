#pragma once

#include "data/StoredItem.h"
#include "ui/controls/Control.h"

#include <vector>

class QScrollArea;

namespace quellbrook {

class GroupBox;
class Label;
class Line;
class PictureBox;

// The details of one piece of property: its fields in blocks, without those that are unknown, and beside or below them
// its barcode and its picture. Scrolls if it is too low.
class PropertyDetails : public Control {
    Q_OBJECT

public:
    explicit PropertyDetails(QWidget* parent = nullptr);
    std::string TypeName() const override { return "propertyDetails"; }

    // Error 91 for null. If the picture cannot be read, shows the reason.
    void SetItem(const StoredItemRef& item);

protected:
    void Layout() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Field {
        GroupBox* line = nullptr;
        Label* value = nullptr;
    };
    struct Block {
        GroupBox* box = nullptr;
        Line* rule = nullptr;
        std::vector<Field> fields;
    };

    Block MakeBlock(const char* name, const char* caption, const char* iconName);
    Label* AddField(Block& block, const char* caption, const char* valueName, const char* lineName);
    void BuildBlocks();
    void BuildPictures();
    void ShowIdentifiers(const StoredItem& item);
    void ShowPictures(const StoredItem& item);
    int LayoutPage(int width);
    int PlaceBlocks(int width);
    int PlacePictures(int left, int top);

    QScrollArea* m_area;
    GroupBox* m_page;
    Block m_basicInfo, m_makeInfo, m_notes;
    Label* m_quantity = nullptr;
    Label* m_value = nullptr;
    Label* m_category = nullptr;
    PictureBox* m_barcode = nullptr;
    Label* m_key = nullptr;
    PictureBox* m_thumbnail = nullptr;
    Label* m_noThumbnail = nullptr;
};

}  // namespace quellbrook
