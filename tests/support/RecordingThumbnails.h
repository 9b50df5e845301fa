#pragma once

#include "base/Error.h"
#include "host/ThumbnailReader.h"

#include <string>
#include <vector>

namespace quellbrook::testing {

// Answers with the name that it was asked for, marked, or with a sentence; keeps what it was asked.
class RecordingThumbnails : public ThumbnailReader {
public:
    std::vector<std::string> asked;
    std::string sentence;

    std::string Read(const std::string& path) override {
        asked.push_back(path);
        if (!sentence.empty()) Raise(ErrorNumber::General, "RecordingThumbnails.Read", sentence);
        return path + ".thumbnail";
    }
};

}  // namespace quellbrook::testing
