#include "tests/support/ui/IconContrast.h"
#include "tests/ui/controls/ControlsTest.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/Link.h"
#include "ui/controls/ListView.h"

#include <QTreeWidget>

#include <functional>

namespace quellbrook::testing {
namespace {

// Runs the same check in the light and in the dark palette.
void InBothPalettes(const std::function<void(const char* palette)>& check) {
    check("light");
    const DarkTheme dark;
    check("dark");
}

class IconContrastTest : public ControlsTest {
protected:
    // The contrast of a row's icon as it is painted.
    static double ContrastInRow(ListView& list, int row) {
        QTreeWidget* tree = list.Tree();
        const QRect cell = tree->visualItemRect(tree->topLevelItem(row));
        return ContrastOfIcon(Grab(*tree->viewport()), QRect(8, cell.top() + 4, 30, cell.height() - 8));
    }
};

TEST_F(IconContrastTest, IconsOfRowsStandOutInEveryState) {
    InBothPalettes([&](const char* palette) {
        for (const char* icon : {"tag", "marked", "location", "selected", "unselected"}) {
            SCOPED_TRACE(std::string(palette) + " " + icon);
            ListView list(&m_window);
            list.SetIconSize(30, 1.2);
            list.AddColumn("icon", "", ToTwips(41));
            list.AddColumn("name", "Name", ToTwips(200));
            list.Move(0, 0, ToTwips(600), ToTwips(300));
            for (const char* key : {"plain", "batch", "selected"}) list.AddRow(key, icon, {{key}});
            list.SetRowBand(1, true);
            ShowActive(m_window);
            list.show();
            EXPECT_GE(ContrastInRow(list, 0), GraphicContrast) << "on the window";
            EXPECT_GE(ContrastInRow(list, 1), GraphicContrast) << "in the batch";
            list.Tree()->setFocus();
            list.SetCurrentRow(2);
            EXPECT_GE(ContrastInRow(list, 2), GraphicContrast) << "selected";
            list.Tree()->clearFocus();
            EXPECT_GE(ContrastInRow(list, 2), GraphicContrast) << "selected without the focus";
        }
    });
}

TEST_F(IconContrastTest, IconsOfButtonsAndLinksStandOut) {
    InBothPalettes([&](const char* palette) {
        for (const bool inverted : {false, true}) {
            FlatButton button(&m_window);
            button.SetInverted(inverted);
            button.SetIcon("add");
            EXPECT_GE(ContrastOfIcon(Grab(button), button.rect().adjusted(4, 4, -4, -4)), GraphicContrast) << palette;
        }
        for (const bool quiet : {false, true}) {
            Link link(&m_window);
            link.SetIcon("close", 24);
            link.SetQuiet(quiet);
            link.move(100, 100);
            ShowActive(m_window);
            link.show();
            EXPECT_GE(ContrastOfIcon(Grab(m_window), link.geometry()), GraphicContrast) << palette;
        }
    });
}

}  // namespace
}  // namespace quellbrook::testing
