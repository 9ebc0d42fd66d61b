#include "common/core/Arithmetic.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace numbrela {

namespace {

TEST(PowerOfTen, IsExactAsFarAsADoubleIs)
{
    std::string text = "1";
    for (int exponent = 0; exponent <= 22; ++exponent) {
        EXPECT_EQ(PowerOfTen(exponent), std::stod(text)) << exponent;
        text += '0';
    }
}

TEST(RoundHalfToEven, TakesTheNearestNumberAndTheEvenOneOfTwoEquallyNear)
{
    for (const auto& [number, rounded] : { std::pair(0.5, 0), { 1.5, 2 }, { 2.5, 2 }, { -0.5, 0 }, { -1.5, -2 },
             { 24.5, 24 }, { 2.4999999, 2 }, { 2.5000001, 3 }, { -2.5000001, -3 }, { 7.0, 7 } }) {
        EXPECT_EQ(RoundHalfToEven(number), rounded);
    }
}

} // namespace

} // namespace numbrela
