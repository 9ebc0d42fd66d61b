#pragma once

#include <random>

namespace numbrela {

// A source of random numbers for an activity.
class RandomSource {
public:
    virtual ~RandomSource() = default;

    // A uniform number in [0, 1) with 53 random bits.
    virtual double Next() = 0;

    // A uniform number in [0, 1) with 24 random bits, so that it is never rounded up to 1.
    virtual float NextSingle() = 0;
};

// The generator that the program uses. The same seed gives the same draws on every machine.
class SeededRandom : public RandomSource {
public:
    // Any finite number is a seed; different numbers are different seeds.
    explicit SeededRandom(double seed);

    double Next() override;
    float NextSingle() override;

private:
    std::mt19937_64 engine_;
};

} // namespace numbrela
