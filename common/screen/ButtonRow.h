#pragma once

#include "common/screen/TwipsLayout.h"

#include <array>
#include <functional>

namespace numbrela {

class CommandButton;

// The four coloured buttons of an exercise: check (yellow), continue (cyan), clear (green), show the solution (red).
struct ButtonRow {
    CommandButton* Command1 = nullptr;
    std::array<CommandButton*, 3> Command2 {};
};

// What an exercise screen says about its buttons.
struct ButtonRowDesign {
    std::array<TwipsRect, 4> Places; // Command1, Command2(0), Command2(1), Command2(2)
    FontSpec Font;
    QString SolutionCaption = QStringLiteral("&Ver solución");
};

// Puts the buttons into an area. `check` is called by "&Hecho", `command2` with the index of one of the other three.
ButtonRow AddButtonRow(TwipsLayout& area, const ButtonRowDesign& design, std::function<void()> check,
    const std::function<void(int)>& command2);

} // namespace numbrela
