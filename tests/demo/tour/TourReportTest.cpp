#include "base/Error.h"
#include "demo/tour/TourReport.h"
#include "tests/demo/sample/SampleFile.h"
#include "tests/support/ScratchFolder.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace quellbrook::testing {

TEST(TourReport, ContainsStepsAndRowsByName) {
    const ScratchFolder directory;
    const QString path = QString::fromStdString(directory.Path()) + "/tour.json";
    const Row row = Row::Of({{"PropertyNo", 7}, {"ReceivedBy", Null()}, {"DateReceived", "2026-11-20T10:00:00.000"}});
    WriteTourReport(path, {{"login", "01-login.png", true, "Seen."}, {"menu", "02-menu.png", false, "Not seen."}},
                    {row});

    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QJsonObject report = QJsonDocument::fromJson(file.readAll()).object();
    const QJsonArray steps = report["steps"].toArray();
    ASSERT_EQ(steps.size(), 2);
    EXPECT_EQ(steps[0].toObject(),
              (QJsonObject{{"name", "login"}, {"picture", "01-login.png"}, {"held", true}, {"said", "Seen."}}));
    EXPECT_FALSE(steps[1].toObject()["held"].toBool(true));
    const QJsonArray custody = report["custody"].toArray();
    ASSERT_EQ(custody.size(), 1);
    EXPECT_EQ(custody[0].toObject()["PropertyNo"].toInt(), 7);
    EXPECT_TRUE(custody[0].toObject()["ReceivedBy"].isNull());
    EXPECT_EQ(custody[0].toObject()["DateReceived"].toString(), "2026-11-20T10:00:00.000");
}

TEST(TourReport, AReportThatCannotBeWrittenIsAnError) {
    const ScratchFolder directory;
    EXPECT_THROW(WriteTourReport(QString::fromStdString(directory.Path()) + "/absent/tour.json", {}, {}), Error);
}

}  // namespace quellbrook::testing
