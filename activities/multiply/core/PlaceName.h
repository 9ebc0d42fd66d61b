#pragma once

#include <string>

namespace numbrela {

// What the place of a whole number's digit is called in Spanish, for the number of digits behind it: 0 "unidades", 1
// "decenas", 4 "decenas de millar". Digits beyond the quintillions are called by their number from the right.
std::string PlaceName(int digitsBehind);

} // namespace numbrela
