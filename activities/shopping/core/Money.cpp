#include "activities/shopping/core/Money.h"

#include "common/core/Arithmetic.h"
#include "common/core/NumberText.h"

#include <cmath>

namespace numbrela {

namespace {

// The price in cents, rounded from its decimal text as a pupil would, half a cent up: "1,005" is 101 cents, although
// the single itself is slightly less.
double centsOf(float price)
{
    constexpr double moreThanADoubleLoses = 1e-9;
    const double written = ParseDisplayNumber(PlainDecimalText(price));
    return std::floor(std::fabs(written) * 100 + 0.5 + moreThanADoubleLoses);
}

// The nearest single, when there is one.
std::optional<float> singleOf(double amount)
{
    const auto single = static_cast<float>(amount);
    return std::isfinite(single) ? std::optional(single) : std::nullopt;
}

} // namespace

int CompareMoney(float a, float b)
{
    constexpr float tolerance = 0.0001F;
    if (std::fabs(a - b) < tolerance) {
        return 0;
    }
    return a >= b ? 1 : -1;
}

float NotesAbove(float amount)
{
    constexpr double smallestNote = 5;
    return static_cast<float>(std::trunc(RoundHalfToEven(amount) / smallestNote) * smallestNote + smallestNote);
}

std::optional<float> ParsePrice(std::string_view text)
{
    const std::optional<double> number = ParseTypedNumber(text);
    return number ? singleOf(*number) : std::nullopt;
}

std::optional<float> LeadingPrice(std::string_view text)
{
    return singleOf(LeadingNumber(text));
}

std::string PriceText(float price)
{
    constexpr int width = 6;
    const double cents = centsOf(price);
    const std::string text = DecimalText(PlainDecimalText(cents), 2);
    return PadLeft(price < 0 && cents > 0 ? "-" + text : text, width);
}

std::string PlainPriceText(float price)
{
    return std::isfinite(price) ? PlainDecimalText(price) : "infinito";
}

std::string PurseText(float money)
{
    const std::string euros = PlainDecimalText(RoundHalfToEven(money));
    return (euros.size() < 2 ? "0" + euros : GroupThousands(euros)) + "€";
}

std::string RemainderText(float money)
{
    return PlainDecimalText(money) + " €";
}

std::string TimeText(int seconds)
{
    if (seconds < 1) {
        return {};
    }
    const std::string rest = std::to_string(seconds % 60);
    return std::to_string(seconds / 60) + " : " + (rest.size() < 2 ? "0" + rest : rest);
}

} // namespace numbrela
