#pragma once

#include "common/screen/OptionMenu.h"
#include "common/screen/TextBox.h"

#include <QAction>

#include <vector>

// What a person sees of a control besides its text.
namespace numbrela::testing {

// Whether a box has a text, all of it highlighted.
inline bool IsWhollySelected(const TextBox& box)
{
    return box.hasSelectedText() && box.selectedText() == box.text();
}

// The indexes of the items of an option list that carry a check mark.
inline std::vector<int> CheckedItems(const OptionMenu& menu)
{
    std::vector<int> checked;
    for (std::size_t index = 0; index < menu.Items().size(); ++index) {
        if (menu.Items()[index]->isChecked()) {
            checked.push_back(static_cast<int>(index));
        }
    }
    return checked;
}

} // namespace numbrela::testing
