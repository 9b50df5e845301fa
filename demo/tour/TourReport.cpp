#include "demo/tour/TourReport.h"

#include "base/Error.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

namespace quellbrook {

namespace {

QJsonValue ToJson(const TaggedValue& value) {
    if (value.HasNoValue()) return QJsonValue(QJsonValue::Null);
    if (const auto* number = value.If<int32_t>()) return *number;
    if (const auto* flag = value.If<bool>()) return *flag;
    if (const auto* number = value.If<double>()) return *number;
    return QString::fromStdString(ToText(value));
}

QJsonObject ToJson(const Row& row) {
    QJsonObject object;
    int position = 0;
    for (const std::string& name : row.Columns().Names()) {
        object.insert(QString::fromStdString(name), ToJson(row.At(position++)));
    }
    return object;
}

}  // namespace

void WriteTourReport(const QString& path, const std::vector<TourStep>& steps, const RowList& custody) {
    QJsonArray stepArray;
    for (const TourStep& step : steps) {
        stepArray.append(QJsonObject{{QStringLiteral("name"), step.name},
                                     {QStringLiteral("picture"), step.picture},
                                     {QStringLiteral("held"), step.held},
                                     {QStringLiteral("said"), step.said}});
    }
    QJsonArray rowArray;
    for (const Row& row : custody) rowArray.append(ToJson(row));
    const QJsonObject report{{QStringLiteral("steps"), stepArray}, {QStringLiteral("custody"), rowArray}};
    QSaveFile file(path);
    const bool opened = file.open(QIODevice::WriteOnly);
    if (opened) file.write(QJsonDocument(report).toJson());
    if (!opened || !file.commit()) {
        Raise(ErrorNumber::General, "WriteTourReport", "The report '" + path.toStdString() + "' can't be written.");
    }
}

}  // namespace quellbrook
