#include "activities/multiply/core/FactorText.h"

#include "common/core/NumberText.h"
#include "common/core/RunTimeError.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace numbrela {

namespace {

bool isNegative(std::string_view wholeNumber)
{
    return wholeNumber.starts_with('-');
}

std::string_view withoutSign(std::string_view wholeNumber)
{
    return wholeNumber.substr(isNegative(wholeNumber) ? 1 : 0);
}

std::string withSign(bool negative, const std::string& digits)
{
    return negative ? "-" + digits : digits;
}

} // namespace

std::string DigitsOnly(std::string_view text)
{
    std::string digits(text);
    if (const std::size_t comma = digits.find(','); comma != std::string::npos) {
        digits.erase(comma, 1);
    }
    return digits;
}

double ParseCommaNumber(std::string_view text)
{
    std::string withPoints(text);
    std::replace(withPoints.begin(), withPoints.end(), ',', '.');
    const double number = LeadingNumber(withPoints);
    if (std::isinf(number)) {
        throw RunTimeError(RunTimeError::Kind::Overflow, "El número escrito es demasiado grande.");
    }
    return number;
}

std::string WholeProduct(std::string_view number1, std::string_view number2)
{
    const std::string_view digits1 = withoutSign(number1);
    const std::string_view digits2 = withoutSign(number2);
    std::vector<int> places(digits1.size() + digits2.size()); // the first one is the highest
    for (std::size_t i = digits1.size(); i-- > 0;) {
        for (std::size_t j = digits2.size(); j-- > 0;) {
            const int sum = places[i + j + 1] + (digits1[i] - '0') * (digits2[j] - '0');
            places[i + j + 1] = sum % 10;
            places[i + j] += sum / 10;
        }
    }
    std::string product;
    for (const int digit : places) {
        if (digit != 0 || !product.empty()) {
            product += static_cast<char>('0' + digit);
        }
    }
    return product.empty() ? "0" : withSign(isNegative(number1) != isNegative(number2), product);
}

std::string GroupedDecimalText(std::string_view wholeNumber, int decimals)
{
    const std::string_view digits = withoutSign(wholeNumber);
    const auto decimalCount = static_cast<std::size_t>(decimals);
    const std::size_t zerosInFront = digits.size() > decimalCount ? 0 : decimalCount + 1 - digits.size();
    std::string text = std::string(zerosInFront, '0') + std::string(digits);

    const std::size_t integerDigits = text.size() - decimalCount;
    if (decimalCount > 0) {
        text.insert(integerDigits, ",");
    }
    for (std::size_t place = integerDigits; place > 3;) {
        place -= 3;
        text.insert(place, ".");
    }
    return withSign(isNegative(wholeNumber), text);
}

} // namespace numbrela
