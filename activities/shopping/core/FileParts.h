#pragma once

#include "activities/shopping/core/CatalogueFile.h"
#include "common/core/RunTimeError.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <span>
#include <string>

// What the files behind CatalogueFile.h for the different systems share.
namespace numbrela {

// What stands behind the name of a catalogue while its successor is not yet in its place. Not every file system puts
// one file into the place of another in one step: on a stick with FAT, the old file may be gone before the new one has
// its name. So the new file first gets a name that says that it is whole, and is read by that name when the old one is
// gone.
inline constexpr const char* NewNameMark = ".nuevo-"; // being written; followed by the process id
inline constexpr const char* CompleteNameMark = ".completo"; // whole and on the disk

// Why something cannot be done, as far as several systems can say it.
namespace Reason {

inline constexpr const char* NoFolder = "la carpeta no existe";
inline constexpr const char* NoRight = "no hay permiso";
inline constexpr const char* ReadOnlyFile = "el archivo es de solo lectura";
inline constexpr const char* ReadOnlyDisk = "el disco es de solo lectura";
inline constexpr const char* DiskFull = "el disco está lleno";
inline constexpr const char* DiskFails = "el disco falla";
inline constexpr const char* TooLarge = "el archivo sería demasiado grande";
inline constexpr const char* IsFolder = "es una carpeta";
inline constexpr const char* NoDataFile = "no es un archivo de datos";
inline constexpr const char* NameTooLong = "el nombre es demasiado largo";
inline constexpr const char* BeingSaved = "otro programa lo está guardando";

// The words are the system's own; it may have none.
inline std::string Unknown(long long number, const std::string& words)
{
    return "error " + std::to_string(number) + " del sistema" + (words.empty() ? "" : " (" + words + ")");
}

} // namespace Reason

[[noreturn]] inline void FailAt(const std::filesystem::path& path, const char* action, const std::string& reason)
{
    throw RunTimeError(RunTimeError::Kind::File,
        std::string("No se puede ") + action + " el archivo «" + TextOf(path) + "»: " + reason + ".");
}

inline std::filesystem::path FolderOf(const std::filesystem::path& path)
{
    return path.has_parent_path() ? path.parent_path() : std::filesystem::path(".");
}

inline std::filesystem::path CompleteNameOf(const std::filesystem::path& path)
{
    return std::filesystem::path(path) += CompleteNameMark;
}

// Removes the new files that stopped saves of this file have left, besides the one that is about to be written. A file
// younger than a minute may be another system's, which does not see the lock. What cannot be removed does no harm.
inline void RemoveLeftovers(const std::filesystem::path& path, const std::filesystem::path& newName)
{
    constexpr std::chrono::minutes longestSave(1);
    using Text = std::filesystem::path::string_type;
    const auto isDigit = [](auto character) { return character >= '0' && character <= '9'; };
    const Text beginning = (path.filename() += NewNameMark).native();
    std::error_code fails; // ends the loop when the folder or an entry cannot be read
    for (std::filesystem::directory_iterator entry(FolderOf(path), fails), end; !fails && entry != end;
         entry.increment(fails)) {
        const std::filesystem::path name = entry->path().filename();
        const bool isNewFile = name.native().size() > beginning.size()
            && name.native().compare(0, beginning.size(), beginning) == 0
            && std::all_of(
                name.native().begin() + static_cast<std::ptrdiff_t>(beginning.size()), name.native().end(), isDigit);
        std::error_code ignored;
        if (isNewFile
            && (name == newName.filename()
                || std::filesystem::file_time_type::clock::now() - entry->last_write_time(ignored) > longestSave)) {
            std::filesystem::remove(entry->path(), ignored);
        }
    }
}

// Fills the buffer as far as the file reaches, and returns the number of bytes. `read` fills a part of it and returns
// the number of bytes, 0 at the end of the file.
template <typename Read>
std::size_t Fill(std::span<char> buffer, Read read)
{
    std::size_t filled = 0;
    std::size_t count = 1;
    while (filled < buffer.size() && count > 0) {
        count = read(buffer.subspan(filled));
        filled += count;
    }
    return filled;
}

// All bytes of a file up to its end.
template <typename Read>
std::string ReadToEnd(Read read)
{
    constexpr std::size_t atATime = 1U << 20U;
    std::string content;
    std::size_t filled = atATime;
    while (filled == atATime) {
        const std::size_t before = content.size();
        content.resize(before + atATime);
        filled = Fill(std::span(content).subspan(before), read);
        content.resize(before + filled);
    }
    return content;
}

} // namespace numbrela
