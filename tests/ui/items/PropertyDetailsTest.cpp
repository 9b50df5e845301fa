#include "ui/items/PropertyDetails.h"

#include "data/BarcodeText.h"
#include "host/BarcodeImage.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/RecordingThumbnails.h"
#include "tests/support/ui/SmallDepartment.h"
#include "tests/support/ui/Widgets.h"
#include "ui/controls/FontIcon.h"
#include "ui/controls/Label.h"
#include "ui/controls/PictureBox.h"
#include "ui/platform/Pictures.h"
#include "ui/platform/Twips.h"

#include <QLocale>
#include <QScrollArea>
#include <QScrollBar>

namespace quellbrook::testing {
namespace {

class PropertyDetailsTest : public SmallDepartment {
protected:
    PropertyDetailsTest() {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        HostServices::Current().SetThumbnails(m_thumbnails);
        m_environment->loadPicture = [this](const std::string&) { return m_picture; };
        m_window.resize(1200, 600);
        m_details = new PropertyDetails(&m_window);
        m_details->Move(0, 0, ToTwips(1200), ToTwips(600));
        ShowActive(m_window);
    }
    ~PropertyDetailsTest() override {
        QLocale::setDefault(QLocale::system());
        HostServices::Current().SetThumbnails(nullptr);
        HostServices::Current().SetFormats({});
    }

    StoredItemRef ItemOf(const PropertyFields& fields) {
        return FindItem(StoredItemTypes::Property, m_database.AddStored(fields, shelf));
    }
    void Show(const PropertyFields& fields) { m_details->SetItem(ItemOf(fields)); }
    void ShowWithPicture() {
        const StoredItemRef item = ItemOf({});
        m_database.AddAttachment(StoredItemTypes::Property, item->ID(), "/files", "saw.jpg");
        m_details->SetItem(item);
    }

    Control* Named(const char* name) { return Find<Control>(*m_details, name); }
    QString Text(const char* name) { return Find<Label>(*m_details, name)->Caption(); }
    bool IsShown(const char* name) { return Named(name)->isVisible(); }
    QRect PlaceOf(const char* name) {
        const Control* control = Named(name);
        return QRect(control->mapTo(m_details, QPoint()), control->size());
    }
    QScrollArea* Area() { return m_details->findChild<QScrollArea*>(); }

    std::shared_ptr<RecordingThumbnails> m_thumbnails = std::make_shared<RecordingThumbnails>();
    Picture m_picture{400, 200, 1, std::vector<uint32_t>(400 * 200, 0xFF112233)};
    QWidget m_window;
    PropertyDetails* m_details = nullptr;
};

TEST_F(PropertyDetailsTest, EachBlockHasItsIconBesideItsCaption) {
    Show({});
    QStringList names;
    for (const FontIcon* icon : FindAll<FontIcon>(*m_details, "imgIcon")) {
        names += icon->IconName();
        QWidget* block = icon->parentWidget();
        const Label* caption = Find<Label>(*block, "lblCaption");
        EXPECT_LT(icon->Right(), caption->Left());
        EXPECT_EQ(caption->Type(), Theme::Type::StripCaption);
    }
    EXPECT_EQ(names, (QStringList{"basic", "identifiers", "notes"}));
}

TEST_F(PropertyDetailsTest, ShowsTheFields) {
    Show({.CategoryNo = 5,
          .Quantity = 3,
          .PropertyValue = 850,
          .ManufacNbr = "Brandtmoor",
          .ModelNbr = "BX-40",
          .SerialNbr = "4Q17-088213"});
    EXPECT_EQ(Text("lblQuantity"), "3 units");
    EXPECT_EQ(Text("lblValue"), "$850.00");
    EXPECT_EQ(Text("lblCategory"), "Electronics");
    EXPECT_EQ(Text("lblMake"), "Brandtmoor");
    EXPECT_EQ(Text("lblModel"), "BX-40");
    EXPECT_EQ(Text("lblSerialNumber"), "4Q17-088213");
    std::vector<std::string> captions;
    for (const Label* label : FindAll<Label>(*m_details, "lblField"))
        captions.push_back(label->Caption().toStdString());
    EXPECT_EQ(captions, (std::vector<std::string>{"Quantity:", "Value ($):", "Category:", "Manufacturer:", "Model:",
                                                  "Serial #:", "Manufacturer:"}));
    std::vector<std::string> blocks;
    for (const Label* label : FindAll<Label>(*m_details, "lblCaption"))
        blocks.push_back(label->Caption().toStdString());
    EXPECT_EQ(blocks, (std::vector<std::string>{"BASIC INFORMATION", "IDENTIFIERS", "NOTES"}));
    EXPECT_EQ(Text("lblNotes"), "N/A");
}

TEST_F(PropertyDetailsTest, AQuantityIsANumberOfUnits) {
    const struct {
        TaggedValue quantity;
        const char* text;
    } cases[] = {{Null(), "N/A"}, {0, "N/A"}, {1, "1"}, {2, "2 units"}, {1500, "1,500 units"}, {999, "999 units"}};
    for (const auto& [quantity, text] : cases) {
        Show({.Quantity = quantity});
        EXPECT_EQ(Text("lblQuantity"), text);
    }
}

TEST_F(PropertyDetailsTest, AValueIsInTheHostsCurrency) {
    Show({.PropertyValue = Null()});
    EXPECT_EQ(Text("lblValue"), "N/A");
    Show({.PropertyValue = 0});
    EXPECT_EQ(Text("lblValue"), "N/A");
    Show({.PropertyValue = 1234567.5});
    EXPECT_EQ(Text("lblValue"), "$1,234,567.50");
    HostFormats formats;
    formats.currency = "%d EUR";
    HostServices::Current().SetFormats(formats);
    Show({.PropertyValue = 12.25});
    EXPECT_EQ(Text("lblValue"), "12.25 EUR");
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    Show({.PropertyValue = 1234567.5});
    EXPECT_EQ(Text("lblValue"), "1.234.567,50 EUR");
}

TEST_F(PropertyDetailsTest, AnUnknownCategoryIsNotAvailable) {
    Show({.CategoryNo = Null()});
    EXPECT_EQ(Text("lblCategory"), "N/A");
    Show({.CategoryNo = 99});
    EXPECT_EQ(Text("lblCategory"), "N/A");
}

TEST_F(PropertyDetailsTest, IdentifiersThatAreUnknownLeaveNoGap) {
    for (int known = 1; known < 8; ++known) {
        const auto text = [known](int bit) { return known & bit ? TaggedValue("x") : TaggedValue(Null()); };
        Show({.ManufacNbr = text(1), .ModelNbr = text(2), .SerialNbr = text(4)});
        EXPECT_TRUE(IsShown("picMakeInfo")) << known;
        float top = Named("picMake")->Top();
        int lines = 0;
        for (const auto& [name, bit] :
             {std::pair("picMake", 1), std::pair("picModel", 2), std::pair("picSerialNumber", 4)}) {
            EXPECT_EQ(IsShown(name), (known & bit) != 0) << known << name;
            if (!(known & bit)) continue;
            EXPECT_EQ(Named(name)->Top(), top) << known << name;
            top = Named(name)->Bottom();
            ++lines;
        }
        EXPECT_EQ(Named("picMakeInfo")->Height(), top) << known;
        EXPECT_EQ(PlaceOf("picNotes").top(), PlaceOf("picMakeInfo").bottom() + 27) << known;
    }
}

TEST_F(PropertyDetailsTest, WithoutIdentifiersTheirBlockIsGone) {
    Show({.ManufacNbr = "Brandtmoor"});
    Show({});
    EXPECT_FALSE(IsShown("picMakeInfo"));
    EXPECT_EQ(PlaceOf("picNotes").top(), PlaceOf("picBasicInfo").bottom() + 27);
    Show({.SerialNbr = "4Q17"});
    EXPECT_TRUE(IsShown("picMakeInfo"));
}

TEST_F(PropertyDetailsTest, ShowsTheBarcodeOfTheLabelWithItsKey) {
    const StoredItemRef item = ItemOf({});
    m_details->SetItem(item);
    const QImage barcode = ToImage(item->GetBarcodeImage(ToTwips(60)));
    EXPECT_EQ(PlaceOf("imgBarcode").size(), barcode.size());
    EXPECT_EQ(Grab(*Named("imgBarcode")).convertToFormat(QImage::Format_RGB32),
              barcode.convertToFormat(QImage::Format_RGB32));
    const std::string text = MakeBarcodeText("P", item->ID());
    EXPECT_EQ(Text("lblBarcode").toStdString(), text.substr(1, 11));
    EXPECT_NEAR(PlaceOf("lblBarcode").center().x(), PlaceOf("imgBarcode").center().x(), 1);
    EXPECT_GT(PlaceOf("lblBarcode").top(), PlaceOf("imgBarcode").bottom());
    EXPECT_EQ(Named("imgBarcode")->accessibleName().toStdString(), "Barcode " + text.substr(1, 11));
}

TEST_F(PropertyDetailsTest, ShowsThePictureBelowTheBarcode) {
    ShowWithPicture();
    ASSERT_TRUE(IsShown("imgThumbnail"));
    EXPECT_EQ(PlaceOf("imgThumbnail").size(), QSize(300, 150)) << "in proportion";
    EXPECT_EQ(PixelAt(Grab(*Named("imgThumbnail")), QPoint(150, 75)), QColor(0x11, 0x22, 0x33));
    EXPECT_GT(PlaceOf("imgThumbnail").top(), PlaceOf("lblBarcode").bottom());
    EXPECT_FALSE(IsShown("lblNoThumbnail"));
    Show({});
    EXPECT_FALSE(IsShown("imgThumbnail"));
    EXPECT_FALSE(IsShown("lblNoThumbnail"));
}

TEST_F(PropertyDetailsTest, ASmallPictureIsNotEnlarged) {
    m_picture = {20, 10, 1, std::vector<uint32_t>(200, 0xFF112233)};
    ShowWithPicture();
    EXPECT_EQ(PlaceOf("imgThumbnail").size(), QSize(20, 10));
}

TEST_F(PropertyDetailsTest, APictureThatCannotBeReadIsReplacedByTheReason) {
    m_thumbnails->sentence = "The file is missing.";
    ShowWithPicture();
    EXPECT_FALSE(IsShown("imgThumbnail"));
    EXPECT_TRUE(IsShown("lblNoThumbnail"));
    EXPECT_EQ(Text("lblNoThumbnail"), "The file is missing.");
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(PropertyDetailsTest, RefusesNoItem) {
    EXPECT_EQ(RaisedBy([&] { m_details->SetItem(nullptr); }).Number(), ErrorNumber::NullObject);
}

TEST_F(PropertyDetailsTest, ThePicturesAreBesideTheBlocksAndBelowThemInANarrowPage) {
    ShowWithPicture();
    EXPECT_EQ(PlaceOf("picBasicInfo").width(), 560);
    EXPECT_EQ(PlaceOf("imgBarcode").top(), PlaceOf("picBasicInfo").top());
    EXPECT_EQ(PlaceOf("imgBarcode").right() + 1, 1180);
    EXPECT_EQ(PlaceOf("imgThumbnail").center().x(), PlaceOf("imgBarcode").center().x());
    for (const int width : {760, 1000}) {
        m_details->SetWidth(ToTwips(width));
        EXPECT_GT(PlaceOf("imgBarcode").left(), PlaceOf("picBasicInfo").right() + 19) << width;
        EXPECT_LE(PlaceOf("imgBarcode").right(), width - 20) << width;
    }
    m_details->SetWidth(ToTwips(500));
    m_details->SetHeight(ToTwips(400));
    ServeEvents();
    EXPECT_EQ(PlaceOf("imgBarcode").left(), 8);
    EXPECT_GT(PlaceOf("imgBarcode").top(), PlaceOf("picNotes").bottom());
    ASSERT_TRUE(Area()->verticalScrollBar()->isVisible());
    EXPECT_EQ(PlaceOf("picBasicInfo").right() + 21, 500 - Area()->verticalScrollBar()->width());
    Area()->verticalScrollBar()->setValue(Area()->verticalScrollBar()->maximum());
    EXPECT_EQ(PlaceOf("imgThumbnail").bottom() + 21, 400);
}

TEST_F(PropertyDetailsTest, ALongTextEndsAtTheBlock) {
    Show({.ManufacNbr = std::string(10000, 'x'), .SerialNbr = "4Q\n17"});
    const auto* make = Find<Label>(*m_details, "lblMake");
    EXPECT_EQ(make->Right(), Named("picMakeInfo")->Width());
    EXPECT_EQ(Find<Label>(*m_details, "lblSerialNumber")->height(), make->height());
}

TEST_F(PropertyDetailsTest, ALowPageScrollsByKeyboardAndWheel) {
    Show({.ManufacNbr = "Brandtmoor", .ModelNbr = "BX-40", .SerialNbr = "4Q17"});
    EXPECT_EQ(Area()->verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(Area()->focusPolicy(), Qt::NoFocus);
    m_details->SetHeight(ToTwips(200));
    EXPECT_GT(Area()->verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(Area()->focusPolicy(), Qt::StrongFocus);
    EXPECT_EQ(Area()->horizontalScrollBar()->maximum(), 0);
    Area()->setFocus();
    Press(Qt::Key_End);
    Press(Qt::Key_PageDown);
    EXPECT_EQ(Area()->verticalScrollBar()->value(), Area()->verticalScrollBar()->maximum());
    Press(Qt::Key_Home);
    EXPECT_EQ(Area()->verticalScrollBar()->value(), 0);
    Press(Qt::Key_End);
    EXPECT_EQ(Area()->verticalScrollBar()->value(), Area()->verticalScrollBar()->maximum());
    EXPECT_LE(PlaceOf("picNotes").bottom(), 200);
    m_details->SetHeight(ToTwips(600));
    EXPECT_EQ(Area()->verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(PlaceOf("picBasicInfo").top(), 20);
}

TEST_F(PropertyDetailsTest, AnotherItemStartsAtTheTop) {
    m_details->SetHeight(ToTwips(200));
    Show({});
    Area()->verticalScrollBar()->setValue(50);
    Show({});
    EXPECT_EQ(Area()->verticalScrollBar()->value(), 0);
}

TEST_F(PropertyDetailsTest, MarkupIsShownAsPlainText) {
    Show({.ManufacNbr = "<b>x</b> & y"});
    EXPECT_EQ(Text("lblMake"), "<b>x</b> & y");
}

TEST_F(PropertyDetailsTest, AReaderNamesTheFieldOfAValue) {
    Show({.ManufacNbr = "Brandtmoor"});
    EXPECT_EQ(Named("lblMake")->accessibleName(), "Brandtmoor");
    EXPECT_EQ(Named("lblMake")->accessibleDescription(), "Manufacturer:");
}

}  // namespace
}  // namespace quellbrook::testing
