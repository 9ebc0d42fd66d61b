#pragma once

#include "common/screen/OptionMenu.h"
#include "common/screen/TextBox.h"

#include <QAction>
#include <QWidget>

#include <vector>

// What a person sees of a control besides its text.
namespace numbrela::testing {

// Whether a box has a text, all of it highlighted.
inline bool IsWhollySelected(const TextBox& box)
{
    return box.hasSelectedText() && box.selectedText() == box.text();
}

// Where a control is in its window.
inline QRect PlaceIn(const QWidget& window, const QWidget* control)
{
    return { control->mapTo(&window, QPoint()), control->size() };
}

// The controls of a kind that a keypad covers to the last pixel: a button cannot be pressed there, a box not be read.
template <typename Control>
std::vector<const Control*> LostUnder(const QWidget& pad)
{
    const QWidget& window = *pad.window();
    std::vector<const Control*> lost;
    for (const Control* control : window.findChildren<Control*>()) {
        if (control->isVisible() && control->window() == &window && !pad.isAncestorOf(control)
            && PlaceIn(window, &pad).contains(PlaceIn(window, control))) {
            lost.push_back(control);
        }
    }
    return lost;
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
