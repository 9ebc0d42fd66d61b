#pragma once

#include "activities/shopping/core/CatalogueFile.h"

#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <span>
#include <string>

// What is done with files alike on the disk and in a browser, whose files in memory answer the same calls.
namespace numbrela {

// The reason for one of the system's error numbers.
std::string ReasonOf(int error);

// Throws, with the reason that the last call has left behind.
[[noreturn]] void FailTo(const char* action, const std::filesystem::path& path);

// Opens what CatalogueReader is to read, or returns -1. Each system finds or makes that in a way of its own.
int OpenOrCreate(const std::filesystem::path& path);

// Repeats a call that a signal has interrupted.
template <typename Call>
auto UntilDone(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

// What reads a part of the file and can say that this is a part of the action.
inline auto ReaderOf(const Descriptor& file, const char* action, const std::filesystem::path& path)
{
    return [&file, action, &path](std::span<char> buffer) {
        const ssize_t count = UntilDone([&] { return ::read(file.Number(), buffer.data(), buffer.size()); });
        if (count < 0) {
            FailTo(action, path);
        }
        return static_cast<std::size_t>(count);
    };
}

} // namespace numbrela
