#include "ui/items/PropertyDetails.h"

#include "base/Error.h"
#include "base/FormatCount.h"
#include "data/BarcodeText.h"
#include "host/HostServices.h"
#include "ui/controls/FontIcon.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/Line.h"
#include "ui/controls/PictureBox.h"
#include "ui/platform/Pictures.h"
#include "ui/platform/Strings.h"
#include "ui/platform/Twips.h"
#include "ui/style/FocusRing.h"

#include <QKeyEvent>
#include <QLocale>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>
#include <array>

namespace quellbrook {

namespace {

// Pixels.
constexpr int PageLeft = 8, PageMargin = 20, BlockGap = 26, WidestBlock = 560, NarrowestBlock = 320;
constexpr int IconSize = 20, RuleTop = 28, FirstFieldTop = 32, FieldHeight = 28, FieldTop = 4;
constexpr int CaptionLeft = 28, ValueLeft = 160;
constexpr int BarcodeHeight = 60, PictureGap = 4, PictureSize = 300;

const char* const Unknown = "N/A";

bool IsUnknown(const TaggedValue& number) { return number.HasNoValue() || ToDouble(number) == 0; }

std::string QuantityText(const TaggedValue& quantity) {
    if (IsUnknown(quantity)) return Unknown;
    const double count = ToDouble(quantity);
    return FormatNumber(count) + (count > 1 ? " units" : "");
}

QString ValueText(const TaggedValue& value) {
    if (IsUnknown(value)) return Unknown;
    return ToQString(HostServices::Current().Formats().currency)
        .replace("%d", QLocale().toString(ToDouble(value), 'f', 2));
}

// The barcode's text without its start and end character.
QString KeyText(const StoredItem& item) {
    const std::string text = MakeBarcodeText(item.ItemTypeCode(), item.ID());
    return ToQString(std::string_view(text).substr(1, text.size() - 2));
}

}  // namespace

PropertyDetails::PropertyDetails(QWidget* parent)
    : Control(parent), m_area(new QScrollArea(this)), m_page(new GroupBox) {
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_area->setFocusPolicy(Qt::NoFocus);
    m_area->setAccessibleName(tr("Details"));
    m_area->installEventFilter(this);
    FocusRing::Show(m_area);
    m_page->setObjectName("page");
    m_page->SetBackColor(Theme::Color::Window);
    BuildBlocks();
    BuildPictures();
    m_area->setWidget(m_page);
}

void PropertyDetails::BuildBlocks() {
    m_basicInfo = MakeBlock("picBasicInfo", "BASIC INFORMATION", "basic");
    m_quantity = AddField(m_basicInfo, "Quantity:", "lblQuantity", "picQuantity");
    m_value = AddField(m_basicInfo, "Value ($):", "lblValue", "picValue");
    m_category = AddField(m_basicInfo, "Category:", "lblCategory", "picCategory");
    m_makeInfo = MakeBlock("picMakeInfo", "IDENTIFIERS", "identifiers");
    AddField(m_makeInfo, "Manufacturer:", "lblMake", "picMake");
    AddField(m_makeInfo, "Model:", "lblModel", "picModel");
    AddField(m_makeInfo, "Serial #:", "lblSerialNumber", "picSerialNumber");
    m_notes = MakeBlock("picNotes", "NOTES", "notes");
    AddField(m_notes, "Manufacturer:", "lblNotes", "picNotesLine")->SetCaption(Unknown);
}

PropertyDetails::Block PropertyDetails::MakeBlock(const char* name, const char* caption, const char* iconName) {
    Block block;
    block.box = new GroupBox(m_page);
    block.box->setObjectName(name);
    auto* icon = new FontIcon(block.box);
    icon->setObjectName("imgIcon");
    icon->SetIcon(iconName, IconSize);
    icon->SetForeColor(Theme::Color::GrayText);
    auto* label = new Label(block.box);
    label->setObjectName("lblCaption");
    label->SetType(Theme::Type::StripCaption);
    label->SetForeColor(Theme::Color::GrayText);
    label->SetCaption(caption);
    label->SetLeft(ToTwips(CaptionLeft));
    block.rule = new Line(block.box);
    block.rule->setObjectName("lnCaption");
    block.rule->Move(0, ToTwips(RuleTop), 0, TwipsPerPixel);
    return block;
}

Label* PropertyDetails::AddField(Block& block, const char* caption, const char* valueName, const char* lineName) {
    auto* line = new GroupBox(block.box);
    line->setObjectName(lineName);
    line->Move(0, ToTwips(FirstFieldTop + FieldHeight * static_cast<int>(block.fields.size())));
    line->SetHeight(ToTwips(FieldHeight));
    auto* label = new Label(line);
    label->setObjectName("lblField");
    label->SetForeColor(Theme::Color::GrayText);
    label->SetCaption(caption);
    label->Move(ToTwips(CaptionLeft), ToTwips(FieldTop));
    auto* value = new Label(line);
    value->setObjectName(valueName);
    value->SetOneLine(true);
    value->setAccessibleDescription(caption);
    value->Move(ToTwips(ValueLeft), ToTwips(FieldTop));
    block.fields.push_back({line, value});
    return value;
}

void PropertyDetails::BuildPictures() {
    m_barcode = new PictureBox(m_page);
    m_barcode->setObjectName("imgBarcode");
    m_key = new Label(m_page);
    m_key->setObjectName("lblBarcode");
    m_key->SetType(Theme::Type::Hint);
    m_key->SetForeColor(Theme::Color::GrayText);
    m_key->SetTextAlignment(Qt::AlignHCenter);
    m_thumbnail = new PictureBox(m_page);
    m_thumbnail->setObjectName("imgThumbnail");
    m_noThumbnail = new Label(m_page);
    m_noThumbnail->setObjectName("lblNoThumbnail");
    m_noThumbnail->SetForeColor(Theme::Color::GrayText);
    m_noThumbnail->SetWordWrap(true);
    m_noThumbnail->SetWidth(ToTwips(PictureSize));
}

void PropertyDetails::SetItem(const StoredItemRef& item) {
    Require(item, "propertyDetails.SetItem");
    m_quantity->SetCaption(ToQString(QuantityText(item->Quantity())));
    m_value->SetCaption(ValueText(item->Value()));
    const std::string category = item->CategoryName();
    m_category->SetCaption(category.empty() ? QString(Unknown) : ToQString(category));
    ShowIdentifiers(*item);
    ShowPictures(*item);
    m_area->verticalScrollBar()->setValue(0);
    Layout();
}

void PropertyDetails::ShowIdentifiers(const StoredItem& item) {
    const std::array texts = {item.Make(), item.Model(), item.SerialNumber()};
    float top = m_makeInfo.fields.front().line->Top();
    for (size_t i = 0; i < texts.size(); ++i) {
        const Field& field = m_makeInfo.fields[i];
        field.value->SetCaption(ToQString(texts[i]));
        field.line->setVisible(!texts[i].empty());
        field.line->SetTop(top);
        if (field.line->IsShown()) top += field.line->Height();
    }
    m_makeInfo.box->setVisible(std::any_of(texts.begin(), texts.end(), [](const auto& text) { return !text.empty(); }));
}

void PropertyDetails::ShowPictures(const StoredItem& item) {
    m_barcode->SetImage(ToImage(item.GetBarcodeImage(ToTwips(BarcodeHeight))));
    m_key->SetCaption(KeyText(item));
    m_barcode->setAccessibleName(tr("Barcode %1").arg(m_key->Caption()));
    m_thumbnail->setAccessibleName(tr("Picture of %1").arg(ToQString(item.DisplayID())));
    std::optional<Picture> picture;
    std::string failure;
    try {
        picture = item.Thumbnail();
    } catch (...) {
        failure = CurrentError().Description();
    }
    m_thumbnail->SetImage(picture ? ToImage(*picture) : QImage(), QSize(PictureSize, PictureSize));
    m_thumbnail->setVisible(picture.has_value());
    m_noThumbnail->SetCaption(ToQString(failure));
    m_noThumbnail->setVisible(!failure.empty());
}

void PropertyDetails::Layout() {
    m_area->setGeometry(rect());
    int width = m_area->width();
    int height = LayoutPage(width);
    const bool overflows = height > m_area->height();
    if (overflows) {
        width -= m_area->verticalScrollBar()->sizeHint().width();
        height = LayoutPage(width);
    }
    m_page->Move(m_page->Left(), m_page->Top(), ToTwips(width), ToTwips(std::max(height, m_area->height())));
    m_area->setFocusPolicy(overflows ? Qt::StrongFocus : Qt::NoFocus);
}

// Returns the height of the page.
int PropertyDetails::LayoutPage(int width) {
    const int picturesWidth = std::max(m_barcode->width(), PictureSize);
    const int beside = width - PageLeft - picturesWidth - 2 * PageMargin;
    const bool arePicturesBeside = beside >= NarrowestBlock;
    const int blocksBottom =
        PlaceBlocks(std::clamp(arePicturesBeside ? beside : width - PageLeft - PageMargin, 0, WidestBlock));
    const int picturesBottom = arePicturesBeside ? PlacePictures(width - PageMargin - picturesWidth, PageMargin)
                                                 : PlacePictures(PageLeft, blocksBottom);
    return std::max(blocksBottom, picturesBottom);
}

// Returns the top for what follows.
int PropertyDetails::PlaceBlocks(int width) {
    int top = PageMargin;
    for (const Block* each : {&m_basicInfo, &m_makeInfo, &m_notes}) {
        const Block& block = *each;
        if (!block.box->IsShown()) continue;
        int fields = 0;
        for (const Field& field : block.fields) {
            if (field.line->IsShown()) ++fields;
            field.line->SetWidth(ToTwips(width));
            field.value->SetWidth(
                ToTwips(std::clamp(width - ValueLeft, 0, std::max(0, field.value->sizeHint().width()))));
        }
        const int height = FirstFieldTop + FieldHeight * fields;
        block.box->Move(ToTwips(PageLeft), ToTwips(top), ToTwips(width), ToTwips(height));
        block.rule->SetWidth(ToTwips(width));
        top += height + BlockGap;
    }
    return top;
}

// Returns the top for what follows.
int PropertyDetails::PlacePictures(int left, int top) {
    m_barcode->Move(ToTwips(left), ToTwips(top));
    const auto center = [this](Control& control, float at) {
        control.Move(m_barcode->Left() + (m_barcode->Width() - control.Width()) / 2, at);
    };
    center(*m_key, m_barcode->Bottom() + ToTwips(PictureGap));
    center(*m_thumbnail, m_key->Bottom() + ToTwips(PageMargin));
    center(*m_noThumbnail, m_thumbnail->Top());
    const float bottom = m_thumbnail->IsShown()     ? m_thumbnail->Bottom()
                         : m_noThumbnail->IsShown() ? m_noThumbnail->Bottom()
                                                    : m_key->Bottom();
    return ToPixels(bottom) + PageMargin;
}

// The scroll area takes every arrow key.
bool PropertyDetails::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return Control::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    QScrollBar* bar = m_area->verticalScrollBar();
    if (key->modifiers() & Qt::AltModifier)
        event->ignore();
    else if (key->key() == Qt::Key_Home)
        bar->setValue(bar->minimum());
    else if (key->key() == Qt::Key_End)
        bar->setValue(bar->maximum());
    else
        return Control::eventFilter(watched, event);
    return true;
}

}  // namespace quellbrook
