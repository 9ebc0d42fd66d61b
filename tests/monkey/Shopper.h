#pragma once

namespace numbrela {

class Form7;

}

namespace numbrela::testing {

class Chance;
class Hands;

// Does what a careful pupil would do next in the shopping window, or nearly: presses at random alone hardly ever pay a
// purchase and come home with everything.
void ShopOn(const Form7& form, Hands& hands, Chance& chance);

} // namespace numbrela::testing
