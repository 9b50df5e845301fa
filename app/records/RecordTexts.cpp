#include "app/records/RecordTexts.h"

#include "host/HostServices.h"

#include <QCoreApplication>
#include <QDate>
#include <QLocale>
#include <QTime>

namespace quellbrook {

namespace {

QString Tr(const char* text) { return QCoreApplication::translate("RecordPage", text); }

QString NumberText(const TaggedValue& value, int decimals) {
    return value.HasNoValue() ? QString() : QLocale().toString(ToDouble(value), 'f', decimals);
}

RecordSection BasicInformation(const Record& record) {
    RecordSection section{Tr("Basic Information"),
                          {{"identifier", Tr("Identifier"), ToShown(record.identifier)},
                           {"kind", Tr("Kind"), KindOf(record.address)},
                           {"description", Tr("Description"), ToShown(record.description)},
                           {"category", Tr("Category"), ToShown(record.category)}}};
    if (record.address.kind == RecordKind::Property) {
        section.fields.push_back({"quantity", Tr("Quantity"), QuantityOf(record)});
        section.fields.push_back({"value", Tr("Value"), ValueOf(record)});
    } else {
        section.fields.push_back({"year", Tr("Year"), ToShown(record.year)});
        section.fields.push_back({"color", Tr("Color"), ToShown(record.color)});
    }
    return section;
}

RecordSection Identifiers(const Record& record) {
    RecordSection section{Tr("Identifiers"),
                          {{"make", Tr("Make"), ToShown(record.make)}, {"model", Tr("Model"), ToShown(record.model)}}};
    if (record.address.kind == RecordKind::Property)
        section.fields.push_back({"serialNumber", Tr("Serial #"), ToShown(record.serialNumber)});
    return section;
}

}  // namespace

QString ToShown(const std::string& text) { return QString::fromStdString(text).replace("\r\n", "\n"); }

QString KindOf(const RecordAddress& address) {
    return address.kind == RecordKind::Property ? Tr("Property") : Tr("Vehicle");
}

QString DateOf(const CustodyStep& step) {
    if (!step.received) return {};
    const DateTime::Parts parts = step.received->ToParts();
    const HostFormats& formats = HostServices::Current().Formats();
    const QLocale locale;
    return locale.toString(QDate(parts.year, parts.month, parts.day), QString::fromStdString(formats.date)) + " " +
           locale.toString(QTime(parts.hour, parts.minute, parts.second), QString::fromStdString(formats.time));
}

QString QuantityOf(const Record& record) { return NumberText(record.quantity, QLocale::FloatingPointShortest); }

QString ValueOf(const Record& record) {
    if (record.value.HasNoValue()) return {};
    QString currency = QString::fromStdString(HostServices::Current().Formats().currency);
    return currency.replace("%d", NumberText(record.value, 2));
}

QString NumberOf(const RecordIncident& incident) {
    const QString number = ToShown(incident.number);
    return incident.caseNumber.empty() ? number : Tr("%1 (case %2)").arg(number, ToShown(incident.caseNumber));
}

std::vector<RecordSection> SectionsOf(const Record& record) {
    const QString disposition = ToShown(record.finalDisposition);
    return {BasicInformation(record),
            Identifiers(record),
            {Tr("Where It Is"),
             {{"status", Tr("Status"), ToShown(record.status.caption)},
              {"location", Tr("Location"), ToShown(record.location)}}},
            {Tr("Final Disposition"),
             {{"finalDisposition", Tr("Disposition"), record.hasFinalDisposition ? disposition : Tr("None yet")},
              {"dispositionNote", Tr("Note"), ToShown(record.dispositionNote)}}}};
}

}  // namespace quellbrook
