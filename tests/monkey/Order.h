#pragma once

#include "tests/program/Program.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <filesystem>

namespace numbrela::testing {

// What the monkey is to do: so many events at one window, all drawn from one seed.
struct Order {
    std::int64_t Seed = 1;
    std::int64_t Events = 2000;
    Route Window;
    std::filesystem::path Catalogue; // that the shopping activity sells from and its editor writes to
    bool Log = false;
};

// How far it has come. It lies in memory that the monkey's process shares with the one that watches it, so that it is
// known also when the monkey's has crashed.
struct Progress {
    std::atomic<std::int64_t> Event; // number of the present event, from 1 on
    std::atomic<std::int64_t> EventsThere; // that happened while the window was in front, or a box or menu of its own
    std::atomic<int> Openings; // of the window; for the menu, which stays, how often the monkey came back to it
    std::atomic<std::int64_t> KeysFelt; // presses that reached a control or window, and so for the mouse
    std::atomic<std::int64_t> ClicksFelt;
    std::array<char, 64> EndWindow; // how the program ended, when it did: see ProgramEnd
    std::array<char, 64> EndKind;
    std::array<char, 512> EndDetail;
};

} // namespace numbrela::testing
