#pragma once

#include "tests/sums/Tally.h"

// One for each activity: draws a single exercise with options drawn by chance, and tallies what became of it.
namespace numbrela::testing {

void TryAddition(RandomSource& random, Tally& tally);
void TrySubtraction(RandomSource& random, Tally& tally);
void TryMultiplication(RandomSource& random, Tally& tally);
void TryDivision(RandomSource& random, Tally& tally);
void TryComparison(RandomSource& random, Tally& tally);
void TryPowersOfTen(RandomSource& random, Tally& tally);
void TryPlaceAndAdd(RandomSource& random, Tally& tally);
void TryShopping(RandomSource& random, Tally& tally); // a whole day at the shops, each purchase being an exercise

} // namespace numbrela::testing
