#include "activities/placeadd/core/PlaceAndAdd.h"

#include "common/core/Arithmetic.h"
#include "common/core/NumberText.h"
#include "common/core/RunTimeError.h"

#include <algorithm>

namespace numbrela {

namespace {

constexpr int integerColumns = 4;

std::size_t integerDigits(const std::string& text)
{
    return std::min(text.find(','), text.size());
}

std::string placed(const std::string& text)
{
    return PadLeft(text.substr(0, integerDigits(text)), integerColumns) + text.substr(integerDigits(text));
}

} // namespace

PlaceAndAdd::PlaceAndAdd(RandomSource& random)
    : random_(random)
{
}

// Draws a whole number from 0 to one below the end.
int PlaceAndAdd::drawUpTo(double end)
{
    return static_cast<int>(end * random_.Next());
}

void PlaceAndAdd::NewPlaceAndAdd()
{
    AddendSum = 0;
    bool hasShort = false;
    for (std::size_t index = 0; index <= lastIndex(); ++index) {
        drawAddend(index, hasShort);
        AddendSum += Addends[index];
    }
}

void PlaceAndAdd::drawAddend(std::size_t index, bool& hasShort)
{
    const double longNumber = PowerOfTen(MaxDigits - 1);
    const int digits = drawUpTo(MaxDigits) + 1;
    int number = drawUpTo(PowerOfTen(digits)) + 1;
    hasShort = hasShort || number < longNumber;
    if (index == lastIndex() && !hasShort) {
        number = drawUpTo(longNumber) + 1;
    }
    const int decimals = number < 10 ? 1 : drawUpTo(MaxDigits);
    Addends[index] = static_cast<float>(number / PowerOfTen(decimals));
}

std::string PlaceAndAdd::DataLine() const
{
    std::string line = PlainDecimalText(Addends[0]);
    for (std::size_t index = 1; index <= lastIndex(); ++index) {
        line += " + " + PlainDecimalText(Addends[index]);
    }
    return line;
}

Verdict PlaceAndAdd::Judge(std::string_view answer, std::string_view shown) const
{
    const bool right = static_cast<float>(LeadingNumber(answer)) == AddendSum;
    std::string message = right ? "Resultado correcto " : "Resultado incorrecto";
    if (message == shown) {
        message += ' ';
    }
    return { right, message };
}

PlaceAndAdd::Placement PlaceAndAdd::Solution() const
{
    const std::string sum = PlainDecimalText(AddendSum);
    if (integerDigits(sum) > integerColumns) {
        throw RunTimeError(RunTimeError::Kind::InvalidArgument,
            "La suma es " + sum + ".\n\nTiene más de cuatro cifras enteras: la solución no cabe en las columnas.");
    }
    Placement placement;
    for (std::size_t index = 0; index <= lastIndex(); ++index) {
        placement.Addends.push_back(placed(PlainDecimalText(Addends[index])));
    }
    placement.Sum = placed(sum);
    return placement;
}

} // namespace numbrela
