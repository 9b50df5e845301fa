#include "ui/items/ActionTag.h"

#include "tests/support/ui/Widgets.h"
#include "ui/platform/Twips.h"
#include "ui/style/Theme.h"

#include <QAccessible>

namespace quellbrook::testing {
namespace {

TEST(ActionTag, AShortCaptionIsOneLine) {
    ActionTag tag;
    tag.SetWidth(1380);
    tag.SetCaption("Signed Out");
    EXPECT_EQ(tag.Lines(), QStringList{"Signed Out"});
    EXPECT_EQ(tag.AccessibleRole(), QAccessible::StaticText);
    EXPECT_EQ(tag.height(), 20);
    EXPECT_EQ(tag.width(), 92);
}

TEST(ActionTag, CaptionTooWideForItsColumnIsBrokenIntoTwoLines) {
    ActionTag tag;
    tag.SetWidth(1380);
    tag.SetCaption("Unknown Action");
    EXPECT_EQ(tag.Lines(), (QStringList{"Unknown", "Action"}));
    EXPECT_EQ(tag.height(), 36);
    tag.SetWidth(3000);
    EXPECT_EQ(tag.Lines(), QStringList{"Unknown Action"});
    EXPECT_EQ(tag.height(), 20);
}

TEST(ActionTag, BlockHasItsColorAndTheReadableOfBlackAndWhite) {
    for (const int32_t color : {0x0000C0, 0x87AD24}) {
        ActionTag tag;
        tag.SetWidth(1380);
        tag.SetCaption("Signed");
        tag.SetColor(color);
        const QImage picture = Grab(tag);
        EXPECT_EQ(PixelAt(picture, QPoint(11, 10)), Theme::FromBgr(color));
        EXPECT_NE(PixelAt(picture, QPoint(4, 10)), Theme::FromBgr(color));
        EXPECT_TRUE(HasColor(picture, picture.rect(), Theme::TextOn(Theme::FromBgr(color))));
    }
    EXPECT_NE(Theme::TextOn(Theme::FromBgr(0x0000C0)), Theme::TextOn(Theme::FromBgr(0x87AD24)));
}

TEST(ActionTag, NameForReadersIsTheCaption) {
    ActionTag tag;
    tag.SetCaption("Moved");
    EXPECT_EQ(tag.accessibleName(), "Moved");
    EXPECT_EQ(tag.TypeName(), "Tag");
}

}  // namespace
}  // namespace quellbrook::testing
