#include "demo/sample/Png.h"
#include "tests/demo/sample/PngReader.h"

#include <gmock/gmock.h>

namespace quellbrook::sample {

namespace {

using testing::ReadPng;

Picture Striped(int32_t width, int32_t height) {
    Picture picture{width, height, {}, {}};
    for (uint8_t shade = 0; shade < 16; ++shade) {
        picture.colours.push_back({static_cast<uint8_t>(shade * 17), shade, static_cast<uint8_t>(255 - shade)});
    }
    for (int32_t dot = 0; dot < width * height; ++dot) picture.dots.push_back(static_cast<uint8_t>(dot * 7 % 16));
    return picture;
}

}  // namespace

TEST(Png, ReadsBackDotForDot) {
    const Picture picture = Striped(34, 20);
    const ReadPng read(EncodePng(picture));
    EXPECT_EQ(read.width, 34u);
    EXPECT_EQ(read.height, 20u);
    EXPECT_EQ(read.dots, picture.dots);
}

TEST(Png, AnOddWidthAndASingleDotReadBackToo) {
    for (const Picture& picture : {Striped(33, 5), Striped(1, 1), Striped(1, 40)}) {
        EXPECT_EQ(ReadPng(EncodePng(picture)).dots, picture.dots) << picture.width;
    }
}

TEST(Png, APictureOfSeveralBlocksReadsBack) {
    const Picture picture = Striped(600, 700);
    EXPECT_EQ(ReadPng(EncodePng(picture)).dots, picture.dots);
}

TEST(Png, ALengthOfExactlyOneBlockReadsBack) {
    const Picture picture = Striped(2 * 65'534, 1);
    EXPECT_EQ(ReadPng(EncodePng(picture)).dots, picture.dots);
}

TEST(Png, KeepsTheColours) {
    const ReadPng read(EncodePng(Striped(2, 2)));
    EXPECT_EQ(read.palette.size(), 48u);
    EXPECT_EQ(read.palette.substr(3, 3), "\x11\x01\xFE");
}

TEST(Png, ChunksStandInTheirOrder) {
    EXPECT_THAT(ReadPng(EncodePng(Striped(2, 2))).chunks, ::testing::ElementsAre("IHDR", "PLTE", "IDAT", "IEND"));
}

TEST(Png, EndsAsEveryPngDoes) {
    const std::string file = EncodePng(Striped(2, 2));
    EXPECT_EQ(file.substr(file.size() - 12), std::string("\0\0\0\0IEND\xAE\x42\x60\x82", 12));
}

}  // namespace quellbrook::sample
