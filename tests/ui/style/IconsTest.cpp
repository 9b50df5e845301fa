#include "tests/ui/controls/ControlsTest.h"
#include "ui/controls/FontIcon.h"
#include "ui/style/Icons.h"

namespace quellbrook::testing {
namespace {

const std::vector<QString>& Names() {
    static const std::vector<QString> names = {
        "location", "empty_location", "sign_in", "sign_out", "dispose",  "other",     "uncategorized", "tag",
        "move",     "check",          "print",   "edit",     "delete",   "add",       "search",        "close",
        "vehicle",  "secured",        "error",   "warning",  "question", "chevron",   "chevron_r",     "open",
        "basic",    "identifiers",    "notes",   "marked",   "selected", "unselected"};
    return names;
}

int PaintedPixels(const QPixmap& picture) {
    const QImage image = picture.toImage();
    int painted = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) painted += image.pixelColor(x, y).alpha() > 0 ? 1 : 0;
    return painted;
}

class IconsTest : public ControlsTest {};

TEST_F(IconsTest, EveryNameHasItsOwnPicture) {
    std::vector<QImage> seen;
    for (const QString& name : Names()) {
        EXPECT_TRUE(Icons::Has(name)) << name.toStdString();
        const QPixmap picture = Icons::Pixmap(name, 24, Qt::black);
        EXPECT_EQ(picture.size(), QSize(24, 24));
        EXPECT_GT(PaintedPixels(picture), 10) << name.toStdString();
        const QImage image = picture.toImage();
        for (const QImage& other : seen) EXPECT_NE(image, other) << name.toStdString();
        seen.push_back(image);
    }
}

TEST_F(IconsTest, TheNamesAreThoseThatHaveAPicture) {
    const QStringList names = Icons::Names();
    for (const QString& name : names) EXPECT_TRUE(Icons::Has(name)) << name.toStdString();
    for (const QString& name : Names()) EXPECT_EQ(names.count(name), 1) << name.toStdString();
}

TEST_F(IconsTest, AnUnknownNameIsEmpty) {
    EXPECT_FALSE(Icons::Has("nothing"));
    EXPECT_FALSE(Icons::Has(""));
    EXPECT_TRUE(Icons::Pixmap("nothing", 24, Qt::black).isNull());
    EXPECT_TRUE(Icons::Icon("nothing", Qt::black).isNull());
    EXPECT_TRUE(Icons::Pixmap("tag", 0, Qt::black).isNull());
}

TEST_F(IconsTest, StrokesTakeTheColorGiven) {
    const QImage image = Icons::Pixmap("add", 24, QColor(10, 120, 90)).toImage();
    EXPECT_TRUE(HasColor(image, image.rect(), QColor(10, 120, 90)));
}

TEST_F(IconsTest, PicturesHaveTheDevicesPixels) {
    const QPixmap picture = Icons::Pixmap("tag", 18, Qt::black, 2.0);
    EXPECT_EQ(picture.size(), QSize(36, 36));
    EXPECT_EQ(picture.deviceIndependentSize(), QSizeF(18, 18));
    EXPECT_EQ(Icons::Icon("tag", Qt::black).pixmap(QSize(18, 18), 2.0).size(), QSize(36, 36));
}

TEST_F(IconsTest, TheTickIsCutOutOfItsShape) {
    for (const char* name : {"marked", "selected"}) {
        const QImage image = Icons::Pixmap(name, 48, Qt::black).toImage();
        EXPECT_EQ(image.pixelColor(12, 34).alpha(), 255) << name;
        EXPECT_EQ(image.pixelColor(21, 31).alpha(), 0) << name;
    }
    EXPECT_EQ(Icons::Pixmap("unselected", 48, Qt::black).toImage().pixelColor(21, 31).alpha(), 0);
}

class FontIconTest : public ControlsTest {};

TEST_F(FontIconTest, TakesTheSizeOfItsIcon) {
    FontIcon icon(&m_window);
    icon.SetIcon("tag", 24);
    EXPECT_EQ(icon.size(), QSize(24, 24));
    EXPECT_EQ(icon.IconName(), "tag");
}

TEST_F(FontIconTest, AnEmptyNameShowsNothing) {
    FontIcon icon(&m_window);
    icon.SetIcon("", 24);
    icon.SetForeColor(QColor(Qt::red));
    ShowActive(m_window);
    const QImage image = Grab(m_window);
    EXPECT_FALSE(HasColor(image, icon.geometry(), Qt::red));
    icon.SetIcon("add", 24);
    EXPECT_TRUE(HasColor(Grab(m_window), icon.geometry(), Qt::red));
}

TEST_F(FontIconTest, TheBusyRingTurnsWhileItIsSeen) {
    FontIcon icon(&m_window);
    icon.SetIcon("busy", 28);
    ShowActive(m_window);
    const QImage before = Grab(icon);
    QImage later = before;
    for (int turn = 0; turn < 1000 && later == before; ++turn) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        later = Grab(icon);
    }
    EXPECT_NE(later, before);
    EXPECT_TRUE(HasColor(later, later.rect(), Theme::Get(Theme::Color::Accent)));
}

}  // namespace
}  // namespace quellbrook::testing
