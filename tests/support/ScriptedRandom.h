#pragma once

#include "common/core/Random.h"

#include <initializer_list>
#include <stdexcept>
#include <utility>
#include <vector>

namespace numbrela::testing {

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
