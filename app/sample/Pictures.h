#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

namespace quellbrook::sample {

// The drawn pictures that the attachments of items name. All departments share them: what one shows follows from its
// name alone.

// The folders of attachments. They are relative: they lie in the directory in which the database file stands.
inline constexpr const char* PropertyPictures = "Pictures/Property";
inline constexpr const char* VehiclePictures = "Pictures/Vehicles";

// How many pictures there are of each category of property.
inline constexpr int32_t PicturesOfACategory = 3;

// The name of the file in the folder. Any number of a view, from 0 on, has a picture; a category that is not known or
// no longer in use shows a box or a car, and a colour that is not known is white.
std::string PropertyPictureName(int32_t category, int32_t view);
std::string VehiclePictureName(int32_t category, const std::string& colour);

struct PictureFile {
    std::string path;  // with its folder
    std::string bytes;
};
std::vector<PictureFile> DrawPictures();

// The picture files below a directory. What was written goes again at destruction, unless it is kept.
class PictureFiles {
public:
    explicit PictureFiles(std::filesystem::path directory) : m_directory(std::move(directory)) {}
    ~PictureFiles();
    PictureFiles(const PictureFiles&) = delete;
    PictureFiles& operator=(const PictureFiles&) = delete;

    // Writes those that do not stand there yet, each of them whole or not at all. Error 5 with a sentence.
    void Write();
    void Keep() { m_written.clear(); }

private:
    void MakeFolder(const std::filesystem::path& folder, std::error_code& failure);
    void WriteFile(const std::filesystem::path& path, const std::string& bytes, std::error_code& failure);

    std::filesystem::path m_directory;
    std::vector<std::filesystem::path> m_written;  // directories stand before what is in them
};

}  // namespace quellbrook::sample
