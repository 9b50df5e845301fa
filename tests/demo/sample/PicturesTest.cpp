#include "demo/sample/Codes.h"
#include "demo/sample/Motifs.h"
#include "demo/sample/Pictures.h"

#include <algorithm>
#include <set>

#include <gtest/gtest.h>

namespace quellbrook::sample {

TEST(Pictures, AllPicturesDiffer) {
    std::set<std::string> paths, contents;
    for (const CompanionFile& file : DrawPictures()) {
        EXPECT_TRUE(paths.insert(file.path).second) << file.path;
        EXPECT_TRUE(contents.insert(file.bytes).second) << file.path;
    }
}

TEST(Pictures, DrawingAgainGivesTheSameBytes) {
    const auto first = DrawPictures(), second = DrawPictures();
    ASSERT_EQ(first.size(), second.size());
    for (size_t k = 0; k < first.size(); ++k) EXPECT_EQ(first[k].bytes, second[k].bytes) << first[k].path;
}

TEST(Pictures, EveryGeneratedNameHasAPicture) {
    std::set<std::string> drawn;
    for (const CompanionFile& file : DrawPictures()) drawn.insert(file.path);
    for (int32_t category = 0; category <= 30; ++category) {
        for (const int32_t view : {0, 1, 2, 3, 299'999}) {
            EXPECT_EQ(drawn.count(std::string(PropertyPictures) + "/" + PropertyPictureName(category, view)), 1u)
                << category;
        }
        for (const char* color : {"Silver", "Tan", "Mauve", ""}) {
            EXPECT_EQ(drawn.count(std::string(VehiclePictures) + "/" + VehiclePictureName(category, color)), 1u)
                << category;
        }
    }
}

}  // namespace quellbrook::sample
