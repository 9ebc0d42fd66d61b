#include "activities/compare/core/Comparison.h"

#include "common/core/NumberText.h"

#include <algorithm>

namespace numbrela {

namespace {

// Which of the digits 1 to 3 stand behind the point, button by button.
constexpr std::array<std::array<std::size_t, 3>, Comparison::ButtonCount> decimalOrders { {
    { 1, 2, 3 },
    { 1, 3, 2 },
    { 2, 1, 3 },
    { 2, 3, 1 },
    { 3, 1, 2 },
    { 3, 2, 1 },
} };

float numberOf(const std::array<char, 4>& digits, const std::array<std::size_t, 3>& order)
{
    const std::string text { digits[0], '.', digits[order[0]], digits[order[1]], digits[order[2]] };
    return static_cast<float>(LeadingNumber(text));
}

} // namespace

Comparison::Comparison(RandomSource& random)
    : random_(random)
{
}

// The draw also hits the place behind the pool's last digit, twice as often as any other place; no digit is there.
std::array<char, 4> Comparison::drawDigits()
{
    constexpr char used = 'A';
    std::string pool = "12345679";
    std::array<char, 4> digits {};
    for (char& digit : digits) {
        std::size_t place = 0;
        do {
            place = std::min(static_cast<std::size_t>(random_.Next() * 10), pool.size());
        } while (place == pool.size() || pool[place] == used);
        digit = pool[place];
        pool[place] = used;
    }
    return digits;
}

void Comparison::NewComparison()
{
    const std::array<char, 4> digits = drawDigits();
    const bool asksForGreatest = random_.NextSingle() < 0.5F;
    Instruction = asksForGreatest ? "Pulsa sobre el número MAYOR" : "Pulsa sobre el número MENOR";

    float best = asksForGreatest ? 0.0F : 20.0F;
    for (std::size_t button = 0; button < ButtonCount; ++button) {
        const float number = numberOf(digits, decimalOrders[button]);
        if (asksForGreatest ? number > best : number < best) {
            best = number;
            CorrectButton = static_cast<int>(button);
        }
        Captions[button] = PlainDecimalText(number);
    }
}

Verdict Comparison::Judge(int index)
{
    if (index == CorrectButton) {
        ++Hits;
        return { true, "CORRECTO" };
    }
    ++Errors;
    return { false, "ERROR" };
}

std::string Comparison::ScoreLine() const
{
    return "Aciertos: " + std::to_string(Hits) + ";   Errores: " + std::to_string(Errors) + ".";
}

} // namespace numbrela
