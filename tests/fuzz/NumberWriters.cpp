#include "activities/shopping/core/Money.h"
#include "common/core/NumberText.h"
#include "common/core/RunTimeError.h"
#include "common/core/Score.h"

#include "tests/fuzz/FuzzInput.h"
#include "tests/support/KindThrownBy.h"
#include "tests/support/Schoolbook.h"

#include <gtest/gtest.h>

#include <array>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <string>
#include <utility>

// Numbers, given to everything that writes one. The first byte tells what follows: "d" a double, "f" a single, "s"
// seconds, "c" the counts of a score, anything else a whole number with so many decimals, as exercises have them.
namespace numbrela::testing {

namespace {

constexpr int significantInDouble = 15;
constexpr int significantInSingle = 7;

void checkPlainText(double value)
{
    const std::string plain = PlainDecimalText(value);
    EXPECT_EQ(plain, RoundedText(value, significantInDouble));

    // Rounding up may lead beyond the greatest double; otherwise what is written from what was read is the same.
    const double read = ParseDisplayNumber(plain);
    EXPECT_EQ(read, CommaNumberAtTheStart(plain));
    if (std::isfinite(read)) {
        EXPECT_EQ(PlainDecimalText(read), plain);
        EXPECT_LE(std::fabs(read - value), std::fabs(value) * 0.6e-14 + DBL_TRUE_MIN);
    } else {
        EXPECT_GT(std::fabs(value), 1.797693134862315e308);
    }
    EXPECT_EQ(ParseTypedNumber(plain), read);
}

void checkDisplayText(double value)
{
    const std::string plain = PlainDecimalText(value);
    const std::string displayed = FormatDisplayNumber(value);
    EXPECT_EQ(displayed, DisplayedByTheRule(plain));
    if (std::min(plain.find(','), plain.size()) <= 6 && value >= 0) {
        EXPECT_EQ(ParseDisplayNumber(displayed), ParseDisplayNumber(plain));
    }
}

void checkDouble(double value)
{
    if (!std::isfinite(value)) {
        EXPECT_EQ(KindThrownBy([&] { PlainDecimalText(value); }), RunTimeError::Kind::Overflow);
        EXPECT_EQ(KindThrownBy([&] { FormatDisplayNumber(value); }), RunTimeError::Kind::Overflow);
        return;
    }
    checkPlainText(value);
    checkDisplayText(value);
}

// The price to two decimals as it is rounded on paper, by the third decimal of its text; empty when that is longer than
// a column of prices is wide.
std::string priceOnPaper(const std::string& plain)
{
    constexpr std::size_t columnWidth = 6;
    const std::string amount = Without(plain, "-");
    const std::size_t comma = std::min(amount.find(','), amount.size());
    if (comma > columnWidth) {
        return {};
    }
    const std::string decimals = (comma < amount.size() ? amount.substr(comma + 1) : std::string()) + "000";
    const Whole cents = std::stoi(amount.substr(0, comma) + decimals.substr(0, 2)) + (decimals[2] >= '5' ? 1 : 0);
    const std::string text = CommaText(plain.front() == '-' ? -cents : cents, 2);
    return text.size() > columnWidth ? std::string() : std::string(columnWidth - text.size(), ' ') + text;
}

void checkPriceText(float price)
{
    const std::string onPaper = priceOnPaper(PlainDecimalText(price));
    if (onPaper.empty()) {
        EXPECT_EQ(KindThrownBy([&] { PriceText(price); }), RunTimeError::Kind::InvalidArgument) << price;
    } else {
        EXPECT_EQ(PriceText(price), onPaper) << price;
    }
}

void checkPurseText(float money)
{
    std::string whole = RoundedText(std::nearbyint(static_cast<double>(money)), significantInDouble);
    whole.insert(0, whole.size() < 2 ? "0" : "");
    EXPECT_EQ(PurseText(money), GroupedInThousands(whole) + "€");
}

void checkSingle(float value)
{
    if (!std::isfinite(value)) {
        EXPECT_EQ(KindThrownBy([&] { PlainDecimalText(value); }), RunTimeError::Kind::Overflow);
        EXPECT_EQ(KindThrownBy([&] { PriceText(value); }), RunTimeError::Kind::Overflow);
        EXPECT_EQ(KindThrownBy([&] { RemainderText(value); }), RunTimeError::Kind::Overflow);
        if (value > 0) {
            EXPECT_EQ(PlainPriceText(value), "infinito");
        }
        return;
    }
    const std::string plain = PlainDecimalText(value);
    EXPECT_EQ(plain, RoundedText(static_cast<double>(value), significantInSingle));
    EXPECT_EQ(RemainderText(value), plain + " €");
    EXPECT_EQ(PlainPriceText(value), plain);
    checkPriceText(value);
    checkPurseText(std::fabs(value));
}

// Minutes and seconds, read back: two digits of seconds, and as many of minutes as there are.
void checkTimeText(std::int32_t seconds)
{
    const std::string text = TimeText(seconds);
    if (seconds < 1) {
        EXPECT_EQ(text, "") << seconds;
        return;
    }
    const std::string separator = " : ";
    ASSERT_GT(text.size(), separator.size() + 2) << text;
    const std::size_t minuteDigits = text.size() - separator.size() - 2;
    EXPECT_EQ(text.substr(minuteDigits, separator.size()), separator) << text;
    const std::string minutes = text.substr(0, minuteDigits);
    const std::string rest = text.substr(minuteDigits + separator.size());
    EXPECT_EQ((minutes + rest).find_first_not_of("0123456789"), std::string::npos) << text;
    EXPECT_TRUE(minutes == "0" || minutes.front() != '0') << text;
    EXPECT_LT(rest, "60") << text;
    EXPECT_EQ(std::stoll(minutes) * 60 + std::stoll(rest), seconds) << text;
}

// Both counts right-aligned in three characters, or none where one of them is longer.
void checkScoreLine(std::array<std::int16_t, 2> counts)
{
    const auto [exercises, errors] = counts;
    constexpr std::size_t columnWidth = 3;
    numbrela::Score score;
    score.ExerciseCount = exercises;
    score.ErrorCount = errors;
    std::string line;
    for (const auto& [caption, count] : { std::pair("Ejercicios:", exercises), std::pair("; Errores:", errors) }) {
        const std::string digits = DigitsOf(count);
        if (digits.size() > columnWidth) {
            EXPECT_EQ(KindThrownBy([&] { score.Line(); }), RunTimeError::Kind::InvalidArgument) << count;
            return;
        }
        line += caption + std::string(columnWidth - digits.size(), ' ') + digits;
    }
    EXPECT_EQ(score.Line(), line);
}

// A whole number of up to 15 digits with a comma is written just as it is, and comes back as the very same number.
void checkDecimal(std::int64_t units, int decimals)
{
    constexpr std::int64_t tooLong = 1'000'000'000'000'000;
    units %= tooLong;
    const auto value = ValueOf(units, decimals);
    const std::string plain = PlainDecimalText(value);
    EXPECT_EQ(plain, WithoutLastZeros(CommaText(units, decimals)));
    EXPECT_EQ(ParseDisplayNumber(plain), value);
    checkDouble(value);
    checkSingle(static_cast<float>(value));
}

} // namespace

void Check(FuzzInput input)
{
    constexpr int decimalsThatADoubleScalesExactly = 23;
    switch (const unsigned what = input.TakeByte()) {
    case 'd':
        checkDouble(input.TakeNumber<double>());
        break;
    case 'f':
        checkSingle(input.TakeNumber<float>());
        break;
    case 's':
        checkTimeText(input.TakeNumber<std::int32_t>());
        break;
    case 'c':
        checkScoreLine(input.TakeNumber<std::array<std::int16_t, 2>>());
        break;
    default:
        checkDecimal(input.TakeNumber<std::int64_t>(), static_cast<int>(what) % decimalsThatADoubleScalesExactly);
    }
}

} // namespace numbrela::testing
