#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string_view>
#include <vector>

namespace numbrela::testing {

// The random numbers of one event. They depend only on the seed of the run, the window and the number of the event, so
// that an event draws the same whatever the events before it drew.
class Chance {
public:
    Chance(std::int64_t seed, std::string_view window, std::int64_t event)
    {
        std::vector<std::int64_t> numbers(window.begin(), window.end());
        numbers.insert(numbers.end(), { seed, event });
        std::seed_seq mixed(numbers.begin(), numbers.end());
        engine_.seed(mixed);
    }

    // A whole number from 0 on, below `end`.
    int Below(int end) { return static_cast<int>(engine_() % static_cast<std::uint64_t>(end)); }

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
