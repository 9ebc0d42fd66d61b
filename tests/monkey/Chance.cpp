#include "tests/monkey/Chance.h"

namespace numbrela::testing {

namespace {

// Spreads the bits of a number over all of it, so that neighbouring seeds and events have nothing in common.
std::uint64_t mixed(std::uint64_t number)
{
    number = (number ^ (number >> 30)) * 0xBF58476D1CE4E5B9U;
    number = (number ^ (number >> 27)) * 0x94D049BB133111EBU;
    return number ^ (number >> 31);
}

// Another one for each name.
std::uint64_t numberOf(std::string_view name)
{
    std::uint64_t number = 1;
    for (const char character : name) {
        number = mixed(number + static_cast<unsigned char>(character));
    }
    return number;
}

} // namespace

Chance::Chance(std::int64_t seed, std::string_view window, std::int64_t event)
    : engine_(
        mixed(mixed(mixed(static_cast<std::uint64_t>(seed)) + numberOf(window)) + static_cast<std::uint64_t>(event)))
{
}

int Chance::Below(int end)
{
    return static_cast<int>(engine_() % static_cast<std::uint64_t>(end));
}

} // namespace numbrela::testing
