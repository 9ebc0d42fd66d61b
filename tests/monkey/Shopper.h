#pragma once

namespace numbrela {

class Form7;

}

namespace numbrela::testing {

class Chance;

// Does what a careful pupil would do next in the shopping window, or nearly: presses at random alone hardly ever pay a
// purchase and come home with everything.
void ShopOn(const Form7& form, Chance& chance);

} // namespace numbrela::testing
