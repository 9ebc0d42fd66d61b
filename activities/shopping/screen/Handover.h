#pragma once

#include "common/screen/FormWindow.h"

#include <QPointer>

#include <filesystem>

namespace numbrela {

class Clock;

// What the windows of the shopping activity share; it outlives them.
struct Shop {
    std::filesystem::path Catalogue {}; // the file
    QPointer<FormWindow> Window {}; // the shopping window or the editor that was made last; null once it is destroyed
};

// The shopping window and the catalogue editor replace one another; the new one opens maximised or full-screen if the
// old one was. Clock and shop outlive both.

// The shopping window that is open, which the editor may have left beside the main menu; otherwise makes one, with a
// fresh task, that is still to be shown.
FormWindow* OpenOrMakeShopping(const Clock& clock, Shop& shop);

// Opens the shopping window with a fresh task in place of the window `before`. If it is not modal, the main menu can be
// used beside it.
void ShowShopping(const FormWindow& before, const Clock& clock, Shop& shop, bool modally);

// Opens the editor of the catalogue in place of the window `before`, modally. When the catalogue cannot be read, says
// why and opens the shopping window.
void ShowEditor(const FormWindow& before, const Clock& clock, Shop& shop);

// Destroys the window of the shop, if there is one.
void EndShop(Shop& shop);

} // namespace numbrela
