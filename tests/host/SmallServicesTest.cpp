#include "host/ColorTool.h"
#include "host/HostEnvironment.h"
#include "host/RowDocumentFactory.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace quellbrook {
namespace {

TEST(ColorTool, ReturnsTheColorUnchanged) { EXPECT_EQ(ColorTool::FromColor(0x87AD24).ToColor(), 0x87AD24); }

TEST(ColorTool, ShadesTowardsWhite) {
    EXPECT_EQ(ColorTool::FromColor(0x87AD24).Shade(0.9f).ToColor(), 0xF3F7E9);
    EXPECT_EQ(ColorTool::FromColor(0x87AD24).Shade(0.0f).ToColor(), 0x87AD24);
    EXPECT_EQ(ColorTool::FromColor(0x000000).Shade(0.5f).ToColor(), 0x808080);
    EXPECT_EQ(ColorTool::FromColor(0x123456).Shade(1.0f).ToColor(), 0xFFFFFF);
}

TEST(ColorTool, ShadesTowardsBlackBelowZero) {
    EXPECT_EQ(ColorTool::FromColor(0x804020).Shade(-0.5f).ToColor(), 0x402010);
    EXPECT_EQ(ColorTool::FromColor(0x123456).Shade(-1.0f).ToColor(), 0x000000);
}

TEST(ColorTool, AFactorBeyondTheRangeCountsAsItsEnd) {
    EXPECT_EQ(ColorTool::FromColor(0x123456).Shade(3.0f).ToColor(), 0xFFFFFF);
    EXPECT_EQ(ColorTool::FromColor(0x123456).Shade(-3.0f).ToColor(), 0x000000);
}

TEST(HostEnvironment, ProcessNameIsTheFileOfThisProgram) {
    const std::string name = HostEnvironment::ProcessName();
    EXPECT_FALSE(name.empty());
    EXPECT_EQ(name.find('/'), std::string::npos);
    EXPECT_EQ(name, std::string(program_invocation_short_name));
}

TEST(HostEnvironment, ErrorsReturnsTheStandardError) {
    const Error error = HostEnvironment::Errors(380, "Control.Value");
    EXPECT_EQ(error.Number(), ErrorNumber::InvalidPropertyValue);
    EXPECT_EQ(error.Source(), "Control.Value");
    EXPECT_EQ(error.Description(), "Invalid property value.");
}

TEST(RowDocumentFactory, ReturnsAnEmptyDocumentEachTime) {
    const auto first = RowDocumentFactory::NewDocument();
    const auto second = RowDocumentFactory::NewDocument();
    EXPECT_NE(first, second);
    EXPECT_FALSE(first->document_element());
    EXPECT_TRUE(first->load_string("<StorageLocation/>"));
}

TEST(DateTextFormat, WritesTheFormThatStatementsTake) {
    EXPECT_EQ(DateTextFormat::ToText(DateTime::FromParts({2026, 11, 20, 13, 14, 15, 123}), 32),
              "2026-11-20T13:14:15.123");
}

}  // namespace
}  // namespace quellbrook
