#pragma once

#include <QString>

namespace quellbrook {

// One step of a tour as tour.json tells it.
struct TourStep {
    QString name;
    QString picture;  // file name beside tour.json
    bool held = false;
    QString said;  // what was seen, sentence by sentence; the last one is what did not hold
};

}  // namespace quellbrook
