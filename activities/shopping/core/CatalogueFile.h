#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <string>

// The catalogue's bytes on the disk, and everything about them that depends on the operating system. What the bytes
// mean is not known here. Failures are RunTimeError::File with the file's name and the reason, in Spanish.
namespace numbrela {

// All bytes of a catalogue file; nothing when there is no such file.
using CatalogueContent = std::optional<std::string>;

// The name of a file as people read it, in UTF-8, with a mark in the place of what is no text.
std::string TextOf(const std::filesystem::path& path);

// An open file that closes itself. The number is its file descriptor or, on Windows, its handle, of which the system
// uses 32 bits.
class Descriptor {
public:
    explicit Descriptor(int number)
        : number_(number)
    {
    }
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Number() const { return number_; }
    bool IsOpen() const { return number_ >= 0; }

    void Close();

private:
    int number_;
};

// Reads the file from its beginning, or in its stead the one that a save had put whole beside it when it was stopped
// and the old one was gone. If there is neither, an empty file is created.
class CatalogueReader {
public:
    explicit CatalogueReader(const std::filesystem::path& path);

    // Bytes in the file when it was opened.
    std::size_t Size() const { return size_; }

    // Fills the buffer as far as the file reaches, and returns the number of bytes read.
    std::size_t Read(std::span<char> buffer);

private:
    std::filesystem::path path_;
    Descriptor file_;
    std::size_t size_ = 0;
};

// Writes a new file beside the old one and, when it is all on the disk, puts it into the old one's place. Until then
// the old file is untouched; a replacement that is never committed leaves nothing behind. It locks the folder as long
// as it lives, so no other process can replace the file between the call of Replaced() and the end of Commit(). What a
// stopped save had put whole beside a file that is gone takes the place of that file first. In a browser, whose storage
// replaces whole but knows no lock, there is neither.
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
