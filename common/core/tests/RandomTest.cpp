#include "common/core/Random.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <set>
#include <utility>
#include <vector>

namespace numbrela {

namespace {

std::vector<double> firstDraws(double seed, int count)
{
    SeededRandom random(seed);
    std::vector<double> draws;
    for (int i = 0; i < count; ++i) {
        draws.push_back(random.Next());
    }
    return draws;
}

// Draws from 0 up to but not including 1, whole multiples of 2^-bits, each bit set as often as not.
template <typename Draw>
void expectRandomBits(int bits, Draw draw)
{
    std::vector<int> setCount(static_cast<std::size_t>(bits));
    for (int i = 0; i < 10000; ++i) {
        const double scaled = std::ldexp(static_cast<double>(draw()), bits);
        ASSERT_GE(scaled, 0);
        ASSERT_LT(scaled, std::ldexp(1, bits));
        ASSERT_EQ(scaled, std::floor(scaled)) << "more than " << bits << " bits";
        const auto whole = static_cast<unsigned long long>(scaled);
        for (int bit = 0; bit < bits; ++bit) {
            setCount[static_cast<std::size_t>(bit)] += static_cast<int>((whole >> bit) & 1U);
        }
    }
    for (const int count : setCount) {
        EXPECT_NEAR(count, 5000, 300); // six standard deviations
    }
}

TEST(SeededRandom, DrawsHave53RandomBitsAndSingles24)
{
    SeededRandom random(86400);
    expectRandomBits(53, [&] { return random.Next(); });
    expectRandomBits(24, [&] { return random.NextSingle(); });
}

TEST(SeededRandom, DrawsAreUniformAndOneSaysNothingAboutTheNext)
{
    constexpr int drawCount = 100000;
    SeededRandom random(1);
    std::array<std::array<int, 10>, 10> pairs {};
    std::array<int, 100> hundredths {};
    double sum = 0;
    for (int i = 0; i < drawCount; ++i) {
        const double first = random.Next();
        const double second = random.Next();
        sum += first;
        ++hundredths.at(static_cast<std::size_t>(first * 100));
        ++pairs.at(static_cast<std::size_t>(first * 10)).at(static_cast<std::size_t>(second * 10));
    }
    EXPECT_NEAR(sum / drawCount, 0.5, 0.005);
    for (std::size_t i = 0; i < 100; ++i) {
        EXPECT_NEAR(hundredths.at(i), drawCount / 100, 190); // six standard deviations
        EXPECT_NEAR(pairs.at(i / 10).at(i % 10), drawCount / 100, 190);
    }
}

TEST(SeededRandom, DrawsTheSameFromTheSameSeedAndOtherwiseFromEveryOther)
{
    // Fractions of a second and signs tell seeds apart too.
    std::vector<double> seeds { 0.0, 1.25, 1.5, 43210.987, 86399.999, -1.0, 1e300, 1e-300 };
    for (int seed = 1; seed <= 3000; ++seed) {
        seeds.push_back(seed);
    }
    std::set<double> seen;
    for (const double seed : seeds) {
        const std::vector<double> draws = firstDraws(seed, 2);
        EXPECT_EQ(firstDraws(seed, 2), draws) << seed;
        seen.insert(draws.front());
    }
    EXPECT_EQ(seen.size(), seeds.size());
}

// The 64-bit outputs that stand behind these draws come from a separate computation of the same generator.
TEST(SeededRandom, DrawsTheSameOnEveryMachine)
{
    const std::pair<double, std::array<double, 3>> seeds[] = {
        { 1.0, { 0x19e68204abf4cep-53, 0x122e9e76b94ac6p-53, 0x57c8eae5bbdd3p-53 } },
        { 86400.0, { 0x1e530f1e1622a1p-53, 0x712ff88d63005p-53, 0x1dc44e8af56b9p-53 } },
    };
    for (const auto& [seed, draws] : seeds) {
        SeededRandom random(seed);
        for (const double draw : draws) {
            EXPECT_EQ(random.Next(), draw) << "seed " << seed;
        }
    }
}

TEST(SeededRandom, EveryDrawOfEitherKindIsAFreshOneWhateverOtherGeneratorsDraw)
{
    const std::vector<double> draws = firstDraws(5, 20);
    SeededRandom random(5);
    SeededRandom other(6);
    for (std::size_t i = 0; i < draws.size(); i += 2) {
        EXPECT_EQ(random.Next(), draws[i]);
        // A single is the same draw with fewer bits.
        EXPECT_EQ(random.NextSingle(), std::floor(draws[i + 1] * 0x1p24) * 0x1p-24);
        other.Next();
    }
}

} // namespace

} // namespace numbrela
