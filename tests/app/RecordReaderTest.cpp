#include "access/Permissions.h"
#include "app/records/RecordReader.h"
#include "base/Error.h"
#include "host/HostServices.h"
#include "tests/support/FaultInjectingEngine.h"
#include "tests/support/HostileTexts.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/RecordingThumbnails.h"
#include "tests/support/ui/SmallDepartment.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quellbrook::testing {

namespace {

using ::testing::ElementsAre;

class RecordReaderTest : public SmallDepartment {
protected:
    RecordReaderTest() { HostServices::Current().SetThumbnails(m_thumbnails); }
    ~RecordReaderTest() override { HostServices::Current().SetThumbnails(nullptr); }

    static Record ReadItem(const StoredItemRef& item) {
        return Read(
            {item->ItemType() == StoredItemTypes::Property ? RecordKind::Property : RecordKind::Vehicle, item->ID()});
    }

    static Record Read(const RecordAddress& address) {
        const RecordAnswer answer = ReadRecord(address);
        const auto* refusal = std::get_if<RecordRefusal>(&answer);
        EXPECT_EQ(refusal, nullptr) << (refusal ? refusal->sentence : "");
        return refusal ? Record() : std::get<Record>(answer);
    }

    static std::string RefusalOf(const RecordAddress& address) {
        const RecordAnswer answer = ReadRecord(address);
        const auto* refusal = std::get_if<RecordRefusal>(&answer);
        return refusal ? refusal->sentence : "";
    }

    static std::vector<std::string> IncidentsOf(const Record& record) {
        std::vector<std::string> numbers;
        for (const RecordIncident& incident : record.incidents)
            numbers.push_back(incident.number + "|" + incident.caseNumber + (incident.isSecured ? "|secured" : ""));
        return numbers;
    }

    std::shared_ptr<RecordingThumbnails> m_thumbnails = std::make_shared<RecordingThumbnails>();
};

}  // namespace

TEST_F(RecordReaderTest, PropertyIsReadWithAllItsFields) {
    const int32_t id = m_database.AddProperty({.PropertyID = "2026-0417-03",
                                               .Description = "Laptop computer",
                                               .CategoryNo = 5,
                                               .Quantity = 2.5,
                                               .PropertyValue = 850.0,
                                               .ManufacNbr = "Brandtmoor",
                                               .ModelNbr = "BX-40",
                                               .SerialNbr = "4Q17-088213"});
    m_database.AddCustodyRow(StoredItemTypes::Property, id, shelf);
    const Record record = Read({RecordKind::Property, id});
    EXPECT_EQ(record.identifier, "2026-0417-03");
    EXPECT_EQ(record.description, "Laptop computer");
    EXPECT_EQ(record.category, "Electronics");
    EXPECT_EQ(ToDouble(record.quantity), 2.5);
    EXPECT_EQ(ToDouble(record.value), 850.0);
    EXPECT_EQ(record.make, "Brandtmoor");
    EXPECT_EQ(record.model, "BX-40");
    EXPECT_EQ(record.serialNumber, "4Q17-088213");
    EXPECT_EQ(record.status.caption, "In Storage");
    EXPECT_EQ(record.location, "Property Room > Aisle 3 > Shelf B");
    EXPECT_FALSE(record.hasFinalDisposition);
}

TEST_F(RecordReaderTest, AVehicleIsReadWithAllItsFields) {
    const Record record = ReadItem(AddVehicle("KTR4821", crimeLab));
    EXPECT_EQ(record.identifier, "KTR4821 (OR)");
    EXPECT_EQ(record.description, "2018 Silver Veldra Tarn");
    EXPECT_EQ(record.category, "Passenger Car");
    EXPECT_EQ(record.year, "2018");
    EXPECT_EQ(record.color, "Silver");
    EXPECT_EQ(record.make, "Veldra");
    EXPECT_EQ(record.model, "Tarn");
    EXPECT_EQ(record.status.caption, "Signed Out");
    EXPECT_EQ(record.location, "Crime Lab");
}

TEST_F(RecordReaderTest, MissingValuesAreEmpty) {
    const Record property = Read({RecordKind::Property, m_database.AddProperty({.Quantity = Null()})});
    EXPECT_EQ(property.identifier + property.description + property.category + property.make + property.model +
                  property.serialNumber + property.location + property.finalDisposition + property.dispositionNote,
              "");
    EXPECT_TRUE(property.quantity.HasNoValue());
    EXPECT_TRUE(property.value.HasNoValue());
    const int32_t untagged = m_database.AddVehicle({.RegStateCode = "OR", .ColorCode = "Red"});
    const Record vehicle = Read({RecordKind::Vehicle, untagged});
    EXPECT_EQ(vehicle.identifier, "") << "a state without a number is not a tag";
    EXPECT_EQ(vehicle.description, "Red");
}

TEST_F(RecordReaderTest, PropertyAndVehiclesWithTheSameNumberAreDifferentRecords) {
    const int32_t property = m_database.AddProperty({.PropertyID = "E-1"});
    const int32_t vehicle = m_database.AddVehicle({.RegNumber = "ABC"});
    ASSERT_EQ(property, vehicle);
    EXPECT_EQ(Read({RecordKind::Property, property}).identifier, "E-1");
    EXPECT_EQ(Read({RecordKind::Vehicle, vehicle}).identifier, "ABC");
}

TEST_F(RecordReaderTest, TheStatusFollowsTheLocation) {
    const auto at = [this](const TaggedValue& location) {
        const int32_t id = m_database.AddProperty();
        m_database.AddCustodyRow(StoredItemTypes::Property, id, location);
        return Read({RecordKind::Property, id}).status.caption;
    };
    EXPECT_EQ(at(shelf), "In Storage");
    EXPECT_EQ(at(crimeLab), "Signed Out");
    EXPECT_EQ(at(disposal), "Disposed");
    EXPECT_EQ(at(review), "Needs Review");
    EXPECT_EQ(at(m_database.AddLocation("Unknown", StorageLocationTypes::Unassigned)), "In Uncategorized Location");
    EXPECT_EQ(at(Null()), "Disposed") << "it has a chain of custody but no location";
    EXPECT_EQ(Read({RecordKind::Property, m_database.AddProperty()}).status.caption, "Not in Storage");
}

TEST_F(RecordReaderTest, TheLocationIsThatOfTheCurrentStep) {
    const int32_t id = m_database.AddProperty();
    m_database.AddCustodyRow(StoredItemTypes::Property, id, shelf);
    m_database.AddCustodyRow(StoredItemTypes::Property, id, digitalForensics,
                             {.DateReceived = DateTime::FromParts({2025, 1, 1, 0, 0, 0, 0})});
    EXPECT_EQ(Read({RecordKind::Property, id}).location, "Crime Lab > Digital Forensics");
}

TEST_F(RecordReaderTest, AFinalDispositionIsReadWithItsNote) {
    m_database.AddCode(CodeTable::FinalDispositionStatus, 4, "Returned to Owner");
    const int32_t id = m_database.AddProperty();
    m_database.Execute(
        "UPDATE Property SET HasFinalDisposition = 1, CurrStatusNo = 4, DisposalNote = 'first\r\nsecond'");
    const Record record = Read({RecordKind::Property, id});
    EXPECT_TRUE(record.hasFinalDisposition);
    EXPECT_EQ(record.finalDisposition, "Returned to Owner");
    EXPECT_EQ(record.dispositionNote, "first\r\nsecond");
}

TEST_F(RecordReaderTest, TheWholeChainIsReadNewestFirst) {
    const int32_t id = m_database.AddVehicle();
    m_database.AddCustodyRow(StoredItemTypes::vehicle, id, review,
                             {.DateReceived = DateTime::FromParts({2026, 1, 1, 8, 0, 0, 0})});
    m_database.AddCustodyRow(StoredItemTypes::vehicle, id, shelf,
                             {.ReceivedBy = 11,
                              .ReceivedFrom = 12,
                              .DateReceived = DateTime::FromParts({2026, 3, 1, 8, 0, 0, 0}),
                              .CustodyReasonNo = 1});
    m_database.AddCustodyRow(
        StoredItemTypes::vehicle, id, digitalForensics,
        {.ReceivedBy = 99, .DateReceived = DateTime::FromParts({2026, 2, 1, 8, 0, 0, 0}), .CustodyReasonNo = 2});
    m_database.AddCustodyRow(StoredItemTypes::vehicle, id, Null(), {.DateReceived = Null(), .CustodyReasonNo = 77});
    const Record record = Read({RecordKind::Vehicle, id});
    ASSERT_TRUE(record.custody);
    EXPECT_THAT(*record.custody,
                ElementsAre(CustodyStep{2, DateTime::FromParts({2026, 3, 1, 8, 0, 0, 0}), "Initial storage",
                                        "Kowalczyk, Lena", "Raman, Priya", "Property Room > Aisle 3 > Shelf B"},
                            CustodyStep{3, DateTime::FromParts({2026, 2, 1, 8, 0, 0, 0}), "Laboratory analysis", "",
                                        "Unknown (99)", "Crime Lab > Digital Forensics"},
                            CustodyStep{1, DateTime::FromParts({2026, 1, 1, 8, 0, 0, 0}), "", "", "", "Pending Review"},
                            CustodyStep{4, std::nullopt, "", "", "", ""}));
}

TEST_F(RecordReaderTest, StepsOfOneMomentAreOrderedBySequenceNewestFirst) {
    const int32_t id = m_database.AddProperty();
    for (const int32_t location : {shelf, crimeLab, review})
        m_database.AddCustodyRow(StoredItemTypes::Property, id, location);
    const Record record = Read({RecordKind::Property, id});
    ASSERT_EQ(record.custody->size(), 3u);
    EXPECT_EQ(record.custody->at(0).location, "Pending Review");
    EXPECT_EQ(record.custody->at(2).location, "Property Room > Aisle 3 > Shelf B");
}

TEST_F(RecordReaderTest, ALongChainIsReadCompletely) {
    const int32_t id = m_database.AddProperty();
    for (int i = 0; i < 600; ++i) m_database.AddCustodyRow(StoredItemTypes::Property, id, i % 2 ? shelf : crimeLab);
    EXPECT_EQ(Read({RecordKind::Property, id}).custody->size(), 600u);
}

TEST_F(RecordReaderTest, AUserWithoutTheRightGetsNoChain) {
    const StoredItemRef item = AddProperty("E-1", "Box", shelf);
    m_session->Revoke(GetPermissions().VIEW_CHAIN_OF_CUSTODY());
    const Record record = ReadItem(item);
    EXPECT_FALSE(record.custody);
    EXPECT_EQ(record.location, "Property Room > Aisle 3 > Shelf B");
}

TEST_F(RecordReaderTest, EachKindOfRecordNeedsItsOwnRight) {
    const RecordAddress property{RecordKind::Property, m_database.AddProperty({.PropertyID = "E-1"})};
    const RecordAddress vehicle{RecordKind::Vehicle, m_database.AddVehicle({.RegNumber = "ABC"})};
    m_session->Revoke(GetPermissions().VIEW_PROPERTY());
    EXPECT_EQ(RefusalOf(property), "You do not have the appropriate permissions to view property.");
    EXPECT_EQ(Read(vehicle).identifier, "ABC");
    m_session->Grant(GetPermissions().VIEW_PROPERTY());
    m_session->Revoke(GetPermissions().VIEW_VEHICLE());
    EXPECT_EQ(RefusalOf(vehicle), "You do not have the appropriate permissions to view vehicles.");
    EXPECT_EQ(Read(property).identifier, "E-1");
}

TEST_F(RecordReaderTest, ARefusalDoesNotRevealWhichNumbersExist) {
    const int32_t id = m_database.AddProperty();
    m_session->GrantNothing();
    EXPECT_EQ(RefusalOf({RecordKind::Property, id}), RefusalOf({RecordKind::Property, id + 1}));
}

TEST_F(RecordReaderTest, AnUnknownNumberIsRefused) {
    EXPECT_EQ(RefusalOf({RecordKind::Property, 42}), "There is no property with the number 42.");
    EXPECT_EQ(RefusalOf({RecordKind::Vehicle, 2'147'483'647}), "There is no vehicle with the number 2147483647.");
}

TEST_F(RecordReaderTest, IncidentsAreListedOnceInOrderOfTheirNumbers) {
    const StoredItemRef item = AddProperty("E-1", "Box", shelf);
    const int32_t late = m_database.AddIncident("2026-0417", "C-26-1182");
    m_database.LinkIncident(StoredItemTypes::Property, item->ID(), late);
    m_database.LinkIncident(StoredItemTypes::Property, item->ID(), late);
    LinkIncident(item, "2026-0388", Null(), true);
    LinkIncident(AddProperty("E-2", "Other box", shelf), "2026-0001", Null());
    EXPECT_THAT(IncidentsOf(ReadItem(item)), ElementsAre("2026-0388||secured", "2026-0417|C-26-1182"));
}

TEST_F(RecordReaderTest, SecuredIncidentsNeedOneOfTwoRights) {
    const StoredItemRef item = AddProperty("E-1", "Box", shelf);
    LinkIncident(item, "2026-0388", "C-1", true);
    LinkIncident(item, "2026-0417", "C-2");
    for (const int16_t right : {int16_t{5}, int16_t{6}}) {
        m_session->GrantNothing();
        m_session->Grant(GetPermissions().VIEW_PROPERTY());
        EXPECT_THAT(IncidentsOf(ReadItem(item)), ElementsAre("2026-0417|C-2"));
        m_session->Grant("Incident", right);
        EXPECT_THAT(IncidentsOf(ReadItem(item)), ElementsAre("2026-0388|C-1|secured", "2026-0417|C-2")) << right;
    }
}

TEST_F(RecordReaderTest, APictureThatCannotBeReadLeavesItsReasonAndTheOtherFields) {
    const StoredItemRef item = AddProperty("E-1", "Box", shelf);
    EXPECT_EQ(ReadItem(item).pictureFailure, "") << "it has no attachment";
    m_database.AddAttachment(StoredItemTypes::Property, item->ID(), "/files", "box.jpg");
    m_thumbnails->sentence = "The attachment is on a tape in the cellar.";
    const Record record = ReadItem(item);
    EXPECT_EQ(record.identifier, "E-1");
    EXPECT_FALSE(record.picture);
    EXPECT_EQ(record.pictureFailure, "The attachment is on a tape in the cellar.");
}

TEST_F(RecordReaderTest, HostileTextsAreReadUnchanged) {
    for (const HostileText& each : HostileTexts()) {
        SCOPED_TRACE(each.description);
        const int32_t id = m_database.AddProperty({.PropertyID = each.text, .Description = each.text});
        const Record record = Read({RecordKind::Property, id});
        EXPECT_EQ(record.identifier, each.text);
        EXPECT_EQ(record.description, each.text);
    }
}

TEST_F(RecordReaderTest, ALocationChangedOnAnotherWorkstationIsReadAgain) {
    const StoredItemRef item = AddProperty("E-1", "Box", shelf);
    EXPECT_EQ(ReadItem(item).location, "Property Room > Aisle 3 > Shelf B");
    m_database.Execute("UPDATE StorageLocation SET Name = ' Aisle 4 ' WHERE IdNo = " + std::to_string(aisle));
    EXPECT_EQ(ReadItem(item).location, "Property Room > Aisle 4 > Shelf B");
}

TEST_F(RecordReaderTest, ADatabaseFailurePassesThrough) {
    const auto engine = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(engine);
    engine->FailAtStatement(1, {ErrorNumber::General, "Engine", "The disk is gone."});
    EXPECT_EQ(RaisedBy([] { ReadRecord({RecordKind::Property, 1}); }).Description(), "The disk is gone.");
}

}  // namespace quellbrook::testing
