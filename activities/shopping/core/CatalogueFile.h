#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
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

// Puts these bytes into the place of the file's, or makes the file. Whatever happens meanwhile, the file is the old one
// or the new one, whole. Who may refuse is asked first, with the bytes that are about to be replaced; from then on
// nobody else can replace them. Returns whether the file has the new bytes.
using Consent = std::function<bool(CatalogueContent)>;
bool ReplaceCatalogue(const std::filesystem::path& path, const std::string& bytes, const Consent& consent = {});

} // namespace numbrela
