#include "data/BarcodeText.h"
#include "data/StorageLocationStatic.h"
#include "host/BarcodeImage.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/Items.h"
#include "tests/support/LabelServices.h"
#include "tests/support/RaisedBy.h"

#include <gmock/gmock.h>

#include <stdexcept>

namespace quellbrook::testing {
namespace {

class BarcodeLabelsTest : public DatabaseTest {
protected:
    StorageLocationRef AddLocation(const std::string& name, int32_t parent = 0) {
        const int32_t id = m_database.AddLocation(name, StorageLocationTypes::Internal, parent);
        HostLocationData::Discard();
        return GetStorageLocationStatic().FindByID(id);
    }

    StoredItemRef AddProperty() {
        m_database.AddCode(31, 7, "Tools");
        const int32_t shelf = m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
        const PropertyFields saw{.PropertyID = "26-17", .Description = "a <b>saw</b>", .CategoryNo = 7};
        return FindItem(StoredItemTypes::Property, m_database.AddStored(saw, shelf));
    }

    const FilledLabel& OnlyLabel() const {
        EXPECT_EQ(m_labels.printer->labels.size(), 1u);
        return m_labels.printer->labels.at(0);
    }

    LabelServices m_labels;
};

TEST_F(BarcodeLabelsTest, ALocationsLabelHasItsBarcodeItsPathAndTheDepartment) {
    const auto room = AddLocation("Room");
    const auto shelf = AddLocation("Shelf", room->ID());
    const auto box = AddLocation("Box", shelf->ID());
    box->PrintBarcodeLabel();
    EXPECT_EQ(ValueAt(OnlyLabel(), 0), MakeBarcodeText("L", box->ID()));
    EXPECT_EQ(ValueAt(OnlyLabel(), 10), "Room > Shelf > Box") << "without the name of the root";
    EXPECT_EQ(ValueAt(OnlyLabel(), 20), "Harbor Police");
}

TEST_F(BarcodeLabelsTest, AnItemsLabelHasItsFields) {
    const StoredItemRef item = AddProperty();
    item->PrintBarcodeLabel();
    EXPECT_EQ(ValueAt(OnlyLabel(), 0), MakeBarcodeText("P", item->ID()));
    EXPECT_EQ(ValueAt(OnlyLabel(), 10), "26-17");
    EXPECT_EQ(ValueAt(OnlyLabel(), 20), "Tools");
    EXPECT_EQ(ValueAt(OnlyLabel(), 30), "a <b>saw</b>");
    EXPECT_EQ(ValueAt(OnlyLabel(), 40), "Harbor Police");
}

TEST_F(BarcodeLabelsTest, AVehiclesLabelUsesTheSameTemplate) {
    const auto vehicle = MakeItem(4711, StoredItemTypes::vehicle, Null(), "KTR4821 (OR)");
    vehicle->PrintBarcodeLabel();
    EXPECT_EQ(ValueAt(OnlyLabel(), 0), "\x02V0000004711\x03");
    EXPECT_EQ(ValueAt(OnlyLabel(), 10), "KTR4821 (OR)");
    EXPECT_EQ(ValueAt(OnlyLabel(), 20), "") << "no category";
}

TEST_F(BarcodeLabelsTest, ThePrintedLabelAndThePictureHaveTheSameText) {
    const StoredItemRef item = AddProperty();
    item->PrintBarcodeLabel();
    BarcodeImage image;
    image.SetSymbology(1);
    image.SetHeight(600);
    image.SetText(ValueAt(OnlyLabel(), 0));
    EXPECT_EQ(item->GetBarcodeImage(600), image.GetPicture());
}

TEST_F(BarcodeLabelsTest, ThePictureIsDrawnForTheDisplay) {
    m_screen.SetTwipsPerPixelY(7.5);
    const Picture picture = MakeItem(1)->GetBarcodeImage(600);
    EXPECT_EQ(picture.scale, 2);
    EXPECT_EQ(picture.height, 80);
}

TEST_F(BarcodeLabelsTest, ARootHasNoLabel) {
    const Error error =
        RaisedBy([] { GetStorageLocationStatic().GetRoot(StorageLocationTypes::Internal)->PrintBarcodeLabel(); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(error.Description(),
              "Cannot print a barcode label for this location because it is not an actual location.");
    EXPECT_TRUE(m_labels.printer->labels.empty());
}

TEST_F(BarcodeLabelsTest, ADeletedLocationStillPrints) {
    const auto room = AddLocation("Room");
    room->Delete();
    ASSERT_TRUE(room->IsDeleted());
    room->PrintBarcodeLabel();
    EXPECT_EQ(ValueAt(OnlyLabel(), 0), MakeBarcodeText("L", room->ID()));
}

TEST_F(BarcodeLabelsTest, AFailureNamesTheLocation) {
    const auto room = AddLocation("Room \"1\"");
    const std::string before = "Error printing barcode label for location 'Room \"1\"': ";
    m_labels.printer->refusal = "Out of labels.";
    EXPECT_EQ(RaisedBy([&] { room->PrintBarcodeLabel(); }).Description(), before + "Out of labels.");
    m_labels.files->files.clear();
    const Error missing = RaisedBy([&] { room->PrintBarcodeLabel(); });
    EXPECT_EQ(missing.Number(), ErrorNumber::General);
    EXPECT_EQ(missing.Description(), before + "The file 'Files\\Data\\location.labl' can't be found.");
    HostServices::Current().SetFiles(nullptr);
    EXPECT_EQ(RaisedBy([&] { room->PrintBarcodeLabel(); }).Description(),
              before + "The host has no folder for its files.");
}

TEST_F(BarcodeLabelsTest, AFailureNamesTheItemAndItsKind) {
    const auto property = MakeItem(1, StoredItemTypes::Property, Null(), "26-17");
    const auto vehicle = MakeItem(1, StoredItemTypes::vehicle);
    m_labels.printer->refusal = "Out of labels.";
    EXPECT_EQ(RaisedBy([&] { property->PrintBarcodeLabel(); }).Description(),
              "Error printing barcode label for property '26-17': Out of labels.");
    EXPECT_EQ(RaisedBy([&] { vehicle->PrintBarcodeLabel(); }).Description(),
              "Error printing barcode label for vehicle '<missing ID>': Out of labels.");
    m_labels.files->files["Files\\Data\\evidence.labl"] = "<svg";
    EXPECT_THAT(RaisedBy([&] { property->PrintBarcodeLabel(); }).Description(),
                ::testing::StartsWith("Error printing barcode label for property '26-17': The label template is not "
                                      "well-formed: "));
    HostServices::Current().SetPrinter(nullptr);
    m_labels.files->files["Files\\Data\\evidence.labl"] = LabelServices::TemplateOf({"property_id"}, "barcode");
    EXPECT_EQ(RaisedBy([&] { property->PrintBarcodeLabel(); }).Description(),
              "Error printing barcode label for property '26-17': No label printer has been chosen.");
}

TEST_F(BarcodeLabelsTest, AnyOtherExceptionOfTheHostNamesWhatWasToBePrinted) {
    struct BrokenPrinter : LabelPrinter {
        void Print(const FilledLabel&) override { throw std::runtime_error("The spooler has crashed."); }
        std::string Destination() const override { return ""; }
    };
    HostServices::Current().SetPrinter(std::make_shared<BrokenPrinter>());
    const auto room = AddLocation("Room");
    EXPECT_EQ(RaisedBy([&] { room->PrintBarcodeLabel(); }).Description(),
              "Error printing barcode label for location 'Room': The spooler has crashed.");
    const auto item = MakeItem(1, StoredItemTypes::Property, Null(), "26-17");
    EXPECT_EQ(RaisedBy([&] { item->PrintBarcodeLabel(); }).Description(),
              "Error printing barcode label for property '26-17': The spooler has crashed.");
}

TEST_F(BarcodeLabelsTest, AnUnknownKindOfItemHasNoPicture) {
    for (const int32_t kind : {3, 0, -1}) {
        const auto item = MakeItem(1, static_cast<StoredItemTypes>(kind));
        const Error error = RaisedBy([&] { item->GetBarcodeImage(600); });
        EXPECT_EQ(error.Number(), ErrorNumber::General);
        EXPECT_EQ(error.Description(), "Invalid item type '" + std::to_string(kind) + "'");
    }
}

}  // namespace
}  // namespace quellbrook::testing
