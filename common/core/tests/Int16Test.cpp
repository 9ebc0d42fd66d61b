#include "common/core/Int16.h"

#include "tests/support/KindThrownBy.h"

#include <gtest/gtest.h>

#include <climits>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

namespace numbrela {

namespace {

using numbrela::testing::KindThrownBy;

TEST(Int16, IsZeroAtFirst)
{
    EXPECT_EQ(Int16(), 0);
}

TEST(Int16, HoldsEveryNumberOf16BitsAndNoOther)
{
    for (int number = -40000; number <= 40000; ++number) {
        Int16 holder;
        const auto store = [&] { holder = number; };
        if (number >= -32768 && number <= 32767) {
            ASSERT_NO_THROW(store()) << number;
            ASSERT_EQ(holder, number);
        } else {
            ASSERT_EQ(KindThrownBy(store), RunTimeError::Kind::Overflow) << number;
            ASSERT_EQ(holder, 0) << number;
        }
    }
}

TEST(Int16, RefusesNumbersWhoseLow16BitsWouldFit)
{
    for (const long long number : { 65536LL, 65537LL, 4294967296LL, 4294967297LL, -65536LL, LLONG_MAX, LLONG_MIN }) {
        EXPECT_EQ(KindThrownBy([&] { Int16 holder(number); }), RunTimeError::Kind::Overflow) << number;
    }
}

TEST(Int16, CountsUpByOneAndByAnAmount)
{
    Int16 counter = 5;
    EXPECT_EQ(++counter, 6);
    EXPECT_EQ(counter, 6);
    EXPECT_EQ(counter += 100, 106);
    EXPECT_EQ(counter += -7, 99);
    EXPECT_EQ(counter -= 200, -101);
    EXPECT_EQ(counter -= -1, -100);
    EXPECT_EQ(counter, -100);
}

TEST(Int16, CountsToItsLastNumberAndNoFurther)
{
    Int16 counter = 32766;
    EXPECT_NO_THROW(++counter);
    EXPECT_EQ(counter, 32767);
    EXPECT_EQ(KindThrownBy([&] { ++counter; }), RunTimeError::Kind::Overflow);
    EXPECT_EQ(counter, 32767) << "a number that does not fit leaves the old one";
}

struct ChangeCase {
    int Before;
    int Amount;
    std::optional<int> Sum; // nothing: it does not fit
    std::optional<int> Difference;
};

TEST(Int16, KeepsTheOldNumberWhenASumOrADifferenceDoesNotFit)
{
    const ChangeCase cases[] = {
        { 32767, 0, 32767, 32767 },
        { 32767, 1, std::nullopt, 32766 },
        { 32767, -1, 32766, std::nullopt },
        { -32768, 1, -32767, std::nullopt },
        { -32768, -1, std::nullopt, -32767 },
        { 20000, 12767, 32767, 7233 },
        { 20000, 12768, std::nullopt, 7232 },
        { -20000, 12768, -7232, -32768 },
        { -20000, 12769, -7231, std::nullopt },
        { 1, INT_MAX, std::nullopt, std::nullopt },
        { -2, INT_MIN, std::nullopt, std::nullopt },
    };
    for (const auto& [before, amount, sum, difference] : cases) {
        SCOPED_TRACE(std::to_string(before) + " and " + std::to_string(amount));

        Int16 up = before;
        const auto errorUp = KindThrownBy([&up, change = amount] { up += change; });
        EXPECT_EQ(errorUp.has_value(), !sum.has_value());
        EXPECT_EQ(errorUp.value_or(RunTimeError::Kind::Overflow), RunTimeError::Kind::Overflow);
        EXPECT_EQ(up, sum.value_or(before));

        Int16 down = before;
        const auto errorDown = KindThrownBy([&down, change = amount] { down -= change; });
        EXPECT_EQ(errorDown.has_value(), !difference.has_value());
        EXPECT_EQ(errorDown.value_or(RunTimeError::Kind::Overflow), RunTimeError::Kind::Overflow);
        EXPECT_EQ(down, difference.value_or(before));
    }
}

TEST(Int16, ComputesAsAnIntAndIsCheckedWhenTheResultIsStored)
{
    const Int16 large = 30000;
    static_assert(std::is_same_v<decltype(large + large), int>);
    EXPECT_EQ(large + large, 60000);
    EXPECT_EQ(large * large, 900000000);
    EXPECT_EQ(-Int16(-32768), 32768);

    Int16 stored = 7;
    EXPECT_EQ(KindThrownBy([&] { stored = large + large; }), RunTimeError::Kind::Overflow);
    EXPECT_EQ(stored, 7);
    stored = large + large - 30001;
    EXPECT_EQ(stored, 29999);
}

TEST(Int16, WorksInConstantExpressions)
{
    constexpr Int16 three = 3;
    static_assert(three + 2 == 5);
    static_assert(three > 2);
    EXPECT_EQ(three, 3);
}

TEST(Int16, SaysInSpanishWhichNumberDoesNotFit)
{
    try {
        const Int16 holder = 32768;
        FAIL() << "stored as " << holder;
    } catch (const RunTimeError& error) {
        EXPECT_STREQ(error.KindName(), "Desbordamiento");
        EXPECT_STREQ(error.what(), "El número 32768 no cabe en un contador de 16 bits.");
    }
}

TEST(RunTimeError, NamesEveryKindInSpanish)
{
    const std::pair<RunTimeError::Kind, const char*> names[] = {
        { RunTimeError::Kind::Overflow, "Desbordamiento" },
        { RunTimeError::Kind::InvalidArgument, "Argumento no válido" },
        { RunTimeError::Kind::TypeMismatch, "El tipo de dato no coincide" },
        { RunTimeError::Kind::File, "Error de archivo" },
    };
    for (const auto& [kind, name] : names) {
        const RunTimeError error(kind, "Ha pasado algo.");
        EXPECT_EQ(error.ErrorKind(), kind);
        EXPECT_STREQ(error.KindName(), name);
        EXPECT_STREQ(error.what(), "Ha pasado algo.");
    }
}

} // namespace

} // namespace numbrela
