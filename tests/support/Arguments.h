#pragma once

#include <charconv>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <string_view>

namespace numbrela::testing {

// An option of a command and the number behind it: "--events" and 2000.
struct NumberOption {
    std::string_view Name;
    std::int64_t& Value;
};

// Whether one of these options stands at the place, with a whole number from 1 on behind it, which is taken over. The
// place goes on to the number. Anything else is refused, so that no slip makes a run of nothing, which would pass.
inline bool TakeNumber(int argc, char** argv, int& place, std::initializer_list<NumberOption> options)
{
    for (const NumberOption& option : options) {
        if (option.Name == argv[place] && place + 1 < argc) {
            const char* const text = argv[++place];
            const char* const end = text + std::strlen(text);
            const auto [stop, error] = std::from_chars(text, end, option.Value);
            return error == std::errc() && stop == end && option.Value > 0;
        }
    }
    return false;
}

} // namespace numbrela::testing
