#pragma once

#include <string>

namespace numbrela {

// The values that a list of options offers: Count whole numbers in a row, from First on.
struct OptionList {
    int First = 0;
    int Count = 0;

    // The value that the item with this index (0 to Count - 1) stands for.
    constexpr int ValueAt(int index) const { return First + index; }

    // The index of the item that stands for the value; outside 0 to Count - 1 when there is no such item.
    constexpr int IndexOf(int value) const { return value - First; }

    // What the item reads in the menu: the value behind the mark of its access key, for example "&3".
    std::string CaptionAt(int index) const;
};

} // namespace numbrela
