#include "demo/gallery/Section.h"
#include "demo/gallery/Sections.h"
#include "ui/controls/FlatTabs.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/platform/Twips.h"

namespace quellbrook::gallery {

namespace {

constexpr int TabsWidth = 336, TabsHeight = 84;
constexpr int PageMargin = 16, PageTop = 12;

QPoint OnSecondTab(const Control& control) { return static_cast<const FlatTabs&>(control).TabRect(1).center(); }

Specimen TabsSpecimen() {
    const auto make = [](QWidget* parent) {
        auto* tabs = new FlatTabs(parent);
        tabs->SetAccessibleCaption(QObject::tr("Item"));
        for (const QString& caption : {QObject::tr("Details"), QObject::tr("Chain of Custody"), QObject::tr("Notes")}) {
            FlatTabPage* page = tabs->AddTab(caption);
            auto* label = new Label(new GroupBox(page));
            label->SetForeColor(Theme::Color::GrayText);
            label->SetCaption(QObject::tr("The page of %1").arg(caption));
            label->Move(ToTwips(PageMargin), ToTwips(PageTop));
        }
        tabs->Move(0, 0, ToTwips(TabsWidth), ToTwips(TabsHeight));
        return tabs;
    };
    Specimen tabs{QStringLiteral("FlatTabs"), QObject::tr("pointer and press at the second tab"), make,
                  PressableStates};
    tabs.pointer = OnSecondTab;
    return tabs;
}

}  // namespace

Section* MakeTabs(QWidget* parent) {
    auto* section =
        new Section(QObject::tr("Tabs"), QObject::tr("Arrow keys, Home and End go from tab to tab."), parent);
    section->AddStates(TabsSpecimen());
    return section;
}

}  // namespace quellbrook::gallery
