#pragma once

#include <QString>

namespace quellbrook {

// One step of a tour in tour.json.
struct TourStep {
    QString name;
    QString picture;  // file name beside tour.json
    bool held = false;
    QString said;  // what was seen, in sentences; the last one is the failure, if any
};

}  // namespace quellbrook
