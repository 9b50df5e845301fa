#include "app/common/PlainLabels.h"
#include "app/records/PictureLabel.h"
#include "app/records/RecordPage.h"
#include "base/Environment.h"
#include "database/SqliteEngine.h"
#include "host/DatabaseSession.h"
#include "host/HostServices.h"
#include "tests/app/SampleCopyTest.h"
#include "tests/support/HostileTexts.h"
#include "tests/support/ui/QtTestMain.h"
#include "tests/support/ui/ScaledProcess.h"
#include "tests/support/ui/Widgets.h"
#include "ui/platform/Pictures.h"

#include <QAccessible>
#include <QDir>
#include <QScrollArea>
#include <QScrollBar>
#include <QTreeWidget>

#include <chrono>
#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quellbrook::testing {

namespace {

using ::testing::ElementsAre;

// Pages over a copy of the sample department.
class RecordPageTest : public SampleCopyTest {
protected:
    void SetUp() override {
        SampleCopyTest::SetUp();
        m_environment->loadPicture = ReadPicture;
        HostServices::Current().SetThumbnails(std::make_shared<PictureAttachments>(m_directory.Path()));
        LogIn(SampleAccounts()[0]);
    }

    void TearDown() override {
        m_page.reset();
        HostServices::Current().SetThumbnails(nullptr);
        SampleCopyTest::TearDown();
    }

    static void LogIn(const SampleAccount& account) {
        const auto session = std::make_shared<DatabaseSession>();
        session->Login(account.username, account.password, "");
        HostServices::Current().SetSession(session);
    }

    int32_t NumberOf(const std::string& propertyId) {
        return m_database->execAndGet("SELECT PropertyNo FROM Property WHERE PropertyID = '" + propertyId + "'");
    }

    RecordPage& Open(RecordKind kind, int32_t number) {
        m_page = std::make_unique<RecordPage>(RecordAddress{kind, number});
        m_page->resize(1280, 760);
        m_page->Load();
        ShowActive(*m_page);
        return *m_page;
    }
    RecordPage& OpenLaptop() { return Open(RecordKind::Property, NumberOf("2026-0417-03")); }

    // Files the only attachment of the laptop.
    void Attach(const char* name) {
        const std::string number = std::to_string(NumberOf("2026-0417-03"));
        m_database->exec("DELETE FROM AttachmentIndex WHERE ObjTypeInd = 6 AND IdNo = " + number +
                         "; INSERT OR IGNORE INTO AttachmentFolder (FolderNo, Path) VALUES (99, 'Photos')"
                         "; INSERT INTO AttachmentIndex (IdNo, ObjTypeInd, SeqNo, FolderNo, FileName) VALUES (" +
                         number + ", 6, 1, 99, '" + name +
                         "')"
                         "; UPDATE Property SET CurrImageSeq = 1 WHERE PropertyNo = " +
                         number);
    }
    QString PhotoFile(const char* name) const {
        QDir(QString::fromStdString(m_directory.Path())).mkpath("Photos");
        return QString::fromStdString(m_directory.Path()) + "/Photos/" + name;
    }
    PictureLabel* OpenLaptopWith(const QImage& photo) {
        Attach("photo.png");
        EXPECT_TRUE(photo.save(PhotoFile("photo.png")));
        return Find<PictureLabel>(OpenLaptop(), "picture");
    }
    QRect OnPage(const QWidget* widget) const { return {widget->mapTo(m_page.get(), QPoint(0, 0)), widget->size()}; }

    std::string Text(const char* name) const { return Find<QLabel>(*m_page, name)->text().toStdString(); }
    std::vector<std::string> Incidents() const {
        std::vector<std::string> texts;
        for (const QLabel* label : FindAll<QLabel>(*m_page, "incident")) texts.push_back(label->text().toStdString());
        return texts;
    }
    std::string Row(int row) const {
        const auto* table = Find<QTreeWidget>(*m_page, "custody");
        QStringList cells;
        for (int column = 0; column < table->columnCount(); ++column) cells << table->topLevelItem(row)->text(column);
        return cells.join(" | ").toStdString();
    }

    EnvironmentScope m_environment;
    std::unique_ptr<RecordPage> m_page;
};

QImage MakePhoto(const QSize& size, const QColor& color = Qt::darkCyan) {
    QImage photo(size, QImage::Format_RGB32);
    photo.fill(color);
    return photo;
}

// Columns of black and white, one pixel each.
QImage MakeStripes(const QSize& size) {
    QImage stripes(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x) stripes.setPixel(x, y, x % 2 == 0 ? 0xFF000000 : 0xFFFFFFFF);
    return stripes;
}

}  // namespace

TEST_F(RecordPageTest, PropertyIsShownFieldByField) {
    m_database->exec(
        "UPDATE Property SET Quantity = 1500, PropertyValue = 850, ManufacNbr = 'Brandtmoor', ModelNbr = "
        "'BX-40', SerialNbr = '4Q17-088213' WHERE PropertyID = '2026-0417-03'");
    OpenLaptop();
    EXPECT_EQ(Text("title"), "2026-0417-03");
    EXPECT_EQ(Text("identifier"), "2026-0417-03");
    EXPECT_EQ(Text("kind"), "Property");
    EXPECT_EQ(Text("description"), "Laptop computer, silver, with charger");
    EXPECT_EQ(Text("category"), "Electronics");
    EXPECT_EQ(Text("quantity"), QLocale().toString(1500.0, 'f', 0).toStdString());
    EXPECT_EQ(Text("value"), "$850.00");
    EXPECT_EQ(Text("make"), "Brandtmoor");
    EXPECT_EQ(Text("model"), "BX-40");
    EXPECT_EQ(Text("serialNumber"), "4Q17-088213");
    EXPECT_EQ(Text("status"), "In Storage");
    EXPECT_EQ(Text("statusTag"), "In Storage");
    EXPECT_EQ(Text("location"), "Property Room > Aisle 3 > Shelf B");
    EXPECT_EQ(Text("finalDisposition"), "None yet");
    EXPECT_EQ(Text("dispositionNote"), "Not recorded");
}

TEST_F(RecordPageTest, AVehicleHasItsOwnFields) {
    Open(RecordKind::Vehicle, m_database->execAndGet("SELECT VehicleNo FROM Vehicle WHERE RegNumber = 'KTR4821'"));
    EXPECT_EQ(m_page->Title().left(15), "Vehicle KTR4821");
    EXPECT_EQ(Text("kind"), "Vehicle");
    EXPECT_NE(Text("year"), "Not recorded");
    EXPECT_NE(Text("color"), "Not recorded");
    EXPECT_NE(Text("make"), "Not recorded");
    EXPECT_EQ(m_page->findChild<QLabel*>("serialNumber"), nullptr);
    EXPECT_EQ(m_page->findChild<QLabel*>("quantity"), nullptr);
}

TEST_F(RecordPageTest, ThePictureIsAboveTheFields) {
    const PictureLabel* picture = OpenLaptopWith(MakePhoto({300, 150}));
    ASSERT_NE(picture, nullptr);
    EXPECT_TRUE(picture->isVisible());
    EXPECT_EQ(picture->size(), QSize(302, 152)) << "as large as it is, with its frame";
    EXPECT_EQ(OnPage(picture).left(), 20);
    EXPECT_LT(OnPage(picture).bottom(), OnPage(Find(*m_page, "identifier")).top());
    EXPECT_EQ(picture->accessibleName(), "Picture of 2026-0417-03");
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(const_cast<PictureLabel*>(picture));
    EXPECT_EQ(accessible->role(), QAccessible::Graphic);
    EXPECT_EQ(PixelAt(Grab(*m_page), OnPage(picture).center()), QColor(Qt::darkCyan));
    EXPECT_EQ(m_page->findChild<QWidget*>("noPicture"), nullptr);
}

TEST_F(RecordPageTest, PicturesFitTheColumnAndKeepTheirProportions) {
    for (const QSize& size : {QSize(1600, 1200), QSize(1200, 1600), QSize(3000, 300), QSize(20, 900), QSize(2, 1000)}) {
        SCOPED_TRACE(std::to_string(size.width()) + " x " + std::to_string(size.height()));
        const PictureLabel* picture = OpenLaptopWith(MakePhoto(size));
        ASSERT_NE(picture, nullptr);
        EXPECT_LE(picture->height(), 200);
        EXPECT_LE(OnPage(picture).right(), 380 - 20);
        const QSizeF shown = picture->size() - QSize(2, 2);
        EXPECT_NEAR(shown.width(), std::max(1.0, shown.height() * size.width() / size.height()), 6);
        EXPECT_TRUE(shown.height() > 190 || shown.width() > 300) << "as large as there is room";
        EXPECT_EQ(Find<QScrollArea>(*m_page, "fields")->horizontalScrollBar()->maximum(), 0);
    }
}

TEST_F(RecordPageTest, ThePictureUsesAllDevicePixels) {
    const PictureLabel* picture = OpenLaptopWith(MakeStripes({396, 396}));
    ASSERT_NE(picture, nullptr);
    ASSERT_EQ(picture->size(), QSize(200, 200));
    const QImage page = Grab(*m_page);
    const QPoint middle = OnPage(picture).center() * page.devicePixelRatio();
    const auto pixel = [&](int x) { return page.pixelColor(middle + QPoint(x, 0)).lightness(); };
    const int difference = std::abs(pixel(0) - pixel(1));
    if (page.devicePixelRatio() == 2)
        EXPECT_EQ(difference, 255);
    else
        EXPECT_LT(difference, 64) << "two columns in one pixel";
}

TEST(RecordPageAtScaleTwo, ThePictureUsesAllDevicePixels) {
    ExpectTheSameAtScaleTwo("RecordPageTest.ThePicture*", "RecordPageTest.ThePictureUsesAllDevicePixels");
}

TEST_F(RecordPageTest, ATransparentPictureHasAWhiteBackground) {
    QImage photo({40, 40}, QImage::Format_ARGB32);
    photo.fill(Qt::transparent);
    const PictureLabel* picture = OpenLaptopWith(photo);
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(PixelAt(Grab(*m_page), OnPage(picture).center()), QColor(Qt::white));
}

TEST_F(RecordPageTest, APictureOfAnItemWithoutAnIdentifierIsNamedByItsNumber) {
    const int32_t number = NumberOf("2026-0417-03");
    Attach("photo.png");
    ASSERT_TRUE(MakePhoto({40, 40}).save(PhotoFile("photo.png")));
    m_database->exec("UPDATE Property SET PropertyID = NULL WHERE PropertyNo = " + std::to_string(number));
    Open(RecordKind::Property, number);
    EXPECT_EQ(Find(*m_page, "picture")->accessibleName(), "Picture of Property " + QString::number(number));
}

TEST_F(RecordPageTest, WithoutAPictureNoSpaceIsUsed) {
    Attach("photo.png");
    OpenLaptop();
    const int below = OnPage(Find(*m_page, "identifier")).top();
    m_database->exec("UPDATE Property SET CurrImageSeq = NULL");
    OpenLaptop();
    EXPECT_EQ(m_page->findChild<QWidget*>("picture"), nullptr);
    EXPECT_EQ(m_page->findChild<QWidget*>("noPicture"), nullptr);
    EXPECT_LT(OnPage(Find(*m_page, "identifier")).top(), below);
    const auto* firstCaption = Find(*m_page, "fields")->findChild<QLabel*>();
    EXPECT_EQ(OnPage(firstCaption).top(), 77 + 20) << "right below the heading's rule";
}

TEST_F(RecordPageTest, AMissingPictureIsReportedAndTheRestIsShown) {
    Attach("photo.png");
    OpenLaptop();
    EXPECT_EQ(Text("noPicture"), "The attachment 'Photos/photo.png' can't be found.");
    EXPECT_EQ(m_page->findChild<QWidget*>("picture"), nullptr);
    EXPECT_EQ(Text("description"), "Laptop computer, silver, with charger");
    EXPECT_EQ(Find<QTreeWidget>(*m_page, "custody")->topLevelItemCount(), 8);
}

TEST_F(RecordPageTest, AnAttachmentThatIsNotAPictureIsReported) {
    Attach("letter.txt");
    std::ofstream(PhotoFile("letter.txt").toStdString()) << "Dear all";
    OpenLaptop();
    EXPECT_EQ(Text("noPicture"), "The attachment 'Photos/letter.txt' is not a picture.");
    std::ofstream(PhotoFile("letter.txt").toStdString()) << "\x89PNG\r\n\x1a\n and nothing behind";
    m_page->Load();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Text("noPicture").rfind("The picture '", 0), 0u) << Text("noPicture");
    EXPECT_EQ(Text("identifier"), "2026-0417-03");
}

TEST_F(RecordPageTest, AChangedPictureIsShownAtTheNextLoad) {
    QPointer<PictureLabel> picture = OpenLaptopWith(MakePhoto({100, 80}));
    m_page->Load();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_FALSE(picture.isNull()) << "nothing has changed";
    const std::filesystem::path file = PhotoFile("photo.png").toStdString();
    const auto before = std::filesystem::last_write_time(file);
    ASSERT_TRUE(MakePhoto({60, 40}).save(PhotoFile("photo.png")));
    std::filesystem::last_write_time(file, before + std::chrono::hours(1));
    m_page->Load();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Find(*m_page, "picture")->size(), QSize(62, 42));
    std::filesystem::remove(file);
    m_page->Load();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Text("noPicture"), "The attachment 'Photos/photo.png' can't be found.");
}

TEST_F(RecordPageTest, TheHostsFormatsAreUsed) {
    m_database->exec("UPDATE Property SET PropertyValue = 1234.5 WHERE PropertyID = '2026-0417-03'");
    HostFormats formats;
    formats.currency = "EUR %d";
    formats.date = "yyyy-MM-dd";
    formats.time = "HH:mm";
    HostServices::Current().SetFormats(formats);
    OpenLaptop();
    HostServices::Current().SetFormats({});
    EXPECT_EQ(Text("value"), "EUR " + QLocale().toString(1234.5, 'f', 2).toStdString());
    EXPECT_EQ(Row(0).substr(0, 16), "2026-11-18 14:42");
}

TEST_F(RecordPageTest, TheChainIsListedNewestFirstWithFullPaths) {
    OpenLaptop();
    EXPECT_EQ(Find<QTreeWidget>(*m_page, "custody")->topLevelItemCount(), 8);
    EXPECT_EQ(Row(0),
              "11/18/2026 2:42 PM | Returned from analysis | Brandt, Tomas | Raman, Priya | "
              "Property Room > Aisle 3 > Shelf B");
    EXPECT_EQ(Row(1),
              "10/30/2026 9:05 AM | Laboratory analysis | Raman, Priya | Brandt, Tomas | "
              "Crime Lab > Digital Forensics");
    EXPECT_EQ(Row(5),
              "09/16/2026 1:07 PM | Storage reorganization | Oyelaran, Marcus | Not specified | "
              "Property Room > Aisle 1 > Shelf C");
    EXPECT_EQ(Row(7), "09/14/2026 11:52 PM | Collected at scene | Whitfield, Dana | Whitfield, Dana | Pending Review");
}

TEST_F(RecordPageTest, AnItemThatWasNeverTrackedHasNoTable) {
    Open(RecordKind::Property, NumberOf("2026-0431-03"));
    EXPECT_EQ(m_page->findChild<QTreeWidget*>("custody"), nullptr);
    EXPECT_EQ(Text("noCustody"), "Nothing has been entered yet.");
    EXPECT_EQ(Text("status"), "Not in Storage");
}

TEST_F(RecordPageTest, SecuredIncidentsNeedARight) {
    const int32_t number = NumberOf("2026-0417-01");
    Open(RecordKind::Property, number);
    EXPECT_THAT(Incidents(), ElementsAre("2026-0388 (case C-26-1090), secured", "2026-0417 (case C-26-1182)"));
    LogIn(SampleAccounts()[1]);
    Open(RecordKind::Property, number);
    EXPECT_THAT(Incidents(), ElementsAre("2026-0417 (case C-26-1182)"));
}

TEST_F(RecordPageTest, AUserWithoutTheRightSeesASentenceInsteadOfTheRecord) {
    m_database->exec("DELETE FROM AccountRight WHERE Username = 'custodian' AND ModuleKey = 'MIProperty'");
    OpenLaptop();
    EXPECT_EQ(Text("refusal"), "You do not have the appropriate permissions to view property.");
    EXPECT_EQ(m_page->findChildren<QLabel*>().size(), 1);
    EXPECT_EQ(m_page->findChild<QTreeWidget*>("custody"), nullptr);
    EXPECT_EQ(m_page->Title(), "Property " + QString::number(NumberOf("2026-0417-03")));
}

TEST_F(RecordPageTest, AUserWithoutTheRightSeesASentenceInsteadOfTheChain) {
    m_database->exec("DELETE FROM AccountRight WHERE Username = 'custodian' AND ModuleKey = 'Storage' AND Value = 0");
    OpenLaptop();
    EXPECT_EQ(m_page->findChild<QTreeWidget*>("custody"), nullptr);
    EXPECT_EQ(Text("noCustody"), "You do not have the appropriate permissions to view chain-of-custody information.");
    EXPECT_EQ(Text("identifier"), "2026-0417-03");
}

TEST_F(RecordPageTest, AnUnknownNumberIsReported) {
    Open(RecordKind::Vehicle, 42);
    EXPECT_EQ(Text("refusal"), "There is no vehicle with the number 42.");
    EXPECT_EQ(m_page->Title(), "Vehicle 42");
}

TEST_F(RecordPageTest, ARecordThatCannotBeReadIsReportedAndLogged) {
    m_database->exec("PRAGMA foreign_keys = OFF; ALTER TABLE Property RENAME COLUMN DisposalNote TO Note");
    TestErrorLog().Announce("Row.Value");
    OpenLaptop();
    EXPECT_EQ(Text("refusal").rfind("This record could not be read: ", 0), 0u) << Text("refusal");
}

TEST_F(RecordPageTest, TheTitleHasKindAndIdentifier) {
    EXPECT_EQ(OpenLaptop().Title(), "Property 2026-0417-03");
    EXPECT_EQ(Open(RecordKind::Property, 297).Title(), "Property 297") << "it has no identifier";
    EXPECT_EQ(Text("title"), "<missing ID>");
    EXPECT_EQ(Text("identifier"), "Not recorded");
    m_database->exec("UPDATE Property SET PropertyID = 'a' || char(10) || '  b' WHERE PropertyNo = 297");
    EXPECT_EQ(Open(RecordKind::Property, 297).Title(), "Property a b");
}

TEST_F(RecordPageTest, LoadingAgainRebuildsThePageOnlyAfterAChange) {
    OpenLaptop();
    QPointer<QTreeWidget> table = Find<QTreeWidget>(*m_page, "custody");
    m_page->Load();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(table.isNull());
    m_database->exec("UPDATE Property SET Description = 'Tablet' WHERE PropertyID = '2026-0417-03'");
    m_page->Load();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(table.isNull());
    EXPECT_EQ(Text("description"), "Tablet");
}

TEST_F(RecordPageTest, RightsAreCheckedAtEachLoad) {
    OpenLaptop();
    m_database->exec("DELETE FROM AccountRight WHERE Username = 'custodian'");
    m_page->Load();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Text("refusal"), "You do not have the appropriate permissions to view property.");
    EXPECT_EQ(m_page->findChild<QLabel*>("identifier"), nullptr);
}

TEST_F(RecordPageTest, HostileTextsAreShownAsTheyAreAndFitThePage) {
    const int32_t number = NumberOf("2026-0417-03");
    for (const HostileText& each : HostileTexts()) {
        SCOPED_TRACE(each.description);
        SQLite::Statement update(*m_database,
                                 "UPDATE Property SET PropertyID = ?, Description = ?, DisposalNote = ?, "
                                 "SerialNbr = ? WHERE PropertyNo = ?");
        for (int column = 1; column <= 4; ++column) update.bind(column, each.text);
        update.bind(5, number);
        update.exec();
        Open(RecordKind::Property, number);
        QString shown = QString::fromStdString(each.text);
        shown.replace("\r\n", "\n");
        for (const char* name : {"title", "identifier", "description", "dispositionNote", "serialNumber"}) {
            const auto* label = Find<QLabel>(*m_page, name);
            EXPECT_EQ(label->text(), shown) << name;
            EXPECT_EQ(label->textFormat(), Qt::PlainText) << name;
            EXPECT_LE(label->mapTo(m_page.get(), QPoint(label->width(), 0)).x(), m_page->width()) << name;
        }
        EXPECT_EQ(m_page->width(), 1280);
    }
}

TEST_F(RecordPageTest, ALongDescriptionLeavesTheIdentifierInSight) {
    m_database->exec("UPDATE Property SET Description = '" + std::string(270, 'W') +
                     "' WHERE PropertyID = '2026-0417-03'");
    OpenLaptop();
    const auto* title = Find<QLabel>(*m_page, "title");
    EXPECT_GE(title->width(), title->sizeHint().width());
}

TEST_F(RecordPageTest, MarkupInTheChainStaysPlainInItsTooltipsToo) {
    m_database->exec("UPDATE StorageLocation SET Name = '<b>Box</b> & co' WHERE Name = 'Shelf B'");
    OpenLaptop();
    const auto* row = Find<QTreeWidget>(*m_page, "custody")->topLevelItem(0);
    EXPECT_EQ(row->text(4), "Property Room > Aisle 3 > <b>Box</b> & co");
    EXPECT_EQ(row->toolTip(4), "<span>Property Room &gt; Aisle 3 &gt; &lt;b&gt;Box&lt;/b&gt; &amp; co</span>");
}

TEST_F(RecordPageTest, ALongFieldWraps) {
    m_database->exec("UPDATE Property SET SerialNbr = '" + std::string(400, 'W') +
                     "' WHERE PropertyID = '2026-0417-03'");
    OpenLaptop();
    const auto* label = Find<QLabel>(*m_page, "serialNumber");
    EXPECT_GT(label->height(), 10 * QFontMetrics(label->font()).height());
    EXPECT_GT(Find<QScrollArea>(*m_page, "fields")->verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(Find<QScrollArea>(*m_page, "fields")->horizontalScrollBar()->maximum(), 0);
}

TEST_F(RecordPageTest, ALongChainScrollsToItsEnd) {
    const int32_t number = NumberOf("2026-0417-03");
    m_database->exec(
        "WITH RECURSIVE n(i) AS (SELECT 100 UNION ALL SELECT i + 1 FROM n WHERE i < 2099) INSERT INTO "
        "PropertyTracking (PropertyNo, SeqNo, DateReceived, LastUpdated) SELECT " +
        std::to_string(number) + ", i, '2020-01-01T00:00:00.000', '2020-01-01T00:00:00.000' FROM n");
    OpenLaptop();
    auto* table = Find<QTreeWidget>(*m_page, "custody");
    ASSERT_EQ(table->topLevelItemCount(), 2008);
    table->scrollToBottom();
    const QRect last = table->visualItemRect(table->topLevelItem(2007));
    EXPECT_GE(last.top(), 0);
    EXPECT_LE(last.bottom(), table->viewport()->height());
    EXPECT_EQ(Row(2007).rfind("01/01/2020", 0), 0u);
}

TEST_F(RecordPageTest, ThePageWorksByKeyboardAlone) {
    OpenLaptop();
    m_page->setFocus();
    auto* table = Find<QTreeWidget>(*m_page, "custody");
    auto* fields = Find<QScrollArea>(*m_page, "fields");
    QWidget* first = QApplication::focusWidget();
    EXPECT_TRUE(first == table || first == fields);
    Press(Qt::Key_Tab);
    EXPECT_NE(QApplication::focusWidget(), first);
    table->setFocus();
    Press(Qt::Key_End);
    EXPECT_EQ(table->currentIndex().row(), 7);
    EXPECT_EQ(table->accessibleName(), "Chain of custody");
    EXPECT_EQ(Find(*m_page, "category")->accessibleName(), "Category: Electronics");
}

}  // namespace quellbrook::testing
