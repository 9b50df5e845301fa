#pragma once

#include <filesystem>
#include <string>

namespace quellbrook {

// Finds the picture of an attachment.
class ThumbnailReader {
public:
    virtual ~ThumbnailReader() = default;

    // The name of the picture file for the full name of an attachment's file. Error 5 with a sentence if there is
    // none.
    virtual std::string Read(const std::string& path) = 0;
};

// Uses attachments that are pictures themselves. A relative path starts at the directory.
class PictureAttachments : public ThumbnailReader {
public:
    explicit PictureAttachments(std::filesystem::path directory) : m_directory(std::move(directory)) {}

    std::string Read(const std::string& path) override;

private:
    std::filesystem::path m_directory;
};

}  // namespace quellbrook
