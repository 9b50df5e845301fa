#pragma once

#include "base/Error.h"
#include "host/ThumbnailReader.h"

#include <string>
#include <vector>

namespace quellbrook::testing {

// Returns the requested name with a suffix, or fails with a sentence; records the requests.
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
