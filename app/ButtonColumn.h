#pragma once

#include "common/core/Int16.h"

#include <vector>

namespace numbrela {

// Where the buttons of the main menu stand, in twips: one column, each button as high as the gap below it. The margins
// above the first and below the last button are equal, except that the lower one absorbs the rounding.
struct ButtonColumn {
    Int16 Left;
    Int16 ButtonHeight;
    std::vector<Int16> Tops;
};

// Divides a form of this height (twips) among this many buttons.
ButtonColumn LayOutButtonColumn(Int16 formHeight, Int16 buttonCount);

} // namespace numbrela
