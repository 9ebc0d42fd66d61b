#pragma once

#include "tests/support/Schoolbook.h"

#include <cmath>
#include <sstream>
#include <string>

// Money as it is told apart and added up without the program.
namespace numbrela::testing {

// How singles tell two amounts of euros apart: 0 when they are as good as equal, else 1 or -1.
inline int ComparedAsSingles(float a, float b)
{
    return std::fabs(a - b) < 0.0001F ? 0 : (a >= b ? 1 : -1);
}

struct PricesInColumn {
    long Cents = 0; // all together
    int Count = 0;
};

// The prices of a column such as "  1,25\n+  0,80".
inline PricesInColumn AddUpColumn(const std::string& column)
{
    PricesInColumn prices;
    std::istringstream rows(Without(column, "+,"));
    for (long cents = 0; rows >> cents; ++prices.Count) {
        prices.Cents += cents;
    }
    return prices;
}

} // namespace numbrela::testing
