#pragma once

#include <array>

namespace numbrela {

class Clock;
class FormWindow;

// Makes the window of an activity, or gives the one that is open already. The clock outlives it.
using MakeActivity = FormWindow* (*)(const Clock& clock);

// The activities in the order of their buttons on the main menu.
extern const std::array<MakeActivity, 8> activities;

} // namespace numbrela
