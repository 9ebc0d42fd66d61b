#pragma once

#include <filesystem>

namespace numbrela {

class Clock;

// The shopping window and the catalogue editor open one another, each in place of itself. The clock outlives both.

// Opens the shopping window with a fresh task from this catalogue. When it is not modal, the main menu works beside it.
void ShowShopping(const Clock& clock, const std::filesystem::path& catalogue, bool modally);

// Opens the editor of this catalogue, modally. When the catalogue cannot be read, says why and opens the shopping
// window.
void ShowEditor(const Clock& clock, const std::filesystem::path& catalogue);

} // namespace numbrela
