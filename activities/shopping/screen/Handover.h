#pragma once

#include <filesystem>

class QWidget;

namespace numbrela {

class Clock;

// The shopping window and the catalogue editor open one another, each in place of itself and as large: maximised or
// full-screen where the other one was. The clock outlives both.

// Opens the shopping window with a fresh task from this catalogue in place of the window `before`. When it is not
// modal, the main menu works beside it.
void ShowShopping(const QWidget& before, const Clock& clock, const std::filesystem::path& catalogue, bool modally);

// Opens the editor of this catalogue in place of the window `before`, modally. When the catalogue cannot be read, says
// why and opens the shopping window.
void ShowEditor(const QWidget& before, const Clock& clock, const std::filesystem::path& catalogue);

} // namespace numbrela
