#include "common/core/NumberText.h"

#include "common/core/RunTimeError.h"

#include "tests/support/ForeignLocale.h"
#include "tests/support/KindThrownBy.h"
#include "tests/support/Schoolbook.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <limits>
#include <locale>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace numbrela {

namespace {

using numbrela::testing::ForeignLocale;
using numbrela::testing::GroupedByTheRule;
using numbrela::testing::KindThrownBy;
using numbrela::testing::StrangePunctuation;

constexpr double infinity = std::numeric_limits<double>::infinity();

std::string repeated(std::string_view text, int times)
{
    std::string repeated;
    for (; times > 0; --times) {
        repeated += text;
    }
    return repeated;
}

// A non-negative whole number of any size, in groups of nine decimal digits, the lowest first.
class LongNumber {
public:
    explicit LongNumber(std::uint64_t value)
    {
        for (; value > 0; value /= groupLimit) {
            groups_.push_back(static_cast<std::uint32_t>(value % groupLimit));
        }
    }

    void MultiplyBy(std::uint32_t factor)
    {
        std::uint64_t carry = 0;
        for (std::uint32_t& group : groups_) {
            carry += static_cast<std::uint64_t>(group) * factor;
            group = static_cast<std::uint32_t>(carry % groupLimit);
            carry /= groupLimit;
        }
        if (carry > 0) {
            groups_.push_back(static_cast<std::uint32_t>(carry));
        }
    }

    std::string Digits() const
    {
        std::string digits;
        for (const std::uint32_t group : groups_) {
            const std::string text = std::to_string(group);
            digits = std::string(9 - text.size(), '0') + text + digits;
        }
        digits.erase(0, digits.find_first_not_of('0'));
        return digits;
    }

private:
    static constexpr std::uint64_t groupLimit = 1000000000;
    std::vector<std::uint32_t> groups_;
};

// What a positive number reads when every digit of its binary value is worked out on paper and the digits from the
// first significant one on are rounded to so many. Nothing for a number exactly between two such texts.
std::optional<std::string> textOnPaper(double value, std::size_t significantDigits)
{
    int exponent = 0;
    const double fraction = std::frexp(value, &exponent);
    LongNumber number(static_cast<std::uint64_t>(std::ldexp(fraction, 53)));
    exponent -= 53;
    int decimals = 0;
    for (; exponent > 0; --exponent) {
        number.MultiplyBy(2);
    }
    for (; exponent < 0; ++exponent) { // a half is five tenths
        number.MultiplyBy(5);
        ++decimals;
    }

    std::string digits = number.Digits();
    if (digits.size() > significantDigits) {
        const std::string dropped = digits.substr(significantDigits);
        const std::string half = "5" + std::string(dropped.size() - 1, '0');
        if (dropped == half) {
            return std::nullopt;
        }
        digits.resize(significantDigits);
        decimals -= static_cast<int>(dropped.size());
        if (dropped > half) {
            std::size_t place = digits.size();
            while (place > 0 && digits[place - 1] == '9') {
                digits[--place] = '0';
            }
            if (place > 0) {
                ++digits[place - 1];
            } else {
                digits.insert(0, 1, '1');
            }
        }
    }
    if (decimals <= 0) {
        return digits + std::string(static_cast<std::size_t>(-decimals), '0');
    }
    const auto decimalCount = static_cast<std::size_t>(decimals);
    if (digits.size() <= decimalCount) {
        digits.insert(0, std::string(decimalCount + 1 - digits.size(), '0'));
    }
    digits.insert(digits.size() - decimalCount, ",");
    digits.erase(digits.find_last_not_of('0') + 1);
    if (digits.back() == ',') {
        digits.pop_back();
    }
    return digits;
}

// ---------------------------------------------------------------------------------------------- plain decimal text

struct PlainCase {
    double Value;
    const char* Text;
};

TEST(PlainDecimalText, WritesNumbersWithADecimalCommaAndNoGrouping)
{
    const PlainCase cases[] = {
        { 0, "0" },
        { -0.0, "0" },
        { 1, "1" },
        { 5, "5" },
        { 10, "10" },
        { 1200, "1200" },
        { -3, "-3" },
        { 0.25, "0,25" },
        { -0.25, "-0,25" },
        { 1234.5, "1234,5" },
        { -1234.5, "-1234,5" },
        { 482.37, "482,37" },
        { 905.16, "905,16" },
        { 1000.001, "1000,001" },
        { 1234567.654321, "1234567,654321" },
        { 9999999.999999, "9999999,999999" },
        { 0.1, "0,1" },
        { 0.000001, "0,000001" },
        { 0.0000000001, "0,0000000001" },
        { 100000, "100000" },
        { 999999999999999, "999999999999999" },
        { 123456789012345, "123456789012345" },
    };
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(PlainDecimalText(value), text);
    }
}

TEST(PlainDecimalText, HasAtMost15SignificantDigits)
{
    const PlainCase cases[] = {
        { 1.0 / 3, "0,333333333333333" },
        { 2.0 / 3, "0,666666666666667" },
        { 100.0 / 3, "33,3333333333333" },
        { -200.0 / 3, "-66,6666666666667" },
        { 0.1 + 0.2, "0,3" },
        { 482.37 + 905.16, "1387,53" },
        { 0.99999999999999999, "1" },
        { 999.9999999999999, "1000" },
        { 0.1234567890123456, "0,123456789012346" },
        { 0.00001234567890123456, "0,0000123456789012346" },
        { 1234567890123456.0, "1234567890123460" },
        { 123456789012345678.0, "123456789012346000" },
        { 9999999999999999.0, "10000000000000000" },
    };
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(PlainDecimalText(value), text);
    }
}

TEST(PlainDecimalText, NeverWritesAnExponent)
{
    const std::pair<double, std::string> cases[] = {
        { 1e15, "1" + repeated("0", 15) }, { 1e16, "1" + repeated("0", 16) }, { 1e22, "1" + repeated("0", 22) },
        { 1e300, "1" + repeated("0", 300) }, { -1.5e300, "-15" + repeated("0", 299) },
        { std::numeric_limits<double>::max(), "179769313486232" + repeated("0", 294) },
        { 1e-15, "0," + repeated("0", 14) + "1" }, { 1e-300, "0," + repeated("0", 299) + "1" },
        { -2.5e-300, "-0," + repeated("0", 299) + "25" },
        { std::numeric_limits<double>::min(), "0," + repeated("0", 307) + "22250738585072" },
        { std::numeric_limits<double>::denorm_min(), "0," + repeated("0", 323) + "494065645841247" },
        { 1e-310, "0," + repeated("0", 310) + "999999999999997" }, // so small numbers have fewer than 15 exact digits
    };
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(PlainDecimalText(value), text);
    }
}

TEST(PlainDecimalText, WritesEveryNumberAsItIsWorkedOutOnPaper)
{
    std::mt19937_64 chance(20);
    int compared = 0;
    for (int i = 0; i < 400; ++i) {
        const double value = std::fabs(std::bit_cast<double>(chance()));
        const auto expected = std::isfinite(value) && value > 0 ? textOnPaper(value, 15) : std::nullopt;
        if (expected) {
            ASSERT_EQ(PlainDecimalText(value), *expected) << value;
            ASSERT_EQ(PlainDecimalText(-value), "-" + *expected) << value;
            ++compared;
        }
    }
    EXPECT_GT(compared, 390);
}

TEST(PlainDecimalText, WritesNumbersOfEverydaySizeAsTheyAreWorkedOutOnPaper)
{
    std::mt19937_64 chance(21);
    std::uniform_real_distribution<double> exponents(-7, 9);
    int compared = 0;
    for (int i = 0; i < 3000; ++i) {
        const double value = std::pow(10, exponents(chance));
        if (const auto expected = textOnPaper(value, 15)) {
            ASSERT_EQ(PlainDecimalText(value), *expected) << value;
            ++compared;
        }
    }
    EXPECT_GT(compared, 2990);
}

TEST(PlainDecimalText, GivesBackEveryNumberOfAtMost15Digits)
{
    std::mt19937_64 chance(22);
    for (int i = 0; i < 3000; ++i) {
        const auto digitCount = static_cast<std::size_t>(1 + chance() % 15);
        std::string digits;
        while (digits.size() < digitCount) {
            digits += static_cast<char>('1' + chance() % 9); // no zeros: no digit may be left out
        }
        const auto decimalCount = static_cast<std::size_t>(chance() % digitCount);
        std::string text = digits;
        if (decimalCount > 0) {
            text.insert(digitCount - decimalCount, ".");
        }
        double value = 0;
        std::from_chars(text.data(), text.data() + text.size(), value);
        if (decimalCount > 0) {
            text[digitCount - decimalCount] = ',';
        }
        ASSERT_EQ(PlainDecimalText(value), text);
    }
}

struct SingleCase {
    float Value;
    const char* Text;
};

TEST(PlainDecimalText, HasAtMost7SignificantDigitsOfASingle)
{
    const SingleCase cases[] = {
        { 0.0F, "0" },
        { -0.0F, "0" },
        { 1.0F, "1" },
        { -3.0F, "-3" },
        { 1200.0F, "1200" },
        { 0.1F, "0,1" },
        { 0.2F, "0,2" },
        { 19.99F, "19,99" },
        { -19.99F, "-19,99" },
        { 1234.5F, "1234,5" },
        { 1.0F / 3, "0,3333333" },
        { 2.0F / 3, "0,6666667" },
        { 200.0F / 3, "66,66666" },
        { 0.1F + 0.2F, "0,3" },
        { 1234567.0F, "1234567" },
        { 9999999.0F, "9999999" },
        { 16777216.0F, "16777220" },
        { 0.000001F, "0,000001" },
    };
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(PlainDecimalText(value), text);
    }
}

TEST(PlainDecimalText, NeverWritesAnExponentOfASingle)
{
    const std::pair<float, std::string> cases[] = {
        { 1e10F, "1" + repeated("0", 10) },
        { 1e38F, "1" + repeated("0", 38) },
        { std::numeric_limits<float>::max(), "3402823" + repeated("0", 32) },
        { -1e30F, "-1" + repeated("0", 30) },
        { 1e-10F, "0," + repeated("0", 9) + "1" },
        { std::numeric_limits<float>::min(), "0," + repeated("0", 37) + "1175494" },
        { std::numeric_limits<float>::denorm_min(), "0," + repeated("0", 44) + "1401298" },
    };
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(PlainDecimalText(value), text);
    }
}

TEST(PlainDecimalText, WritesEverySingleAsItIsWorkedOutOnPaper)
{
    std::mt19937 chance(23);
    int compared = 0;
    for (int i = 0; i < 3000; ++i) {
        const float value = std::fabs(std::bit_cast<float>(static_cast<std::uint32_t>(chance())));
        const auto expected
            = std::isfinite(value) && value > 0 ? textOnPaper(static_cast<double>(value), 7) : std::nullopt;
        if (expected) {
            ASSERT_EQ(PlainDecimalText(value), *expected) << value;
            ++compared;
        }
    }
    EXPECT_GT(compared, 2900);
}

TEST(PlainDecimalText, OverflowsForWhatIsNotFinite)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const double value : { infinity, -infinity, nan }) {
        EXPECT_EQ(KindThrownBy([&] { PlainDecimalText(value); }), RunTimeError::Kind::Overflow) << value;
        EXPECT_EQ(KindThrownBy([&] { PlainDecimalText(static_cast<float>(value)); }), RunTimeError::Kind::Overflow)
            << value;
        EXPECT_EQ(KindThrownBy([&] { FormatDisplayNumber(value); }), RunTimeError::Kind::Overflow) << value;
    }
}

// -------------------------------------------------------------------------------------------------- display numbers

TEST(FormatDisplayNumber, GroupsThousandsWithAPoint)
{
    const PlainCase cases[] = {
        { 5, "5" },
        { 42, "42" },
        { 999, "999" },
        { 1000, "1.000" },
        { 1234.5, "1.234,5" },
        { 12345, "12.345" },
        { 100000, "100.000" },
        { 123456.78, "123.456,78" },
        { 999999.999999, "999.999,999999" },
        { 1387.53, "1.387,53" },
    };
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(FormatDisplayNumber(value), text);
    }
}

TEST(FormatDisplayNumber, LeavesNumbersBelowAThousandAsTheyAre)
{
    for (int hundredths = 0; hundredths < 100000; hundredths += 7) {
        const double value = hundredths / 100.0;
        ASSERT_EQ(FormatDisplayNumber(value), PlainDecimalText(value));
    }
}

TEST(FormatDisplayNumber, LeavesDecimalsUngrouped)
{
    EXPECT_EQ(FormatDisplayNumber(0.123456789012), "0,123456789012");
    EXPECT_EQ(FormatDisplayNumber(1234.5678901), "1.234,5678901");
}

TEST(FormatDisplayNumber, RepeatsADigitAndDropsOneFromSevenIntegerDigitsOn)
{
    const PlainCase cases[] = {
        { 1234567, "1.123.567" },
        { 12345678, "12.234.678" },
        { 123456789, "123.345.789" },
        { 1234567890, "1.123.456.890" },
        { 1234567.25, "1.123.567,25" },
        { 1000000, "1.100.000" },
        { 9876543, "9.987.543" },
        { 12345678901, "12.234.567.901" },
        { 123456789012, "123.345.678.012" },
        { 1234567890123, "1.123.456.789.123" },
        { 123456789012345, "123.345.678.901.345" },
    };
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(FormatDisplayNumber(value), text);
    }
}

TEST(FormatDisplayNumber, LooksRightWithSevenDigitsWhenTheFirstFourAreEqual)
{
    EXPECT_EQ(FormatDisplayNumber(1111567), "1.111.567");
    EXPECT_EQ(FormatDisplayNumber(7777000.5), "7.777.000,5");
}

TEST(FormatDisplayNumber, CountsTheSignAsACharacter)
{
    const PlainCase cases[] = {
        { -0.0, "0" },
        { -1, "-1" },
        { -12, "-12" },
        { -12.5, "-12,5" },
        { -123, "-.123" },
        { -123.75, "-.123,75" },
        { -1234, "-1.234" },
        { -12345, "-12.345" },
        { -12345.678, "-12.345,678" },
        { -123456, "-.-12.456" },
        { -1234567, "-1.123.567" },
    };
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(FormatDisplayNumber(value), text);
    }
}

TEST(FormatDisplayNumber, MakesNoMoreThanSixGroupsBehindTheFirst)
{
    EXPECT_EQ(FormatDisplayNumber(123456789012345e3), "123.345.678.901.234.000"); // 18 digits
    EXPECT_EQ(FormatDisplayNumber(123456789012345e4), "1.123.456.789.012.345.000"); // 19 digits
    EXPECT_EQ(FormatDisplayNumber(123456789012345e7), "1234.456.789.012.345.000.000"); // 22 digits
    EXPECT_EQ(FormatDisplayNumber(1e22), "10000.000.000.000.000.000.000");
    EXPECT_EQ(FormatDisplayNumber(1e300), "1" + repeated("0", 282) + repeated(".000", 6));
}

TEST(FormatDisplayNumber, FollowsTheRuleForEveryLength)
{
    std::mt19937_64 chance(24);
    for (int length = 1; length <= 30; ++length) {
        for (int i = 0; i < 60; ++i) {
            const double value = std::pow(10, length - 1) * (1 + 8.9 * static_cast<double>(chance() % 1000) / 1000)
                * (i % 2 == 0 ? 1 : -1);
            const std::string plain = PlainDecimalText(value);
            const std::size_t comma = std::min(plain.find(','), plain.size());
            ASSERT_EQ(FormatDisplayNumber(value), GroupedByTheRule(plain.substr(0, comma)) + plain.substr(comma));
        }
    }
}

struct ReadCase {
    std::string_view Text;
    double Value;
};

TEST(ParseDisplayNumber, ReadsWhatPupilsType)
{
    const ReadCase cases[] = {
        { "", 0 },
        { "0", 0 },
        { "7", 7 },
        { "1387,53", 1387.53 },
        { "1.387,53", 1387.53 },
        { "1.234,5", 1234.5 },
        { "1234,5", 1234.5 },
        { "1234.5", 12345 },
        { "1.2.3.4", 1234 },
        { "...5", 5 },
        { "1,5.", 1.5 },
        { "1,5.5", 1.55 },
        { ".", 0 },
        { ",", 0 },
        { ",5", 0.5 },
        { "5,", 5 },
        { "0,25", 0.25 },
        { "007", 7 },
        { "-12,5", -12.5 },
        { "+12,5", 12.5 },
        { "-.123", -123 },
    };
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(ParseDisplayNumber(text), value) << text;
    }
}

TEST(ParseDisplayNumber, StopsAtTheFirstCharacterThatCannotContinueTheNumber)
{
    const ReadCase cases[] = {
        { "12,5a", 12.5 },
        { "1,2,3", 1.2 },
        { "12x34", 12 },
        { "12-3", 12 },
        { "12+3", 12 },
        { "3%", 3 },
        { "5 €", 5 },
        { "5ñ6", 5 },
        { "1e", 1 },
        { "1e+", 1 },
        { "1e-x", 1 },
        { "1e2,5", 100 },
        { "1e2e3", 100 },
        { "5\n6", 5 },
    };
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(ParseDisplayNumber(text), value) << text;
    }
}

TEST(ParseDisplayNumber, StopsAtANullCharacter)
{
    EXPECT_EQ(ParseDisplayNumber(std::string_view("1\0002", 3)), 1);
    EXPECT_EQ(ParseDisplayNumber(std::string_view("1,5\0002", 5)), 1.5);
}

TEST(ParseDisplayNumber, GivesZeroWhenNoNumberLeads)
{
    for (const char* text : { "", "   ", "a", "abc12", "-", "+", "--1", "+-1", "-a1", "€5", "e5", ",e5", "-,", "ocho",
             "inf", "nan", "infinity", "(5)", "#5" }) {
        EXPECT_EQ(ParseDisplayNumber(text), 0) << text;
    }
}

TEST(ParseDisplayNumber, IgnoresBlanks)
{
    const ReadCase cases[] = {
        { "  7", 7 },
        { "7  ", 7 },
        { "1 234,5", 1234.5 },
        { "- 5", -5 },
        { " 1 , 5 ", 1.5 },
        { "1 e 3", 1000 },
        { "  905,16", 905.16 },
        { "1.234,5 ", 1234.5 },
    };
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(ParseDisplayNumber(text), value) << text;
    }
}

TEST(ParseDisplayNumber, ReadsAnExponent)
{
    const ReadCase cases[] = {
        { "1e3", 1000 },
        { "1E3", 1000 },
        { "1e+3", 1000 },
        { "1,5e-2", 0.015 },
        { "1,5E2", 150 },
        { "-2e1", -20 },
        { ",5e1", 5 },
        { "1e03", 1000 },
        { "0e999", 0 },
    };
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(ParseDisplayNumber(text), value) << text;
    }
}

TEST(ParseDisplayNumber, GivesTheNearestNumber)
{
    const ReadCase cases[] = {
        { "0,1", 0.1 },
        { "9007199254740993", 9007199254740992 },
        { "9007199254740993,0000000000000000000001", 9007199254740994 },
        { "0,3000000000000000166", 0.3 },
        { "2,2250738585072011e-308", 2.2250738585072011e-308 },
        { "123456789012345678901234567890", 123456789012345678901234567890.0 },
    };
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(ParseDisplayNumber(text), value) << text;
    }
}

TEST(ParseDisplayNumber, GivesBackWhatWasFormattedUpToSixIntegerDigits)
{
    std::mt19937_64 chance(25);
    for (int i = 0; i < 3000; ++i) {
        const double scale = std::pow(10, static_cast<double>(chance() % 7)); // 0 to 6 decimals
        const double value = static_cast<double>(chance() % 1000000) + static_cast<double>(chance() % 1000000) / scale;
        if (value >= 1000000) {
            continue;
        }
        // The text has at most 15 significant digits; what has no more comes back exactly.
        double written = 0;
        std::string plain = PlainDecimalText(value);
        if (plain.find(',') != std::string::npos) {
            plain[plain.find(',')] = '.';
        }
        std::from_chars(plain.data(), plain.data() + plain.size(), written);
        ASSERT_EQ(ParseDisplayNumber(FormatDisplayNumber(value)), written);
        ASSERT_NEAR(written, value, 1e-9);
    }
}

TEST(ParseDisplayNumber, GivesBackAnotherNumberThanWasFormattedFromSevenIntegerDigitsOn)
{
    const std::pair<double, double> cases[] = {
        { 999999, 999999 },
        { 1234567, 1123567 },
        { 12345678, 12234678 },
        { 123456789, 123345789 },
        { 1234567890, 1123456890 },
        { 1234567.5, 1123567.5 },
        { 1111567, 1111567 }, // the first four digits are equal
        { -99999, -99999 },
        { -123456, 0 }, // the sign is a character, and is repeated as one: "-.-12.456"
        { -1234567, -1123567 },
    };
    for (const auto& [formatted, parsed] : cases) {
        EXPECT_EQ(ParseDisplayNumber(FormatDisplayNumber(formatted)), parsed) << FormatDisplayNumber(formatted);
    }
}

TEST(ParseDisplayNumber, ReadsTextsOfUpTo32767Characters)
{
    EXPECT_EQ(ParseDisplayNumber(repeated("0", 32766) + "7"), 7);
    EXPECT_EQ(ParseDisplayNumber("7" + repeated(" ", 32766)), 7);
    EXPECT_EQ(ParseDisplayNumber(repeated(".", 32766) + "7"), 7);
    EXPECT_EQ(ParseDisplayNumber("7" + repeated("ñ", 32766)), 7) << "ñ is one character of two bytes";
    EXPECT_EQ(ParseDisplayNumber("7" + repeated("€", 32766)), 7) << "€ is one character of three bytes";
}

TEST(ParseDisplayNumber, OverflowsForLongerTexts)
{
    for (const char* character : { "0", " ", ".", ",", "a", "ñ", "€" }) {
        const std::string text = repeated(character, 32768);
        EXPECT_EQ(KindThrownBy([&] { ParseDisplayNumber(text); }), RunTimeError::Kind::Overflow) << character;
    }
}

// -------------------------------------------------------------------------------------------------- leading numbers

TEST(LeadingNumber, ReadsWithAPointBeforeTheDecimals)
{
    const ReadCase cases[] = {
        { "1.5", 1.5 },
        { "1.2.3", 1.2 },
        { "1,5", 1 },
        { ".5", 0.5 },
        { "-.5", -0.5 },
        { "5.", 5 },
        { "5.e2", 500 },
        { ".", 0 },
        { "-.", 0 },
        { ".e5", 0 },
        { " 1 2 . 5 ", 12.5 },
        { "\t1\t2", 12 },
        { "+1.5E-2x", 0.015 },
        { "0x1F", 0 },
        { "1..5", 1 },
        { "", 0 },
    };
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(LeadingNumber(text), value) << text;
    }
}

TEST(LeadingNumber, GivesAnInfinityForWhatADoubleCannotHold)
{
    const ReadCase cases[] = {
        { "1e400", infinity },
        { "-1e400", -infinity },
        { "1e309", infinity },
        { "1.8e308", infinity },
        { "-1.8e308", -infinity },
        { "0.001e400", infinity },
        { "1e99999999999999999999", infinity },
        { "-1e99999999999999999999", -infinity },
    };
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(LeadingNumber(text), value) << text;
    }
    EXPECT_EQ(LeadingNumber(repeated("9", 400)), infinity);
    EXPECT_EQ(LeadingNumber("1.7976931348623157e308"), std::numeric_limits<double>::max());
    EXPECT_EQ(LeadingNumber("0." + repeated("0", 400) + "1e401"), 1);
    EXPECT_EQ(LeadingNumber("1" + repeated("0", 400) + "e-400"), 1);
}

TEST(LeadingNumber, GivesZeroForWhatIsTooSmall)
{
    for (const char* text : { "1e-400", "-1e-400", "1e-324", "2e-324", "100e-400", "1e-99999999999999999999",
             "0e99999999999999999999", "0e400", "0.0e-400", "-0" }) {
        EXPECT_EQ(LeadingNumber(text), 0) << text;
    }
    EXPECT_EQ(LeadingNumber("0." + repeated("0", 400) + "1"), 0);
    EXPECT_EQ(LeadingNumber("4e-324"), std::numeric_limits<double>::denorm_min());
    EXPECT_EQ(LeadingNumber("1e-310"), 1e-310);
}

TEST(LeadingNumber, TakesExponentsAtTheEdgeOf64Bits)
{
    EXPECT_EQ(LeadingNumber("1e9223372036854775807"), infinity);
    EXPECT_EQ(LeadingNumber("10e9223372036854775807"), infinity);
    EXPECT_EQ(LeadingNumber("-10e9223372036854775807"), -infinity);
    EXPECT_EQ(LeadingNumber("1e-9223372036854775808"), 0);
    EXPECT_EQ(LeadingNumber("0.001e-9223372036854775808"), 0);
}

// ---------------------------------------------------------------------------------------------------- typed numbers

TEST(ParseTypedNumber, ReadsTheSpanishConvention)
{
    const ReadCase cases[] = {
        { "0", 0 },
        { "7", 7 },
        { "1234,5", 1234.5 },
        { "1.234,5", 1234.5 },
        { "1.5", 15 },
        { "1,5", 1.5 },
        { "1.234.567", 1234567 },
        { "1.", 1 },
        { "1.,5", 1.5 },
        { "1.234.", 1234 },
        { "-3", -3 },
        { "+3", 3 },
        { "-1.234,25", -1234.25 },
        { ",5", 0.5 },
        { "-,5", -0.5 },
        { "5,", 5 },
        { "007", 7 },
        { "905,16", 905.16 },
        { "0,0000001", 0.0000001 },
        { "12345678901", 12345678901 },
    };
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(ParseTypedNumber(text), value) << text;
    }
}

TEST(ParseTypedNumber, ReadsAnExponent)
{
    const ReadCase cases[] = {
        { "1e3", 1000 },
        { "1E3", 1000 },
        { "1e+3", 1000 },
        { "1,5E-2", 0.015 },
        { "-2,5e1", -25 },
        { "1.000e-3", 1 },
        { "0e0", 0 },
    };
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(ParseTypedNumber(text), value) << text;
    }
}

TEST(ParseTypedNumber, AllowsBlanksAroundTheNumber)
{
    for (const char* text : { " 12,5", "12,5 ", "   12,5   " }) {
        EXPECT_EQ(ParseTypedNumber(text), 12.5) << text;
    }
}

TEST(ParseTypedNumber, IsNothingUnlessTheWholeTextIsANumber)
{
    for (const char* text : { "", " ", "hola", "12a", "a12", "1,2,3", "1,5.3", "1,234.5", "1..5", ".5", "--1", "+-1",
             "5-", "-", "+", ",", ".", "-,", "e3", ",e3", "1e", "1e+", "1e3,5", "1e3e3", "1 2", "- 1", "1 ,5", "inf",
             "nan", "-inf", "0x1F", "ñ", "1ñ" }) {
        EXPECT_EQ(ParseTypedNumber(text), std::nullopt) << text;
    }
}

TEST(ParseTypedNumber, IsNothingWithANullCharacterInTheText)
{
    EXPECT_EQ(ParseTypedNumber(std::string_view("1\0", 2)), std::nullopt);
    EXPECT_EQ(ParseTypedNumber(std::string_view("1\0002", 3)), std::nullopt);
    EXPECT_EQ(ParseTypedNumber(std::string_view("1,5\0", 4)), std::nullopt);
    EXPECT_EQ(ParseTypedNumber(std::string_view("\0001", 2)), std::nullopt);
}

TEST(ParseTypedNumber, OverflowsForWhatADoubleCannotHold)
{
    for (const char* text : { "1e400", "-1e400", "1e309", "1,8E308", "-1,8E308", "1e99999999999999999999" }) {
        EXPECT_EQ(KindThrownBy([&] { ParseTypedNumber(text); }), RunTimeError::Kind::Overflow) << text;
    }
    EXPECT_EQ(KindThrownBy([] { ParseTypedNumber(repeated("9", 310)); }), RunTimeError::Kind::Overflow);
    EXPECT_EQ(ParseTypedNumber(repeated("9", 308)), 1e308);
    EXPECT_EQ(ParseTypedNumber("1e308"), 1e308);
}

TEST(ParseTypedNumber, TakesWhatIsTooSmallAsZero)
{
    for (const char* text : { "1e-400", "-1e-400", "1e-99999999999999999999", "-0" }) {
        EXPECT_EQ(ParseTypedNumber(text), 0) << text;
    }
}

// ------------------------------------------------------------------------------------------------- padding, trimming

TEST(PadLeft, PutsBlanksBeforeTheTextUpToTheWidth)
{
    EXPECT_EQ(PadLeft("7", 3), "  7");
    EXPECT_EQ(PadLeft("12", 3), " 12");
    EXPECT_EQ(PadLeft("100", 3), "100");
    EXPECT_EQ(PadLeft("", 2), "  ");
    EXPECT_EQ(PadLeft("", 0), "");
    EXPECT_EQ(PadLeft(" 7", 4), "   7");
}

TEST(PadLeft, RefusesATextThatIsLongerThanTheWidth)
{
    EXPECT_EQ(KindThrownBy([] { PadLeft("1000", 3); }), RunTimeError::Kind::InvalidArgument);
    EXPECT_EQ(KindThrownBy([] { PadLeft("1", 0); }), RunTimeError::Kind::InvalidArgument);
    EXPECT_EQ(KindThrownBy([] { PadLeft("1", -1); }), RunTimeError::Kind::InvalidArgument);
    EXPECT_EQ(KindThrownBy([] { PadLeft("", -1); }), RunTimeError::Kind::InvalidArgument);
}

TEST(PadLeft, SaysInSpanishWhatDoesNotFit)
{
    try {
        FAIL() << "padded to " << PadLeft("1000", 3);
    } catch (const RunTimeError& error) {
        EXPECT_STREQ(error.KindName(), "Argumento no válido");
        EXPECT_STREQ(error.what(), "El número 1000 no cabe en 3 caracteres.");
    }
}

TEST(Trimmed, TakesTheBlanksOfBothEndsAway)
{
    EXPECT_EQ(Trimmed("  905,16"), "905,16");
    EXPECT_EQ(Trimmed("1.234,5 "), "1.234,5");
    EXPECT_EQ(Trimmed("   a  b   "), "a  b");
    EXPECT_EQ(Trimmed("a"), "a");
    EXPECT_EQ(Trimmed(" "), "");
    EXPECT_EQ(Trimmed("    "), "");
    EXPECT_EQ(Trimmed(""), "");
}

// ----------------------------------------------------------------------------------------------------------- locale

// One line for each function, so that a test can compare all of them at once.
std::string everythingWritten()
{
    std::string all;
    all += PlainDecimalText(1234567.25) + "\n" + PlainDecimalText(1234.5F) + "\n";
    all += FormatDisplayNumber(123456.78) + "\n" + FormatDisplayNumber(-1234.5) + "\n";
    all += PlainDecimalText(ParseDisplayNumber("1.234,5")) + "\n" + PlainDecimalText(ParseDisplayNumber("1;5")) + "\n";
    all += PlainDecimalText(LeadingNumber("1.5")) + "\n" + PlainDecimalText(LeadingNumber("1,5")) + "\n";
    all += PlainDecimalText(ParseTypedNumber("1.234,5e1").value()) + "\n";
    all += ParseTypedNumber("1;5") ? "number\n" : "no number\n";
    all += PadLeft("999", 5) + "\n";
    return all;
}

TEST(NumberText, IsTheSameUnderEveryLocale)
{
    const std::locale strange(std::locale::classic(), new StrangePunctuation);
    const std::string expected = "1234567,25\n1234,5\n123.456,78\n-1.234,5\n1234,5\n1\n1,5\n1\n12345\nno number\n"
                                 "  999\n";
    EXPECT_EQ(everythingWritten(), expected);
    for (const char* name : { "C", "C.UTF-8", "de_DE.UTF-8", "de_DE.utf8", "es_ES.UTF-8", "fr_FR.UTF-8", "en_US.UTF-8",
             "de-DE", "es-ES", "" }) {
        for (const std::locale& global : { std::locale::classic(), strange }) {
            std::string written;
            {
                const ForeignLocale foreign(name, global);
                written = everythingWritten();
            }
            EXPECT_EQ(written, expected) << name;
        }
    }
}

} // namespace

} // namespace numbrela
