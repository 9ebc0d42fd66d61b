#pragma once

#include "common/core/Random.h"

#include <cmath>
#include <initializer_list>
#include <stdexcept>
#include <utility>
#include <vector>

namespace numbrela::testing {

// The draw that makes this one of so many equally likely values, counted from 1.
inline double DrawOf(double value, double count)
{
    return (value - 0.5) / count;
}

// The draw that makes this whole number, 1 or more, of so many digits.
inline double DrawOfDigits(double number, int digits)
{
    return DrawOf(number, std::pow(10, digits));
}

// Chance that a test has written down: the draws come in the order given, and one more than that is an error.
class ScriptedRandom : public RandomSource {
public:
    ScriptedRandom(std::initializer_list<double> draws)
        : draws_(draws)
    {
    }

    explicit ScriptedRandom(std::vector<double> draws)
        : draws_(std::move(draws))
    {
    }

    double Next() override
    {
        if (next_ == draws_.size()) {
            throw std::logic_error("the test wrote down no further draw");
        }
        return draws_[next_++];
    }

    float NextSingle() override { return static_cast<float>(Next()); }

    bool AllDrawn() const { return next_ == draws_.size(); }

private:
    std::vector<double> draws_;
    std::size_t next_ = 0;
};

} // namespace numbrela::testing
