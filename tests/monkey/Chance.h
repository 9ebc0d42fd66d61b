#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string_view>

namespace numbrela::testing {

// The random numbers of one event. They depend only on the seed of the run, the window and the number of the event, so
// that an event draws the same whatever the events before it drew.
class Chance {
public:
    Chance(std::int64_t seed, std::string_view window, std::int64_t event);

    // A whole number from 0 on, below `end`.
    int Below(int end);

    // True this many times out of a hundred.
    bool Percent(int times) { return Below(100) < times; }

    template <typename List>
    decltype(auto) OneOf(const List& list)
    {
        return list[static_cast<typename List::size_type>(Below(static_cast<int>(list.size())))];
    }

private:
    std::mt19937_64 engine_;
};

} // namespace numbrela::testing
