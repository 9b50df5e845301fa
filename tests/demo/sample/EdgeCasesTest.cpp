#include "demo/sample/Codes.h"
#include "tests/demo/sample/CustodyChecks.h"
#include "tests/demo/sample/SampleFile.h"

#include <filesystem>
#include <fstream>

#include <set>

#include <gtest/gtest.h>

namespace quellbrook::testing {

namespace {

// A thousand items contain all edge cases.
const SampleFile& Thousand() {
    static const SampleFile file{SampleOptions{1000}};
    return file;
}

int64_t CountOf(const std::string& table, const std::string& condition) {
    return Thousand().Number("SELECT COUNT(*) FROM " + table + " WHERE " + condition);
}

// The characters of UTF-8 text, each once.
std::set<uint32_t> CharactersOf(const std::string& text) {
    std::set<uint32_t> characters;
    for (size_t i = 0; i < text.size();) {
        const auto first = static_cast<unsigned char>(text[i++]);
        uint32_t character = first < 0x80 ? first : first & (first < 0xE0 ? 0x1F : first < 0xF0 ? 0x0F : 0x07);
        for (; i < text.size() && (static_cast<unsigned char>(text[i]) & 0xC0) == 0x80; ++i)
            character = character << 6 | (static_cast<unsigned char>(text[i]) & 0x3F);
        characters.insert(character);
    }
    return characters;
}

// Whether it is a letter or a sign of Latin, Greek or Cyrillic text.
bool IsInInstalledFont(uint32_t character) {
    const bool isLetter = character < 0x0530 || (character >= 0x1E00 && character < 0x2000);
    const bool isSign = character >= 0x2000 && character < 0x2070;
    return isLetter || isSign;
}

}  // namespace

TEST(EdgeCases, ChainsAreConsistent) { ExpectSoundChains(Thousand()); }

TEST(EdgeCases, SomeItemsHaveNoLocationInEitherWay) {
    EXPECT_GT(CountOf("Property", "CurrTrackSeq IS NULL"), 0);
    EXPECT_GT(CountOf("Vehicle", "CurrTrackSeq IS NULL"), 0);
    EXPECT_GT(CountOf("Property i INNER JOIN PropertyTracking t ON t.PropertyNo = i.PropertyNo AND t.SeqNo = "
                      "i.CurrTrackSeq",
                      "t.StorageLocNo IS NULL"),
              0);
    EXPECT_GT(
        CountOf("Vehicle i INNER JOIN VehicleTracking t ON t.VehicleNo = i.VehicleNo AND t.SeqNo = i.CurrTrackSeq",
                "t.StorageLocNo IS NULL"),
        0);
}

TEST(EdgeCases, SomeItemsLackCategoryIdentifierOrStateCode) {
    for (const char* condition :
         {"CategoryNo IS NULL", "PropertyID IS NULL", "PropertyID = ''", "Quantity IS NULL", "Quantity = 0",
          "Description IS NULL", "PropertyValue IS NULL", "RecordTypeInd = 0"}) {
        EXPECT_GT(CountOf("Property", condition), 0) << condition;
    }
    for (const char* condition :
         {"CategoryNo IS NULL", "RegNumber IS NULL AND RegStateCode IS NOT NULL",
          "RegNumber IS NOT NULL AND RegStateCode "
          "IS NULL",
          "VehYear IS NULL", "ColorCode IS NULL AND MakeCode IS NULL AND VehModel IS NULL", "RecordTypeInd = 0"}) {
        EXPECT_GT(CountOf("Vehicle", condition), 0) << condition;
    }
}

TEST(EdgeCases, TextsNeedNoFontThatIsNotInstalled) {
    const SampleFile small;
    for (const SampleFile* file : {&small, &Thousand()})
        for (const uint32_t character : CharactersOf(file->Content()))
            EXPECT_TRUE(IsInInstalledFont(character)) << std::hex << character;
}

TEST(EdgeCases, MostItemsAreOrdinary) {
    EXPECT_LT(CountOf("Property", "CategoryNo IS NULL OR COALESCE(PropertyID, '') = '' OR Description IS NULL"),
              900 / 20);
    EXPECT_LT(CountOf("Vehicle", "CategoryNo IS NULL OR RegNumber IS NULL OR RegStateCode IS NULL"), 100 / 5);
}

TEST(EdgeCases, TextsContainQuotesBlanksScriptsMarkupAndWildcards) {
    for (const char* column : {"Property.Description", "StorageLocation.Name"}) {
        const std::string table = std::string(column).substr(0, std::string(column).find('.'));
        for (const char* sign : {"''", "\"", "<b>", "&", "%", "_", "[", "*"}) {
            EXPECT_GT(CountOf(table, "INSTR(" + std::string(column) + ", '" + sign + "') > 0"), 0)
                << column << " " << sign;
        }
        const std::string name = column;
        EXPECT_GT(CountOf(table, "SUBSTR(" + name + ", 1, 1) = ' '"), 0) << column;
        EXPECT_GT(CountOf(table, "SUBSTR(" + name + ", -1) = ' '"), 0) << column;
        EXPECT_GT(CountOf(table, "LENGTH(" + name + ") > 80"), 0) << column;
        for (const char* letter : {"П", "α", "ö"}) {
            EXPECT_GT(CountOf(table, "INSTR(" + name + ", '" + letter + "') > 0"), 0) << column << " " << letter;
        }
    }
    for (const char* sign : {"e\u0301", "\\", "\n", "{0}"}) {
        EXPECT_GT(CountOf("Property", "INSTR(Description, '" + std::string(sign) + "') > 0"), 0) << sign;
    }
    EXPECT_GT(CountOf("Property", "ManufacNbr LIKE '%''%' AND ModelNbr LIKE '%\"%' AND SerialNbr LIKE ' % '"), 0);
    EXPECT_GT(CountOf("Property", "PropertyID LIKE '  %'"), 0);
    EXPECT_GT(CountOf("Vehicle", "MakeCode LIKE '%''%' AND VehModel LIKE '%\"%'"), 0);
}

TEST(EdgeCases, PersonsWithDifficultNamesAppearInCustody) {
    for (const sample::StandIn& standIn : sample::EdgeCaseStandIns()) {
        const std::string no = std::to_string(standIn.person.no);
        EXPECT_EQ(CountOf("Person", "PersonNo = " + no), 1);
        EXPECT_GT(CountOf("PropertyTracking", "ReceivedBy = " + no + " OR ReceivedFrom = " + no), 0)
            << standIn.person.lastName;
    }
}

TEST(EdgeCases, ItemsAreLinkedTwiceToOneIncidentAndToSeveral) {
    for (const std::string kind : {"Property", "Vehicle"}) {
        const std::string links = "Incd" + kind;
        EXPECT_GT(Thousand().Number("SELECT COUNT(*) FROM (SELECT 1 FROM " + links + " GROUP BY IncidentNo, " + kind +
                                    "No HAVING COUNT(*) > 1)"),
                  0)
            << kind;
    }
    EXPECT_GT(Thousand().Number("SELECT COUNT(*) FROM (SELECT 1 FROM IncdProperty GROUP BY PropertyNo HAVING "
                                "COUNT(DISTINCT IncidentNo) > 1)"),
              0);
}

TEST(EdgeCases, TwoIncidentsShareACaseNumberAndSomeHaveNone) {
    EXPECT_GT(
        Thousand().Number("SELECT COUNT(*) FROM (SELECT 1 FROM Incident WHERE CaseNbr IS NOT NULL GROUP BY CaseNbr "
                          "HAVING COUNT(*) > 1)"),
        0);
    EXPECT_GT(CountOf("Incident", "CaseNbr IS NULL"), 0);
}

TEST(EdgeCases, SomeLocationsOutOfUseContainOthersAndItems) {
    EXPECT_GT(CountOf("StorageLocation", "ActiveFlag IS NULL"), 0);
    EXPECT_GT(CountOf("StorageLocation s INNER JOIN StorageLocation a ON a.IdNo = s.ContainerNo",
                      "s.ActiveFlag = 1 AND "
                      "a.ActiveFlag = 0"),
              0);
    EXPECT_GT(
        CountOf("CurrentPlace c INNER JOIN StorageLocation s ON s.IdNo = c.StorageLocNo INNER JOIN StorageLocation a "
                "ON a.IdNo = s.ContainerNo",
                "s.ActiveFlag = 1 AND a.ActiveFlag = 0"),
        0);
}

TEST(EdgeCases, SomeMainPicturesLackTheirFolderOrRow) {
    const std::string main =
        "Property p LEFT JOIN AttachmentIndex a ON a.IdNo = p.PropertyNo AND a.ObjTypeInd = 6 AND "
        "a.SeqNo = p.CurrImageSeq";
    EXPECT_GT(CountOf(main, "a.FolderNo = 1"), 0);
    EXPECT_GT(CountOf(main, "a.FolderNo = 1 AND a.SeqNo = 2"), 0);
    EXPECT_GT(CountOf(main, "a.IdNo IS NOT NULL AND a.FolderNo IS NULL"), 0);
    EXPECT_GT(CountOf(main, "p.CurrImageSeq IS NOT NULL AND a.IdNo IS NULL"), 0);
    EXPECT_GT(CountOf(main,
                      "p.CurrImageSeq IS NULL AND EXISTS (SELECT 1 FROM AttachmentIndex b WHERE b.IdNo = "
                      "p.PropertyNo AND b.ObjTypeInd = 6)"),
              0);
    EXPECT_GT(
        CountOf("Vehicle v INNER JOIN AttachmentIndex a ON a.IdNo = v.VehicleNo AND a.ObjTypeInd = 7 AND a.SeqNo = "
                "v.CurrImageSeq",
                "a.FolderNo = 2"),
        0);
    EXPECT_EQ(CountOf("AttachmentIndex", "(ObjTypeInd = 6) <> (IdNo < 5000001)"), 0);
}

TEST(EdgeCases, EveryFiledPictureExistsBesideTheDatabase) {
    const auto files = Thousand().Rows(
        "SELECT DISTINCT f.Path || '/' || a.FileName FROM AttachmentIndex a INNER JOIN "
        "AttachmentFolder f ON f.FolderNo = a.FolderNo");
    EXPECT_GT(files.size(), 40u);
    for (const std::string& file : files) {
        EXPECT_TRUE(std::filesystem::is_regular_file(std::filesystem::path(Thousand().Folder()) / file)) << file;
    }
}

}  // namespace quellbrook::testing
