#pragma once

#include "common/core/RunTimeError.h"

#include <cstddef>
#include <filesystem>
#include <optional>
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

[[noreturn]] inline void FailAt(const std::filesystem::path& path, const char* action, const std::string& reason)
{
    throw RunTimeError(RunTimeError::Kind::File,
        std::string("No se puede ") + action + " el archivo «" + path.string() + "»: " + reason + ".");
}

inline std::filesystem::path FolderOf(const std::filesystem::path& path)
{
    return path.has_parent_path() ? path.parent_path() : std::filesystem::path(".");
}

inline std::filesystem::path CompleteNameOf(const std::filesystem::path& path)
{
    return std::filesystem::path(path) += CompleteNameMark;
}

// Calls the action with each entry of the folder that a save of this file has made for its new file.
template <typename Action>
void ForEachNewFile(const std::filesystem::path& path, Action action)
{
    const std::filesystem::path::string_type beginning = (path.filename() += NewNameMark).native();
    std::error_code ends; // set when the folder or an entry cannot be read, which ends the loop
    for (std::filesystem::directory_iterator entry(FolderOf(path), ends), end; !ends && entry != end;
         entry.increment(ends)) {
        const std::filesystem::path::string_type name = entry->path().filename().native();
        if (name.compare(0, beginning.size(), beginning) == 0) {
            action(entry->path(), std::filesystem::path(name.substr(beginning.size())).string());
        }
    }
}

// Fills the buffer as far as the file reaches. `read` fills a part of it and returns the number of bytes, 0 at the end
// of the file, or less if the system cannot read. Returns the number of all bytes, or nothing if the system cannot
// read.
template <typename Read>
std::optional<std::size_t> Fill(std::span<char> buffer, Read read)
{
    std::size_t filled = 0;
    while (filled < buffer.size()) {
        const auto count = read(buffer.subspan(filled));
        if (count < 0) {
            return std::nullopt;
        }
        if (count == 0) {
            break;
        }
        filled += static_cast<std::size_t>(count);
    }
    return filled;
}

// All bytes of a file up to its end, or nothing if the system cannot read.
template <typename Read>
std::optional<std::string> ReadToEnd(Read read)
{
    constexpr std::size_t atATime = 1U << 20U;
    std::string content;
    std::optional<std::size_t> filled = atATime;
    while (filled == atATime) {
        const std::size_t before = content.size();
        content.resize(before + atATime);
        filled = Fill(std::span(content).subspan(before), read);
        if (!filled) {
            return std::nullopt;
        }
        content.resize(before + *filled);
    }
    return content;
}

} // namespace numbrela
