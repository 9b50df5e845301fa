#include "demo/gallery/Section.h"
#include "demo/gallery/Sections.h"
#include "ui/controls/FlatScrollBar.h"
#include "ui/controls/ListView.h"
#include "ui/platform/Twips.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QTreeWidget>

namespace quellbrook::gallery {

namespace {

constexpr int ListWidth = 336;
constexpr int HeaderHeight = 32;
constexpr int BarHeight = 120;

void PressDown(Control& control) {
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
    QCoreApplication::sendEvent(static_cast<ListView&>(control).Tree(), &event);
}

void Fill(ListView& list) {
    list.AddRow(QStringLiteral("1"), QStringLiteral("tag"),
                {{QStringLiteral("2026-0042-1")}, {QObject::tr("Revolver")}});
    list.AddRow(
        QStringLiteral("2"), QStringLiteral("marked"),
        {{QStringLiteral("2026-0042-2"), false, true}, {QObject::tr("Box of cartridges, in the batch"), false, true}});
    list.AddRow(QStringLiteral("3"), QStringLiteral("empty_location"),
                {{QStringLiteral("B-104"), true}, {QObject::tr("No description"), true}});
}

Specimen ReportSpecimen() {
    const auto make = [](QWidget* parent) {
        auto* list = new ListView(parent);
        list->Tree()->setAccessibleName(QObject::tr("Contents"));
        list->SetIconSize(30, 1.2);
        list->Move(0, 0, ToTwips(ListWidth), ToTwips(HeaderHeight + 3 * list->RowHeight()));
        list->AddColumn(QStringLiteral("icon"), QString(), ToTwips(40));
        list->AddColumn(QStringLiteral("number"), QObject::tr("Number"), ToTwips(116));
        list->AddColumn(QStringLiteral("description"), QObject::tr("Description"), ToTwips(ListWidth - 40 - 116));
        Fill(*list);
        list->SetRowBand(1, true);
        list->SetCurrentRow(0);
        return list;
    };
    const auto empty = [](Control& control) { static_cast<ListView&>(control).ClearRows(); };
    Specimen list{QStringLiteral("ListView"),
                  QObject::tr("a report: one row selected, one in the batch; focused after the Down key"), make,
                  FieldStates, empty};
    list.focused = PressDown;
    return list;
}

Specimen TickSpecimen() {
    const auto make = [](QWidget* parent) {
        auto* list = new ListView(parent);
        list->Tree()->setAccessibleName(QObject::tr("Items"));
        list->SetIconSize(24, 1.4);
        list->Move(0, 0, ToTwips(ListWidth), ToTwips(2 * list->RowHeight() + 2));
        list->SetHeaderVisible(false);
        list->SetRowLines(false);
        list->SetFramed(true);
        list->AddColumn(QStringLiteral("icon"), QString(), ToTwips(40));
        list->AddColumn(QStringLiteral("description"), QString(), ToTwips(ListWidth - 40 - 2));
        list->AddRow(QStringLiteral("1"), QStringLiteral("selected"), {{QObject::tr("Mobile phone"), false, true}});
        list->AddRow(QStringLiteral("2"), QStringLiteral("unselected"), {{QObject::tr("Charger")}});
        return list;
    };
    const auto empty = [](Control& control) { static_cast<ListView&>(control).ClearRows(); };
    Specimen list{QStringLiteral("ListView"),
                  QObject::tr("framed, without captions and lines"),
                  make,
                  {State::Normal, State::Focused, State::Disabled, State::Empty},
                  empty};
    list.focused = PressDown;
    return list;
}

Specimen BarSpecimen(const QString& variant, int value, int arrows, const std::vector<State>& states) {
    const auto make = [=](QWidget* parent) {
        auto* bar = new FlatScrollBar(parent);
        bar->SetMax(100);
        bar->SetLargeChange(40);
        bar->SetValue(value);
        bar->SetArrows(arrows);
        bar->SetHeight(ToTwips(BarHeight));
        return bar;
    };
    Specimen bar{QStringLiteral("FlatScrollBar"), variant, make, states};
    bar.pointer = [](const Control& control) { return QPoint(control.width() / 2, control.height() / 2 - 16); };
    return bar;
}

}  // namespace

Section* MakeLists(QWidget* parent) {
    auto* section = new Section(QObject::tr("Lists and scroll bars"),
                                QObject::tr("Selected rows are less prominent without the focus."), parent);
    section->AddStates(ReportSpecimen());
    section->AddStates(TickSpecimen());
    section->AddVariants(QStringLiteral("FlatScrollBar"), QObject::tr("pointer and press at the thumb"),
                         {BarSpecimen(QObject::tr("Normal, top"), 0, FlatScrollBar::Both, {State::Normal}),
                          BarSpecimen(QObject::tr("Middle"), 50, FlatScrollBar::Both,
                                      {State::Normal, State::Hover, State::Pressed, State::Disabled}),
                          BarSpecimen(QObject::tr("End"), 100, FlatScrollBar::Both, {State::Normal}),
                          BarSpecimen(QObject::tr("Only up"), 100, FlatScrollBar::Up, {State::Normal}),
                          BarSpecimen(QObject::tr("Only down"), 0, FlatScrollBar::Down, {State::Normal})});
    return section;
}

}  // namespace quellbrook::gallery
