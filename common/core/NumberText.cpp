#include "common/core/NumberText.h"

#include "common/core/RunTimeError.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace numbrela {

namespace {

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

bool isOneOf(std::string_view characters, char character)
{
    return characters.find(character) != std::string_view::npos;
}

// The number with so many significant digits: "1.20e+03". Only here and in nearestDouble() does the standard library
// convert between doubles and text, by what every one of them has.
std::string scientificText(double value, int significantDigits)
{
    std::array<char, 32> buffer {};
    const auto written = std::to_chars(
        buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::scientific, significantDigits - 1);
    return { buffer.data(), written.ptr };
}

// The double nearest to digits times a power of ten; an infinity when it is too large, 0 when it is too small. Without
// decimals there is no mark before them, the only thing that strtod() takes from the machine's settings.
double nearestDouble(std::string digits, long long powerOfTen)
{
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size() - 1));
    // What lies halfway between two doubles has 768 digits at most. Of those behind them it only matters whether they
    // are all 0; not every strtod() bears them by the thousand.
    constexpr std::size_t mostDigits = 768;
    if (digits.size() > mostDigits) {
        const bool isMore = digits.find_first_not_of('0', mostDigits) != std::string::npos;
        powerOfTen += static_cast<long long>(digits.size() - mostDigits) - 1;
        digits.resize(mostDigits);
        digits += isMore ? '1' : '0';
    }
    return std::strtod((digits + 'e' + std::to_string(powerOfTen)).c_str(), nullptr);
}

std::string plainText(double value, int significantDigits)
{
    if (!std::isfinite(value)) {
        throw RunTimeError(RunTimeError::Kind::Overflow, "El resultado es demasiado grande para escribirlo.");
    }
    if (value == 0) {
        return "0";
    }
    const std::string scientific = scientificText(std::fabs(value), significantDigits);
    const std::size_t exponentMark = scientific.find('e');
    const int integerDigits = std::stoi(scientific.substr(exponentMark + 1)) + 1;
    std::string digits = scientific.substr(0, exponentMark);
    digits.erase(1, 1); // the point behind the first digit
    digits.erase(digits.find_last_not_of('0') + 1);

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

// The rules in which the readers differ.
struct NumberRule {
    std::string_view DecimalMarks; // each of them stands before decimals
    std::string_view Skipped; // passed over wherever it stands
    std::string_view GroupMarks; // passed over behind a digit before the decimals
    std::string_view Signs;
    bool Exponent;
};

constexpr NumberRule displayRule { ",", " \t.", "", "+-", true };
constexpr NumberRule pointRule { ".", " \t", "", "+-", true };
constexpr NumberRule commaRule { ",.", " \t", "", "+-", true };
constexpr NumberRule wholeRule { "", " ", "", "-", false };
constexpr NumberRule typedRule { ",", "", ".", "+-", true };

// Finds out how far a number goes before anything is converted, and gathers what nearestDouble() reads.
class NumberScanner {
public:
    explicit NumberScanner(std::string_view text)
        : rest_(text)
    {
    }

    bool AtEnd() const { return rest_.empty(); }

    void ReadSign(std::string_view signs)
    {
        if (nextIsOneOf(signs)) {
            negative_ = rest_.front() == '-';
            rest_.remove_prefix(1);
        }
    }

    // Digits; a separator may stand behind each of them and is dropped.
    void ReadDigits(std::string_view separators)
    {
        bool behindDigit = false;
        while (!rest_.empty() && (isDigit(rest_.front()) || (behindDigit && nextIsOneOf(separators)))) {
            behindDigit = isDigit(rest_.front());
            if (behindDigit) {
                digits_ += rest_.front();
            }
            rest_.remove_prefix(1);
        }
    }

    void ReadDecimals(std::string_view marks)
    {
        if (nextIsOneOf(marks)) {
            rest_.remove_prefix(1);
            const std::size_t before = digits_.size();
            ReadDigits("");
            decimals_ = static_cast<long long>(digits_.size() - before);
        }
    }

    // An exponent counts only behind digits and only with a digit of its own.
    void ReadExponent()
    {
        if (digits_.empty() || !nextIsOneOf("eE")) {
            return;
        }
        const std::size_t first = rest_.size() > 1 && isOneOf("+-", rest_[1]) ? 2 : 1;
        std::size_t last = first;
        while (last < rest_.size() && isDigit(rest_[last])) {
            ++last;
        }
        if (last > first) {
            exponent_ = cappedNumber(rest_.substr(first, last - first));
            if (rest_[1] == '-') {
                exponent_ = -exponent_;
            }
            rest_.remove_prefix(last);
        }
    }

    // The double nearest to the number read; an infinity when it is too large, 0 when it is too small.
    std::optional<double> Number() const
    {
        if (digits_.empty()) {
            return std::nullopt;
        }
        const double number = nearestDouble(digits_, exponent_ - decimals_);
        return negative_ ? -number : number;
    }

private:
    bool nextIsOneOf(std::string_view characters) const { return !rest_.empty() && isOneOf(characters, rest_.front()); }

    // No text is long enough for its digits to outweigh a larger exponent.
    static long long cappedNumber(std::string_view digits)
    {
        constexpr long long huge = 1'000'000'000'000;
        long long number = huge;
        std::from_chars(digits.data(), digits.data() + digits.size(), number);
        return std::min(number, huge);
    }

    std::string_view rest_;
    bool negative_ = false;
    std::string digits_;
    long long decimals_ = 0;
    long long exponent_ = 0;
};

// The number at the beginning of a text, or that the whole text is.
struct Reading {
    std::optional<double> Number;
    bool IsWholeText;
};

Reading read(std::string_view text, const NumberRule& rule)
{
    std::string solid(text);
    std::erase_if(solid, [&rule](char character) { return isOneOf(rule.Skipped, character); });
    NumberScanner scanner(solid);
    scanner.ReadSign(rule.Signs);
    scanner.ReadDigits(rule.GroupMarks);
    scanner.ReadDecimals(rule.DecimalMarks);
    if (rule.Exponent) {
        scanner.ReadExponent();
    }
    return { scanner.Number(), scanner.AtEnd() };
}

double readBeginning(std::string_view text, const NumberRule& rule)
{
    return read(text, rule).Number.value_or(0);
}

} // namespace

std::string PlainDecimalText(double value)
{
    return plainText(value, 15);
}

std::string PlainDecimalText(float value)
{
    return plainText(static_cast<double>(value), 7);
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

std::string DecimalText(std::string_view digits, int decimals)
{
    const auto decimalCount = static_cast<std::size_t>(decimals);
    std::string text(digits);
    if (text.size() <= decimalCount) {
        text.insert(0, decimalCount + 1 - text.size(), '0');
    }
    if (decimalCount > 0) {
        text.insert(text.size() - decimalCount, ",");
    }
    return text;
}

std::string GroupThousands(std::string number)
{
    constexpr std::size_t groupSize = 3;
    for (std::size_t place = std::min(number.find(','), number.size()); place > groupSize;) {
        place -= groupSize;
        number.insert(place, ".");
    }
    return number;
}

double ParseDisplayNumber(std::string_view text)
{
    constexpr int mostCharacters = 32767;
    if (LengthInCharacters(text) > mostCharacters) {
        throw RunTimeError(RunTimeError::Kind::Overflow,
            "El texto escrito tiene más de " + std::to_string(mostCharacters) + " caracteres.");
    }
    return readBeginning(text, displayRule);
}

double LeadingNumber(std::string_view text)
{
    return readBeginning(text, pointRule);
}

double ParseCommaNumber(std::string_view text)
{
    return readBeginning(text, commaRule);
}

double LeadingWholeNumber(std::string_view text)
{
    return readBeginning(text, wholeRule);
}

std::optional<double> ParseTypedNumber(std::string_view text)
{
    const Reading reading = read(Trimmed(text), typedRule);
    return reading.IsWholeText ? reading.Number : std::nullopt;
}

double RequireFinite(double number)
{
    if (std::isinf(number)) {
        throw RunTimeError(RunTimeError::Kind::Overflow, "El número escrito es demasiado grande.");
    }
    return number;
}

int LengthInCharacters(std::string_view utf8)
{
    const auto beginsCharacter = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; };
    return static_cast<int>(std::count_if(utf8.begin(), utf8.end(), beginsCharacter));
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
