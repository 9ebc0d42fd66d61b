#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Numbers and their texts as they are worked out on paper, for tests to compare the program with. Nothing here asks the
// program; numbers are converted by the C library, so a process that uses this keeps the locale "C".
namespace numbrela::testing {

// A whole number of up to 38 digits.
__extension__ using Whole = __int128;

inline Whole PowerOfTenOnPaper(int exponent)
{
    Whole power = 1;
    for (; exponent > 0; --exponent) {
        power *= 10;
    }
    return power;
}

// A number of so many decimals in units of its last one, and the double that is written like so many units.
inline Whole UnitsOf(double value, int decimals)
{
    return static_cast<Whole>(std::llround(value * static_cast<double>(PowerOfTenOnPaper(decimals))));
}

inline double ValueOf(Whole units, int decimals)
{
    return static_cast<double>(units) / static_cast<double>(PowerOfTenOnPaper(decimals));
}

inline std::string DigitsOf(Whole number)
{
    std::string digits;
    for (Whole rest = number < 0 ? -number : number; rest > 0; rest /= 10) {
        digits.insert(0, 1, static_cast<char>('0' + static_cast<int>(rest % 10)));
    }
    return number == 0 ? "0" : (number < 0 ? "-" + digits : digits);
}

// The number of units of the last decimal place, with the comma before that many decimals: 5 units of hundredths are
// "0,05", 1200 are "12,00".
inline std::string CommaText(Whole units, int decimals)
{
    std::string digits = DigitsOf(units < 0 ? -units : units);
    const auto decimalCount = static_cast<std::size_t>(decimals);
    if (digits.size() <= decimalCount) {
        digits.insert(0, decimalCount + 1 - digits.size(), '0');
    }
    if (decimals > 0) {
        digits.insert(digits.size() - decimalCount, ",");
    }
    return units < 0 ? "-" + digits : digits;
}

// "12,50" as "12,5", "12,00" as "12".
inline std::string WithoutLastZeros(std::string text)
{
    if (text.find(',') != std::string::npos) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == ',') {
            text.pop_back();
        }
    }
    return text;
}

// The number rounded to so many significant digits, with a decimal comma, without an exponent and without zeros behind
// the last decimal.
inline std::string RoundedText(double value, int significantDigits)
{
    if (value == 0) {
        return "0";
    }
    std::array<char, 64> buffer {};
    std::snprintf(buffer.data(), buffer.size(), "%.*e", significantDigits - 1, std::fabs(value));
    std::string digits(buffer.data());
    const std::size_t mark = digits.find('e');
    const int exponent = std::atoi(digits.c_str() + mark + 1);
    digits.resize(mark);
    digits.erase(1, 1);

    const auto shift = static_cast<std::size_t>(std::abs(exponent));
    if (exponent < 0) {
        digits.insert(0, shift, '0');
        digits.insert(1, ",");
    } else {
        digits.append(digits.size() <= shift ? shift + 1 - digits.size() : 0, '0');
        digits.insert(shift + 1, ",");
    }
    return (value < 0 ? "-" : "") + WithoutLastZeros(digits);
}

// The groups of an integer part, taken one by one as the rule names them: positions are counted from 1, and every
// group but the last starts one place too far to the left.
inline std::string GroupedByTheRule(const std::string& text)
{
    const std::size_t length = text.size();
    const auto middle = [&](std::size_t start, std::size_t count) { return text.substr(start - 1, count); };
    std::string grouped;
    std::size_t placed = 0;
    if (length > 3) {
        grouped = middle(length - 2, 3);
        placed = 3;
        for (const std::size_t taken : { 6U, 9U, 12U, 15U, 18U }) {
            if (length > taken) {
                grouped = middle(length - taken, 3) + "." + grouped;
                placed = taken;
            }
        }
    }
    if (length > placed) {
        grouped = middle(1, length - placed) + (placed > 0 ? "." : "") + grouped;
    }
    return grouped;
}

// A text such as "1234567,5" with its integer part grouped by that rule.
inline std::string DisplayedByTheRule(const std::string& plain)
{
    const std::size_t comma = std::min(plain.find(','), plain.size());
    return GroupedByTheRule(plain.substr(0, comma)) + plain.substr(comma);
}

// A text of digits with "." where thousands end: "1234567,5" gives "1.234.567,5".
inline std::string GroupedInThousands(std::string text)
{
    const std::size_t first = text.front() == '-' ? 1 : 0;
    for (std::size_t place = std::min(text.find(','), text.size()); place > first + 3;) {
        place -= 3;
        text.insert(place, ".");
    }
    return text;
}

inline std::string Without(std::string text, std::string_view characters)
{
    std::erase_if(text, [&](char c) { return characters.find(c) != std::string_view::npos; });
    return text;
}

// The text with each of one character replaced by another.
inline std::string Replaced(std::string text, char old, char replacement)
{
    std::replace(text.begin(), text.end(), old, replacement);
    return text;
}

// How many characters a text of UTF-8 has.
inline std::size_t CharactersIn(std::string_view utf8)
{
    return static_cast<std::size_t>(
        std::count_if(utf8.begin(), utf8.end(), [](char byte) { return (byte & 0xC0) != 0x80; }));
}

// The number that a text begins with, "." being the decimal point: digits, signs, points and exponents, and blanks
// among them, as far as they make sense.
inline double NumberAtTheStart(std::string_view text)
{
    const std::string solid = Without(std::string(text), " \t");
    const std::size_t end = std::min(solid.find_first_not_of("+-0123456789.eE"), solid.size());
    return std::strtod(solid.substr(0, end).c_str(), nullptr);
}

// The same of a text with a decimal comma.
inline double CommaNumberAtTheStart(std::string text)
{
    return NumberAtTheStart(Replaced(std::move(text), ',', '.'));
}

// The product of two whole numbers of any length, written with as many digits as both have: "12" and "5" make "060".
// The columns are added up first and carried over afterwards.
inline std::string ProductOfDigits(std::string_view digits1, std::string_view digits2)
{
    std::vector<int> columns(digits1.size() + digits2.size(), 0);
    for (std::size_t i = 0; i < digits1.size(); ++i) {
        for (std::size_t j = 0; j < digits2.size(); ++j) {
            columns[i + j + 1] += (digits1[i] - '0') * (digits2[j] - '0');
        }
    }
    std::string product;
    int carried = 0;
    for (std::size_t column = columns.size(); column-- > 0;) {
        carried += columns[column];
        product.insert(product.begin(), static_cast<char>('0' + carried % 10));
        carried /= 10;
    }
    return product;
}

// "007" as "7", "000" as "0".
inline std::string WithoutFirstZeros(const std::string& digits)
{
    return digits.substr(std::min(digits.find_first_not_of('0'), digits.size() - 1));
}

// The partial products of a written multiplication from the top, each of one digit of the second factor from its last
// to its first, and a place further to the left than the one above. With hidden zeros a row is left out when a "0"
// stands so far from the end of the factor with its comma; the comma counts as one. A sign counts as a zero.
inline std::vector<std::string> PartialProducts(const std::string& factor1, const std::string& factor2, bool hideZeros)
{
    const std::string digits1 = Without(factor1, ",-");
    const std::string digits2 = Replaced(Without(factor2, ","), '-', '0');
    std::vector<std::string> rows;
    for (std::size_t place = 0; place < digits2.size(); ++place) {
        const char looked = factor2[factor2.size() - 1 - place];
        if (!hideZeros || (looked >= '1' && looked <= '9')) {
            const std::string row
                = WithoutFirstZeros(ProductOfDigits(digits1, digits2.substr(digits2.size() - 1 - place, 1)));
            rows.push_back((factor1.front() == '-' && row != "0" ? "-" : "") + row + std::string(place, ' '));
        }
    }
    return rows;
}

// A division of a number of up to 37 digits, with what a pupil meets who brings them down one by one.
struct LongDivision {
    LongDivision(std::string_view digits, Whole divisor)
        : FitsIn32Bits(divisor <= INT32_MAX)
    {
        Whole dividend = 0;
        for (const char digit : digits) {
            FitsIn32Bits = FitsIn32Bits && dividend % divisor * 10 + (digit - '0') <= INT32_MAX;
            dividend = dividend * 10 + (digit - '0');
        }
        Quotient = dividend / divisor;
        Remainder = dividend % divisor;
    }

    bool FitsIn32Bits; // the remainders on the way, with the next digit behind them
    Whole Quotient;
    Whole Remainder;
};

} // namespace numbrela::testing
