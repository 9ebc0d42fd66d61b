#pragma once

#include "activities/multiply/screen/Dialog.h"
#include "activities/shopping/screen/Handover.h"
#include "common/core/TimeOfDay.h"

#include <filesystem>
#include <memory>

namespace numbrela {

// What lasts while the program runs, longer than any of its windows. Each activity is handed its own part and no more.
struct ProgramRun {
    std::unique_ptr<const Clock> Time = std::make_unique<SystemClock>();
    Shop Shopping {};
    bool CommaShift = false; // what the paper of every division knows of the comma
    std::unique_ptr<Dialog> Tables {}; // made when it is first opened; from then on it keeps its ticks
};

// The catalogue file of the installation: the folder "Recursos" stands beside the program.
std::filesystem::path CatalogueBesideProgram();

} // namespace numbrela
