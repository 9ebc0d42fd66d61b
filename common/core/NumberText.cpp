#include "common/core/NumberText.h"

#include "common/core/Int16.h"
#include "common/core/RunTimeError.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <utility>

namespace numbrela {

namespace {

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

bool isBlank(char character)
{
    return character == ' ' || character == '\t';
}

bool isSign(char character)
{
    return character == '-' || character == '+';
}

template <typename Number>
std::string plainText(Number value, int significantDigits)
{
    if (!std::isfinite(value)) {
        throw RunTimeError(RunTimeError::Kind::Overflow, "El resultado es demasiado grande para escribirlo.");
    }
    if (value == 0) {
        return "0";
    }
    std::array<char, 32> buffer {};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value),
        std::chars_format::scientific, significantDigits - 1);
    const std::string_view scientific(buffer.data(), written.ptr);

    const std::size_t exponentMark = scientific.find('e');
    std::string digits(scientific.substr(0, exponentMark));
    digits.erase(1, 1); // the point behind the first digit
    digits.erase(digits.find_last_not_of('0') + 1);

    const char* exponentText = scientific.data() + exponentMark + 1;
    exponentText += *exponentText == '+' ? 1 : 0;
    int exponent = 0;
    std::from_chars(exponentText, written.ptr, exponent);

    const int integerDigits = exponent + 1;
    const int digitCount = static_cast<int>(digits.size());
    if (integerDigits <= 0) {
        digits.insert(0, "0," + std::string(static_cast<std::size_t>(-integerDigits), '0'));
    } else if (integerDigits >= digitCount) {
        digits.append(static_cast<std::size_t>(integerDigits - digitCount), '0');
    } else {
        digits.insert(static_cast<std::size_t>(integerDigits), 1, ',');
    }
    return value < 0 ? "-" + digits : digits;
}

// The text of a number as std::from_chars reads it: [-]digits[.digits][e[sign]digits].
// Its scanners find out how far the number goes before anything is converted.
class NumberScanner {
public:
    explicit NumberScanner(std::string_view text)
        : rest_(text)
    {
    }

    bool AtEnd() const { return rest_.empty(); }

    void ReadSign()
    {
        if (!rest_.empty() && isSign(rest_.front())) {
            if (rest_.front() == '-') {
                number_ += '-';
            }
            rest_.remove_prefix(1);
        }
    }

    // Digits; the separator, if any, may stand behind each of them and is dropped.
    void ReadDigits(std::optional<char> separator = std::nullopt)
    {
        bool behindDigit = false;
        while (!rest_.empty() && (isDigit(rest_.front()) || (behindDigit && rest_.front() == separator))) {
            behindDigit = isDigit(rest_.front());
            if (behindDigit) {
                number_ += rest_.front();
                ++digitCount_;
            }
            rest_.remove_prefix(1);
        }
    }

    void ReadDecimals(char decimalPoint)
    {
        if (!rest_.empty() && rest_.front() == decimalPoint) {
            rest_.remove_prefix(1);
            number_ += '.';
            ReadDigits();
        }
    }

    // An exponent counts only behind digits and only with a digit of its own.
    void ReadExponent()
    {
        if (digitCount_ == 0 || rest_.empty() || (rest_.front() != 'e' && rest_.front() != 'E')) {
            return;
        }
        const std::size_t first = rest_.size() > 1 && isSign(rest_[1]) ? 2 : 1;
        std::size_t last = first;
        while (last < rest_.size() && isDigit(rest_[last])) {
            ++last;
        }
        if (last > first) {
            number_ += rest_[1] == '-' ? "e-" : "e";
            number_ += rest_.substr(first, last - first);
            rest_.remove_prefix(last);
        }
    }

    bool HasNumber() const { return digitCount_ > 0; }

    // The value nearest to the number read; an infinity when it is too large, 0 when it is too small or there is none.
    double Value() const
    {
        if (!HasNumber()) {
            return 0;
        }
        double value = 0;
        const auto result = std::from_chars(number_.data(), number_.data() + number_.size(), value);
        if (result.ec == std::errc::result_out_of_range) {
            const double infinity = std::numeric_limits<double>::infinity();
            return isBelowOne() ? 0 : (number_.front() == '-' ? -infinity : infinity);
        }
        return value;
    }

private:
    // Whether the place of the first significant digit, counted from the units, is below zero.
    bool isBelowOne() const
    {
        const std::string_view number = number_;
        const std::string_view mantissa = number.substr(0, number.find('e'));
        const auto point = static_cast<long long>(std::min(mantissa.find('.'), mantissa.size()));
        const auto firstDigit = static_cast<long long>(mantissa.find_first_of("123456789"));
        // No text is so long that its point could make up for an exponent of more digits than this.
        constexpr long long hugeExponent = 1'000'000'000'000;
        long long exponent = 0;
        if (mantissa.size() < number.size()) {
            const std::string_view text = number.substr(mantissa.size() + 1);
            if (std::from_chars(text.data(), text.data() + text.size(), exponent).ec != std::errc()) {
                exponent = text.front() == '-' ? -hugeExponent : hugeExponent;
            }
            exponent = std::clamp(exponent, -hugeExponent, hugeExponent);
        }
        const long long place = firstDigit < point ? point - firstDigit - 1 : point - firstDigit;
        return place + exponent < 0;
    }

    std::string_view rest_;
    std::string number_;
    int digitCount_ = 0;
};

} // namespace

std::string PlainDecimalText(double value)
{
    return plainText(value, 15);
}

std::string PlainDecimalText(float value)
{
    return plainText(value, 7);
}

std::string FormatDisplayNumber(double value)
{
    const std::string plain = PlainDecimalText(value);
    const std::size_t comma = std::min(plain.find(','), plain.size());
    const std::string integer = plain.substr(0, comma);
    const std::string decimals = plain.substr(comma);

    constexpr std::size_t groupSize = 3;
    constexpr std::size_t mostPlacesInGroups = 18;
    std::string grouped;
    std::size_t placed = 0;
    while (placed < mostPlacesInGroups && integer.size() > placed + groupSize) {
        const std::size_t groupEnd = integer.size() - placed - (placed > 0 ? 1 : 0);
        grouped = integer.substr(groupEnd - groupSize, groupSize) + (placed > 0 ? "." : "") + grouped;
        placed += groupSize;
    }
    return integer.substr(0, integer.size() - placed) + (placed > 0 ? "." : "") + grouped + decimals;
}

double ParseDisplayNumber(std::string_view text)
{
    Int16 characters;
    std::string plain;
    for (const char byte : text) {
        const bool beginsCharacter = (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
        if (beginsCharacter) {
            ++characters;
        }
        if (byte != '.') {
            plain += byte == ',' ? '.' : byte;
        }
    }
    return LeadingNumber(plain);
}

double LeadingNumber(std::string_view text)
{
    std::string solid;
    std::copy_if(text.begin(), text.end(), std::back_inserter(solid), [](char c) { return !isBlank(c); });

    NumberScanner scanner(solid);
    scanner.ReadSign();
    scanner.ReadDigits();
    scanner.ReadDecimals('.');
    scanner.ReadExponent();
    return scanner.Value();
}

std::optional<double> ParseTypedNumber(std::string_view text)
{
    NumberScanner scanner(Trimmed(text));
    scanner.ReadSign();
    scanner.ReadDigits('.');
    scanner.ReadDecimals(',');
    scanner.ReadExponent();
    if (!scanner.HasNumber() || !scanner.AtEnd()) {
        return std::nullopt;
    }
    const double value = scanner.Value();
    if (std::isinf(value)) {
        throw RunTimeError(RunTimeError::Kind::Overflow, "El número escrito es demasiado grande.");
    }
    return value;
}

std::string PadLeft(std::string_view text, int width)
{
    if (std::cmp_greater(text.size(), width)) {
        throw RunTimeError(RunTimeError::Kind::InvalidArgument,
            "El número " + std::string(text) + " no cabe en " + std::to_string(width) + " caracteres.");
    }
    return std::string(static_cast<std::size_t>(width) - text.size(), ' ') + std::string(text);
}

std::string_view Trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

} // namespace numbrela
