#pragma once

#include "app/records/Record.h"

#include <QString>

#include <vector>

namespace quellbrook {

// The texts of a record page.

QString ToShown(const std::string& text);  // with "\r\n" as "\n"
QString KindOf(const RecordAddress& address);
QString DateOf(const CustodyStep& step);  // date and time in the host's formats
QString QuantityOf(const Record& record);
QString ValueOf(const Record& record);  // in the host's currency
// "2026-0417", "2026-0417 (case 26-118)"
QString NumberOf(const RecordIncident& incident);

struct RecordField {
    const char* name;  // of its label
    QString caption;
    QString text;  // empty if nothing was entered
};
struct RecordSection {
    QString caption;
    std::vector<RecordField> fields;
};

// All fields of the record except its incidents and its chain of custody.
std::vector<RecordSection> SectionsOf(const Record& record);

}  // namespace quellbrook
