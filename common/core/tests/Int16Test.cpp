#include "common/core/Int16.h"

#include "tests/support/ExpectError.h"
#include "tests/support/KindThrownBy.h"

#include <gtest/gtest.h>

#include <climits>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

namespace numbrela {

namespace {

using namespace testing;

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
    // The low 16 bits of these would fit.
    for (const long long number : { 65536LL, 65537LL, 4294967296LL, 4294967297LL, -65536LL, LLONG_MAX, LLONG_MIN }) {
        EXPECT_EQ(KindThrownBy([&] { Int16 holder(number); }), RunTimeError::Kind::Overflow) << number;
    }
}

TEST(Int16, CountsUpByOneToItsLastNumberAndNoFurther)
{
    Int16 counter = 32766;
    EXPECT_EQ(++counter, 32767);
    EXPECT_EQ(counter, 32767);
    EXPECT_EQ(KindThrownBy([&] { ++counter; }), RunTimeError::Kind::Overflow);
    EXPECT_EQ(counter, 32767) << "a number that does not fit leaves the old one";
}

template <typename Change>
void expectChange(int before, long long after, Change change)
{
    Int16 number = before;
    const bool fits = after >= -32768 && after <= 32767;
    const auto error = KindThrownBy([&] { EXPECT_EQ(change(number), after); });
    EXPECT_EQ(error, fits ? std::nullopt : std::optional(RunTimeError::Kind::Overflow));
    EXPECT_EQ(number, fits ? after : before);
}

TEST(Int16, KeepsTheOldNumberWhenASumOrADifferenceDoesNotFit)
{
    for (const int before : { -32768, -20000, -2, 0, 1, 20000, 32767 }) {
        for (const int amount : { INT_MIN, -32768, -12769, -12768, -1, 0, 1, 12767, 12768, 12769, 52768, INT_MAX }) {
            SCOPED_TRACE(std::to_string(before) + " and " + std::to_string(amount));
            expectChange(
                before, static_cast<long long>(before) + amount, [&](Int16& number) { return number += amount; });
            expectChange(
                before, static_cast<long long>(before) - amount, [&](Int16& number) { return number -= amount; });
        }
    }
}

TEST(Int16, ComputesAsAnIntAndIsCheckedWhenTheResultIsStored)
{
    constexpr Int16 three = 3;
    static_assert(three + 2 == 5 && three > 2);
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

TEST(Int16, SaysInSpanishWhichNumberDoesNotFit)
{
    ExpectError(RunTimeError::Kind::Overflow, "El número 32768 no cabe en un contador de 16 bits.",
        [] { return Int16(32768); });
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
