#pragma once

#include "activities/shopping/core/CatalogueFile.h"

#include <filesystem>
#include <span>

// How a file on a disk is replaced; each system does it by calls of its own.
namespace numbrela {

// Writes a new file beside the old one and, when it is all on the disk, puts it into the old one's place. Until then
// the old file is untouched; a replacement that is never committed leaves nothing behind. It locks the folder as long
// as it lives, so no other process can replace the file between the call of Replaced() and the end of Commit(). What a
// stopped save had put whole beside a file that is gone takes the place of that file first.
class CatalogueReplacement {
public:
    explicit CatalogueReplacement(const std::filesystem::path& path);
    ~CatalogueReplacement();
    CatalogueReplacement(const CatalogueReplacement&) = delete;
    CatalogueReplacement& operator=(const CatalogueReplacement&) = delete;

    // All bytes of the new file.
    void Write(std::span<const char> bytes);

    // The bytes of the file that is about to be replaced.
    CatalogueContent Replaced() const;

    void Commit();

private:
    // Renames the new file, over one of that name, and brings this to the disk.
    void takeName(const std::filesystem::path& name);

    std::filesystem::path path_;
    std::filesystem::path nameNow_; // of the new file, which at last takes over the name of the old one
    Descriptor folder_; // or what stands for it: it is locked as long as this is open
    Descriptor file_;
};

} // namespace numbrela
