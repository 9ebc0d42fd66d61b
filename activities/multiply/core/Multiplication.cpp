#include "activities/multiply/core/Multiplication.h"

#include "activities/multiply/core/FactorText.h"
#include "common/core/Arithmetic.h"
#include "common/core/NumberText.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace numbrela {

namespace {

int nearestChoice(const OptionList& choices, int value)
{
    return std::clamp(value, choices.ValueAt(0), choices.ValueAt(choices.Count - 1));
}

// The digit so many places left of the last character; 0 for a comma or a sign.
int digitFromTheRight(const std::string& text, int places)
{
    const char character = text[text.size() - 1 - static_cast<std::size_t>(places)];
    return character >= '0' && character <= '9' ? character - '0' : 0;
}

} // namespace

Multiplication::Multiplication(RandomSource& random)
    : random_(random)
{
}

void Multiplication::NewMultiplication()
{
    Digits1 = nearestChoice(DigitChoices, Digits1);
    Digits2 = nearestChoice(DigitChoices, Digits2);
    Decimals1 = nearestChoice(DecimalChoices, Decimals1);
    Decimals2 = nearestChoice(DecimalChoices, Decimals2);

    Factor1 = drawNumber(Digits1 + Decimals1) / PowerOfTen(Decimals1);
    const int digitCount2 = Digits2 + Decimals2;
    const bool fromTables = !AnyDigits && !SelectedTables.empty();
    Factor2 = (fromTables ? drawNumberFromTables(digitCount2) : drawNumber(digitCount2)) / PowerOfTen(Decimals2);
    Product = Factor2 * Factor1;
}

void Multiplication::Continue()
{
    NewMultiplication();
    Score.Scorable = true;
}

double Multiplication::drawNumber(int digitCount)
{
    double number = 0;
    do {
        number = std::floor(PowerOfTen(digitCount) * random_.NextSingle()) + 1;
    } while (number <= PowerOfTen(digitCount - 1) || std::fmod(number, 10) == 0);
    return number;
}

double Multiplication::drawNumberFromTables(int digitCount)
{
    const std::string pool = "0" + SelectedTables;
    std::string digits(1, drawCharacter(SelectedTables));
    while (static_cast<int>(digits.size()) < digitCount) {
        digits += drawCharacter(pool);
    }
    while (Decimals2 > 0 && digits.back() == '0') {
        digits.back() = drawCharacter(pool);
    }
    return LeadingNumber(digits);
}

char Multiplication::drawCharacter(const std::string& pool)
{
    const double position = std::floor(static_cast<double>(random_.NextSingle()) * static_cast<double>(pool.size()));
    return pool[static_cast<std::size_t>(position)];
}

void Multiplication::ChooseTables(const std::string& tables)
{
    AnyDigits = tables.empty();
    SelectedTables = tables;
}

std::string Multiplication::Factor1Text() const
{
    return PlainDecimalText(Factor1);
}

std::string Multiplication::Factor2Text() const
{
    return PlainDecimalText(Factor2);
}

std::array<std::string, 2> Multiplication::ShowFactors()
{
    shownFactor2_ = Factor2Text();
    return { Factor1Text(), shownFactor2_ };
}

Int16 Multiplication::RowCount() const
{
    Int16 rows = Digits2 + Decimals2;
    if (HideZeros) {
        rows -= static_cast<int>(std::count(shownFactor2_.begin(), shownFactor2_.end(), '0'));
    }
    return rows;
}

Verdict Multiplication::Judge(std::string_view result, std::string_view shownVerdict) const
{
    constexpr double tolerance = 1e-12;
    if (std::fabs(Product - RequireFinite(ParseCommaNumber(result))) < tolerance) {
        return { true, shownVerdict == "Resultado correcto " ? " Resultado correcto " : "Resultado correcto " };
    }
    return { false, shownVerdict == "resultado incorrecto" ? " resultado incorrecto" : "resultado incorrecto" };
}

Multiplication::WorkedSolution Multiplication::ShowSolution()
{
    const std::string factor1 = DigitsOnly(Factor1Text());
    const std::string factor2 = Factor2Text();
    const std::string product = WholeProduct(factor1, DigitsOnly(factor2));
    Score.Scorable = false;
    return { GroupedDecimalText(product, Decimals1 + Decimals2), solutionRows(factor1, factor2) };
}

std::vector<std::string> Multiplication::solutionRows(const std::string& factor1, const std::string& withComma) const
{
    const std::string withoutComma = DigitsOnly(withComma);
    std::vector<std::string> rows;
    for (int place = 0; place < Digits2 + Decimals2; ++place) {
        if (!HideZeros || digitFromTheRight(withComma, place) != 0) {
            const std::string digit = std::to_string(digitFromTheRight(withoutComma, place));
            rows.push_back(WholeProduct(digit, factor1) + std::string(static_cast<std::size_t>(place), ' '));
        }
    }
    return rows;
}

Multiplication::FactorEntry Multiplication::EnterFactor1(std::string_view typed)
{
    return enterFactor(typed, Factor2, Factor1, Digits1, Decimals1);
}

Multiplication::FactorEntry Multiplication::EnterFactor2(std::string_view typed)
{
    return enterFactor(typed, Factor1, Factor2, Digits2, Decimals2);
}

Multiplication::FactorEntry Multiplication::enterFactor(
    std::string_view typed, double other, double& factor, Int16& digits, Int16& decimals)
{
    const std::optional<double> number = ParseTypedNumber(typed);
    if (!number || std::isinf(*number)) {
        return { false, "El dato introducido no es válido" };
    }
    if (!std::isfinite(*number * other)) {
        return { false, "el producto de los dos factores produce un resultado demasiado grande" };
    }
    factor = *number;
    Product = Factor1 * Factor2;

    const std::string text = PlainDecimalText(factor);
    const std::size_t comma = std::min(text.find(','), text.size());
    digits = static_cast<long long>(comma);
    decimals = static_cast<long long>(text.size() - std::min(comma + 1, text.size()));
    return { true, "" };
}

} // namespace numbrela
