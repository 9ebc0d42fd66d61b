#include "activities/multiply/core/FactorText.h"

#include "common/core/NumberText.h"

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
    return withSign(isNegative(wholeNumber), GroupThousands(DecimalText(withoutSign(wholeNumber), decimals)));
}

} // namespace numbrela
