#include "base/Error.h"
#include "base/Screen.h"
#include "data/BarcodeText.h"
#include "data/StorageLocation.h"
#include "data/StoredItem.h"
#include "host/BarcodeImage.h"
#include "host/HostServices.h"
#include "host/LabelEngine.h"

namespace quellbrook {

namespace {

constexpr const char* LocationTemplate = "Files\\Data\\location.labl";
constexpr const char* EvidenceTemplate = "Files\\Data\\evidence.labl";
constexpr int Code128 = 1;

BarcodeLabel ReadTemplate(const char* name) {
    return GetLabelEngine().Parse(HostServices::Current().Files().ReadFile(name));
}

}  // namespace

void StorageLocation::PrintBarcodeLabel() const {
    if (IsRoot()) {
        Raise(ErrorNumber::General, "StorageLocation.PrintBarcodeLabel",
              "Cannot print a barcode label for this location because it is not an actual location.");
    }
    try {
        BarcodeLabel label = ReadTemplate(LocationTemplate);
        label.SetField("location_barcode", MakeBarcodeText("L", ID()));
        label.SetField("location", FullPath(" > ", false));
        label.SetField("agency_name", HostServices::Current().Session().AgencyName());
        label.Print();
    } catch (...) {
        Raise(ErrorNumber::General, "StorageLocation.PrintBarcodeLabel",
              "Error printing barcode label for location '" + Name() + "': " + CurrentError().Description());
    }
}

void StoredItem::PrintBarcodeLabel() const {
    try {
        BarcodeLabel label = ReadTemplate(EvidenceTemplate);
        label.SetField("barcode", MakeBarcodeText(ItemTypeCode(), ID()));
        label.SetField("property_id", DisplayID());
        label.SetField("category", CategoryName());
        label.SetField("description", Description());
        label.SetField("agency_name", HostServices::Current().Session().AgencyName());
        label.Print();
    } catch (...) {
        const std::string kind = m_itemType == StoredItemTypes::Property ? "property" : "vehicle";
        Raise(ErrorNumber::General, "StoredItem.PrintBarcodeLabel",
              "Error printing barcode label for " + kind + " '" + DisplayID() + "': " + CurrentError().Description());
    }
}

Picture StoredItem::GetBarcodeImage(double heightTwips) const {
    BarcodeImage image;
    image.SetSymbology(Code128);
    image.SetHeight(heightTwips);
    image.SetTwipsPerPixel(GetScreen().TwipsPerPixelY());
    image.SetText(MakeBarcodeText(ItemTypeCode(), ID()));
    return image.GetPicture();
}

}  // namespace quellbrook
