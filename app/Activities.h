#pragma once

#include <QString>

#include <array>

namespace numbrela {

class FormWindow;
struct ProgramRun;

// An activity as the main menu knows it.
struct Activity {
    QString Caption; // of its button
    FormWindow* (*Window)(ProgramRun& run); // makes its window, or returns the one that is open already
};

// In the order of their buttons.
extern const std::array<Activity, 8> activities;

} // namespace numbrela
