#include "demo/sample/CompanionFiles.h"

#include "base/Error.h"
#include "demo/sample/LabelTemplates.h"
#include "demo/sample/SampleDepartment.h"
#include "labels/LabelTemplate.h"
#include "tests/support/ScratchFolder.h"

#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

namespace quellbrook::sample {

namespace {

using testing::ScratchFolder;

std::string Bytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

const std::vector<CompanionFile> Some = {{"Folder/Inner/one.txt", "first"}, {"Folder/two.txt", std::string("b\0c", 3)}};

}  // namespace

TEST(CompanionFiles, StandBelowTheDirectoryWhenTheyAreKept) {
    const ScratchFolder folder;
    {
        CompanionFiles files(folder.Path());
        files.Write(Some);
        files.Keep();
    }
    for (const CompanionFile& file : Some) EXPECT_EQ(Bytes(folder.In(file.path)), file.bytes) << file.path;
}

TEST(CompanionFiles, AreGoneWithTheirFoldersWhenTheyAreNotKept) {
    const ScratchFolder folder;
    {
        CompanionFiles files(folder.Path());
        files.Write(Some);
        EXPECT_EQ(folder.CountOfEntries(), 1);
    }
    EXPECT_EQ(folder.CountOfEntries(), 0);
}

TEST(CompanionFiles, WhatStoodBeforeStaysAsItIs) {
    const ScratchFolder folder;
    std::filesystem::create_directories(folder.In("Folder"));
    std::ofstream(folder.In("Folder/two.txt")) << "mine";
    {
        CompanionFiles files(folder.Path());
        files.Write(Some);
    }
    EXPECT_EQ(Bytes(folder.In("Folder/two.txt")), "mine");
    EXPECT_FALSE(std::filesystem::exists(folder.In("Folder/Inner")));
}

TEST(CompanionFiles, APlaceWhereNoFolderCanStandIsSaidSo) {
    const ScratchFolder folder;
    std::ofstream(folder.In("Folder")) << "a file";
    CompanionFiles files(folder.Path());
    try {
        files.Write(Some);
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::General);
        EXPECT_EQ(error.Description().rfind("The file '" + folder.In("Folder/Inner/one.txt"), 0), 0u)
            << error.Description();
    }
}

TEST(LabelTemplates, HaveTheFieldsOfTheirLabels) {
    const std::string barcode = "\x02L0000000012\x03";
    for (const CompanionFile& file : LabelTemplates()) {
        const bool isLocation = file.path == "Files/Data/location.labl";
        LabelTemplate::Fields fields = {{"agency_name", "Harlow Bay"}};
        if (isLocation) {
            fields.insert(fields.end(), {{"location_barcode", barcode}, {"location", "Room 1"}});
        } else {
            fields.insert(fields.end(),
                          {{"barcode", barcode}, {"property_id", "1"}, {"category", "c"}, {"description", "d"}});
        }
        const FilledLabel label = LabelTemplate(file.bytes).Fill(fields);
        EXPECT_EQ(label.barcodes.size(), 1u);
        EXPECT_EQ(label.texts.size(), fields.size() - 1) << file.path;
        EXPECT_NEAR(label.width, 101.6, 1e-9);
        EXPECT_NEAR(label.height, 50.8, 1e-9);
        EXPECT_EQ(label.drawing.find("_box"), std::string::npos);
    }
}

TEST(LabelTemplates, AreAddedIfTheyAreMissing) {
    const ScratchFolder folder;
    std::filesystem::create_directories(folder.In("Files/Data"));
    std::ofstream(folder.In("Files/Data/evidence.labl")) << "our own";
    AddMissingLabelTemplates(folder.Path());
    EXPECT_EQ(Bytes(folder.In("Files/Data/evidence.labl")), "our own");
    EXPECT_EQ(Bytes(folder.In("Files/Data/location.labl")), LabelTemplates()[1].bytes);
}

}  // namespace quellbrook::sample
