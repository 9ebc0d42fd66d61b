#pragma once

namespace numbrela::testing {

class Chance;
class Hands;
class StoppedTimers;

// What an act needs: what it draws with, what it presses with, and time.
struct Means {
    Chance& Draw;
    Hands& With;
    StoppedTimers& Timers;
};

// What is in front: a window of the program's, an open menu, or a message or input box.
enum class Front { Window, Menu, Box };

// Does one thing with it that a monkey would.
void ActAt(Front front, Means means);

} // namespace numbrela::testing
