#include "demo/gallery/GalleryWindow.h"

#include "base/Environment.h"
#include "base/Error.h"
#include "component/Quellbrook.h"
#include "demo/gallery/Cell.h"
#include "tests/support/RecordingScreen.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/ui/GeometryWalk.h"
#include "tests/support/ui/Widgets.h"
#include "ui/common/FontLabel.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/FontIcon.h"
#include "ui/controls/Label.h"
#include "ui/style/Icons.h"
#include "ui/style/TextBlock.h"
#include "ui/style/Theme.h"

#include <QScrollArea>
#include <QScrollBar>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>

#include <gtest/gtest.h>

namespace quellbrook::testing {

namespace {

using gallery::Cell;
using gallery::GalleryWindow;
using gallery::State;

// The states that the gallery must show for a control, over all variants.
const std::map<QString, std::set<State>> Listed = {
    {"FlatButton", {State::Normal, State::Hover, State::Pressed, State::Focused, State::Disabled}},
    {"Link", {State::Normal, State::Hover, State::Pressed, State::Focused, State::Disabled}},
    {"FlatTextbox", {State::Normal, State::Hover, State::Pressed, State::Focused, State::Disabled, State::Empty}},
    {"FlatTextArea", {State::Normal, State::Hover, State::Pressed, State::Focused, State::Disabled, State::Empty}},
    {"FlatDropdown", {State::Normal, State::Hover, State::Pressed, State::Focused, State::Disabled, State::Empty}},
    {"TessarineDropdown", {State::Normal, State::Hover, State::Pressed, State::Focused, State::Disabled, State::Empty}},
    {"FlatTabs", {State::Normal, State::Hover, State::Pressed, State::Focused, State::Disabled}},
    {"ListView", {State::Normal, State::Hover, State::Pressed, State::Focused, State::Disabled, State::Empty}},
    {"FlatScrollBar", {State::Normal, State::Hover, State::Pressed, State::Disabled}},
    {"Label", {State::Normal, State::Disabled, State::Empty, State::Error}},
    {"StatusTag", {State::Normal, State::Disabled, State::Empty}},
    {"RelatedIncidentStrip", {State::Normal, State::Disabled, State::Empty}},
    {"FlatTitleBar", {State::Normal, State::Empty}},
    {"GroupBox", {State::Normal}},
    {"Line", {State::Normal}},
    {"FontIcon", {State::Normal, State::Disabled, State::Empty}},
    {"PictureBox", {State::Normal}}};

// The class names of ui/controls.
std::set<std::string> ControlTypes() {
    const std::regex typeName("TypeName\\(\\) const override \\{ return \"(\\w+)\"; \\}");
    std::set<std::string> names;
    const std::filesystem::path folder = std::filesystem::path(QUELLBROOK_SOURCE_DIR) / "ui" / "controls";
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        std::ifstream file(entry.path());
        const std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
        std::smatch found;
        if (entry.path().extension() == ".h")
            for (auto at = text.cbegin(); std::regex_search(at, text.cend(), found, typeName); at = found[0].second)
                names.insert(found[1]);
    }
    return names;
}

std::string Describe(const Cell& cell) {
    return (cell.Shown().control + " " + cell.Shown().variant + ", " + NameOf(cell.InState())).toStdString();
}

class GalleryTest : public ::testing::Test {
protected:
    GalleryTest() {
        m_environment->screen = &m_screen;
        m_gallery = std::make_unique<GalleryWindow>();
    }
    ~GalleryTest() override {
        m_gallery.reset();
        UsePalette(false);
        EXPECT_TRUE(m_screen.Messages().empty()) << "Unexpected message: " << m_screen.Messages().front();
    }

    static void UsePalette(bool dark) {
        InstallTheme(dark);
        ServeEvents();
    }
    // A gallery opened in this palette.
    void Reopen(bool dark) {
        m_gallery.reset();
        UsePalette(dark);
        m_gallery = std::make_unique<GalleryWindow>();
    }

    QList<Cell*> Cells() const { return m_gallery->findChildren<Cell*>(); }
    Cell* Find(const QString& control, const QString& variant, State state) const {
        for (Cell* cell : Cells())
            if (cell->Shown().control == control && cell->Shown().variant == variant && cell->InState() == state)
                return cell;
        ADD_FAILURE() << "No such cell: " << control.toStdString() << ", " << NameOf(state).toStdString();
        return nullptr;
    }
    // The painted cells, except the busy ring.
    std::map<std::string, QImage> Looks() const {
        std::map<std::string, QImage> looks;
        for (Cell* cell : Cells())
            if (!cell->Shown().variant.startsWith("busy")) looks[Describe(*cell)] = Grab(*cell);
        return looks;
    }

    EnvironmentScope m_environment;
    RecordingScreen m_screen;
    std::unique_ptr<GalleryWindow> m_gallery;
};

}  // namespace

TEST_F(GalleryTest, ShowsEveryKindOfControl) {
    std::set<std::string> types = ControlTypes();
    types.erase("BarcodeListener");  // is invisible
    EXPECT_GE(types.size(), 16u);
    EXPECT_EQ(types.count("FlatButton"), 1u);
    types.insert("RelatedIncidentStrip");
    std::set<std::string> shown;
    for (const Cell* cell : Cells()) {
        if (!cell->Live()) continue;
        shown.insert(cell->Live()->TypeName());
        for (const Control* control : cell->Live()->findChildren<Control*>()) shown.insert(control->TypeName());
    }
    for (const std::string& type : types) EXPECT_EQ(shown.count(type), 1u) << type;
}

TEST_F(GalleryTest, ShowsEveryIconSmallAndLargeOverItsName) {
    std::set<QString> captions;
    std::map<QString, std::set<int>> sizes;
    for (const FontIcon* icon : m_gallery->findChildren<FontIcon*>()) {
        sizes[icon->IconName()].insert(icon->width());
        for (const Label* label : icon->parentWidget()->findChildren<Label*>()) captions.insert(label->Caption());
    }
    EXPECT_GE(Icons::Names().size(), 30);
    for (const QString& name : Icons::Names()) {
        EXPECT_TRUE(sizes[name].count(24) && sizes[name].count(48)) << name.toStdString();
        EXPECT_EQ(captions.count(name), 1u) << name.toStdString();
    }
}

TEST_F(GalleryTest, ShowsEveryControlInEachOfItsStates) {
    std::map<QString, std::set<State>> shown;
    for (const Cell* cell : Cells()) shown[cell->Shown().control].insert(cell->InState());
    for (const auto& [control, states] : Listed) EXPECT_EQ(shown[control], states) << control.toStdString();
    EXPECT_EQ(shown.size(), Listed.size());
}

TEST_F(GalleryTest, EveryCellIsALiveControlOrACaptionedPicture) {
    for (const Cell* cell : Cells()) {
        EXPECT_NE(cell->Caption(), "") << Describe(*cell);
        EXPECT_EQ(cell->Live() == nullptr, gallery::IsFleeting(cell->InState())) << Describe(*cell);
        EXPECT_EQ(cell->Picture().isNull(), cell->Live() != nullptr) << Describe(*cell);
        EXPECT_EQ(cell->Caption().contains("picture"), cell->Live() == nullptr) << Describe(*cell);
    }
}

TEST_F(GalleryTest, OnlyControlsWithoutAHoverStateLookNormalUnderThePointer) {
    std::set<QString> asNormal;
    for (const Cell* cell : Cells()) {
        if (!cell->Caption().contains("as normal")) continue;
        EXPECT_EQ(cell->InState(), State::Hover) << Describe(*cell);
        asNormal.insert(cell->Shown().control);
    }
    EXPECT_EQ(asNormal,
              (std::set<QString>{"FlatTextbox", "FlatTextArea", "FlatDropdown", "TessarineDropdown", "ListView"}));
}

TEST_F(GalleryTest, FocusedPicturesShowTheFocusFrame) {
    for (const Cell* cell : Cells()) {
        if (cell->InState() != State::Focused) continue;
        const QImage picture = cell->Picture().toImage();
        const bool list = cell->Shown().control == "ListView";
        const QColor mark = Theme::Get(list ? Theme::Color::HighlightText : Theme::Color::Link);
        EXPECT_TRUE(HasColor(picture, picture.rect(), mark)) << Describe(*cell);
    }
}

TEST_F(GalleryTest, APressedDropdownShowsItsList) {
    for (const char* control : {"FlatDropdown", "TessarineDropdown"}) {
        for (const Cell* cell : Cells()) {
            if (cell->Shown().control != control || cell->InState() != State::Pressed) continue;
            const QImage picture = cell->Picture().toImage();
            EXPECT_GT(picture.height(), 36 + 3 * 32) << control;
            EXPECT_TRUE(HasColor(picture, picture.rect(), Theme::Get(Theme::Color::Highlight))) << control;
        }
    }
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(GalleryTest, HoverAndPressChangeAButton) {
    const auto background = [this](State state) {
        return PixelAt(Find("FlatButton", "", state)->Picture().toImage(), QPoint(4 + 8, 4 + 8));
    };
    EXPECT_EQ(background(State::Hover), Theme::Get(Theme::Color::StrongHover));
    EXPECT_EQ(background(State::Pressed), Theme::Get(Theme::Color::StrongPressed));
    EXPECT_EQ(background(State::Focused), Theme::Get(Theme::Color::Strong));
}

TEST_F(GalleryTest, TheSwitchRepaintsEverything) {
    ShowActive(*m_gallery);
    auto* button = m_gallery->findChild<FlatButton*>("switchPalette");
    auto* page = m_gallery->findChild<QWidget*>("page");
    ASSERT_TRUE(button && page);
    EXPECT_EQ(button->Caption(), "Dark");
    const auto light = Looks();
    Click(button);
    EXPECT_TRUE(m_gallery->IsDark());
    EXPECT_EQ(button->Caption(), "Light");
    EXPECT_EQ(PixelAt(Grab(*page), QPoint(2, 2)), Theme::Get(Theme::Color::Window));
    EXPECT_LT(PixelAt(Grab(*page), QPoint(2, 2)).lightness(), 64);
    const auto dark = Looks();
    EXPECT_EQ(dark.size(), light.size());
    for (const auto& [name, look] : dark) EXPECT_NE(look, light.at(name)) << name;
    Click(button);
    for (const auto& [name, look] : Looks()) EXPECT_EQ(look, light.at(name)) << name;
}

TEST_F(GalleryTest, SwitchingGivesTheSamePageAsOpeningInThatPalette) {
    ShowActive(*m_gallery);
    m_gallery->SetDark(true);
    const auto switched = Looks();
    Reopen(true);
    ShowActive(*m_gallery);
    const auto opened = Looks();
    ASSERT_EQ(switched.size(), opened.size());
    for (const auto& [name, look] : opened) EXPECT_EQ(look, switched.at(name)) << name;
}

TEST_F(GalleryTest, TakingPicturesKeepsTheFocus) {
    ShowActive(*m_gallery);
    auto* button = m_gallery->findChild<FlatButton*>("switchPalette");
    button->setFocus();
    m_gallery->SetDark(true);
    EXPECT_EQ(QApplication::activeWindow(), m_gallery.get());
    EXPECT_EQ(QApplication::focusWidget(), button);
}

TEST_F(GalleryTest, OnlyTheSamplesOfAnEllipsisEndInOne) {
    ShowActive(*m_gallery);
    std::set<std::string> cut;
    for (const Label* label : m_gallery->findChildren<Label*>()) {
        if (!label->isVisible() || qobject_cast<const FontLabel*>(label)) continue;
        const auto* cell = qobject_cast<const Cell*>(label->parentWidget());
        const int wrapWidth = label->hasHeightForWidth() ? label->width() : 0;
        if (TextBlock(label->Caption(), label->Type(), wrapWidth).FitsIn(label->size())) continue;
        cut.insert((cell ? cell->Caption() : label->Caption()).toStdString());
    }
    EXPECT_EQ(cut, (std::set<std::string>{"One line, ends in an ellipsis", "Wraps, ends in an ellipsis"}));
}

TEST_F(GalleryTest, NothingIsCutOffOrOutsideThePage) {
    for (const bool dark : {false, true}) {
        Reopen(dark);
        for (const QSize size : {QSize(1280, 800), QSize(820, 600)}) {
            GeometryWalk walk(
                {{MeantFault::Kind::Overlap, "QFocusFrame", "", "the mark of the focus lies around what has the focus"},
                 {MeantFault::Kind::Unnamed, "Empty", "", "it shows what an empty control looks like"}});
            m_gallery->resize(size);
            ShowActive(*m_gallery);
            EXPECT_THAT(walk.FaultsOf(*m_gallery), ::testing::IsEmpty());
            EXPECT_GT(walk.Visited(), 300);
            auto* scroll = m_gallery->findChild<QScrollArea*>();
            EXPECT_EQ(scroll->horizontalScrollBar()->maximum(), 0);
            EXPECT_GT(scroll->verticalScrollBar()->maximum(), 0);
        }
    }
}

TEST_F(GalleryTest, WritesAPictureInEachPalette) {
    const ScratchFolder directory;
    const QString folder = QString::fromStdString(directory.Path()) + "/new/gallery";
    m_gallery->WritePictures(folder);
    const QImage light(folder + "/light.png");
    const QImage dark(folder + "/dark.png");
    EXPECT_EQ(light.width(), 1280);
    EXPECT_EQ(light.height(), 40 + m_gallery->findChild<QWidget*>("page")->heightForWidth(1280));
    EXPECT_EQ(dark.size(), light.size());
    for (const QPoint& at : {QPoint(2, 50), QPoint(1278, light.height() - 2)}) {
        EXPECT_EQ(light.pixelColor(at), QColor(0xFF, 0xFF, 0xFF));
        EXPECT_EQ(dark.pixelColor(at), QColor(0x1A, 0x1E, 0x1F));
    }
}

TEST_F(GalleryTest, ADirectoryThatCannotBeCreatedIsNamed) {
    const ScratchFolder directory;
    const std::string file = directory.Path() + "/file";
    std::ofstream(file) << "text";
    const std::string folder = file + "/gallery";
    try {
        m_gallery->WritePictures(QString::fromStdString(folder));
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::General);
        EXPECT_EQ(error.Description(), "The directory " + folder + " can't be created.");
    }
}

}  // namespace quellbrook::testing
