#pragma once

#include <cmath>

namespace numbrela {

// 10^exponent, exact for exponents from 0 to 22.
inline double PowerOfTen(int exponent)
{
    double power = 1;
    for (; exponent > 0; --exponent) {
        power *= 10;
    }
    return power;
}

// The whole number nearest to the value, the even one of two that are equally near: 0.5 gives 0, 1.5 gives 2.
inline double RoundHalfToEven(double value)
{
    return std::nearbyint(value);
}

} // namespace numbrela
