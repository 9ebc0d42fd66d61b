#include "activities/multiply/core/PlaceName.h"

#include <array>

namespace numbrela {

// In the long scale: a billón is a million millions.
std::string PlaceName(int digitsBehind)
{
    constexpr std::array<const char*, 3> places { "unidades", "decenas", "centenas" };
    constexpr std::array<const char*, 11> groups { "", " de millar", " de millón", " de millar de millón", " de billón",
        " de millar de billón", " de trillón", " de millar de trillón", " de cuatrillón", " de millar de cuatrillón",
        " de quintillón" };
    const auto digits = static_cast<std::size_t>(digitsBehind);
    if (digits / 3 >= groups.size()) {
        return "cifra " + std::to_string(digitsBehind + 1);
    }
    return std::string(places[digits % 3]) + groups[digits / 3];
}

} // namespace numbrela
