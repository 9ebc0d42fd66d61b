#include "common/core/NumberText.h"

#include "common/core/RunTimeError.h"

#include "tests/support/ExpectError.h"
#include "tests/support/ForeignLocale.h"
#include "tests/support/KindThrownBy.h"
#include "tests/support/Schoolbook.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <locale>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

namespace numbrela {

namespace {

using namespace testing;

constexpr double infinity = std::numeric_limits<double>::infinity();

std::string repeated(std::string_view text, int times)
{
    std::string repeated;
    for (; times > 0; --times) {
        repeated += text;
    }
    return repeated;
}

TEST(PlainDecimalText, WritesADecimalCommaNoGroupsNoExponentAndAtMost15Digits)
{
    const std::pair<double, std::string> cases[] = {
        { 0, "0" }, { -0.0, "0" }, { 10, "10" }, { -1234.5, "-1234,5" }, { 1.0 / 3, "0,333333333333333" },
        { -200.0 / 3, "-66,6666666666667" }, { 0.1 + 0.2, "0,3" }, { 999.9999999999999, "1000" },
        { 0.00001234567890123456, "0,0000123456789012346" }, { 999999999999999, "999999999999999" },
        { 123456789012345678.0, "123456789012346000" }, { 9999999999999999.0, "10000000000000000" },
        { 1e15, "1" + repeated("0", 15) }, { -1.5e300, "-15" + repeated("0", 299) },
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

TEST(PlainDecimalText, WritesAtMost7DigitsOfASingle)
{
    const std::pair<float, std::string> cases[] = { { 0.0F, "0" }, { -0.0F, "0" }, { -1234.5F, "-1234,5" },
        { 1.0F / 3, "0,3333333" }, { 200.0F / 3, "66,66666" }, { 0.1F + 0.2F, "0,3" }, { 9999999.0F, "9999999" },
        { 16777216.0F, "16777220" }, { 0.000001F, "0,000001" }, { 1e10F, "1" + repeated("0", 10) },
        { 1e38F, "1" + repeated("0", 38) }, { std::numeric_limits<float>::max(), "3402823" + repeated("0", 32) },
        { -1e30F, "-1" + repeated("0", 30) }, { 1e-10F, "0," + repeated("0", 9) + "1" },
        { std::numeric_limits<float>::min(), "0," + repeated("0", 37) + "1175494" },
        { std::numeric_limits<float>::denorm_min(), "0," + repeated("0", 44) + "1401298" } };
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(PlainDecimalText(value), text);
    }
}

TEST(PlainDecimalText, WritesEveryNumberAsItIsWorkedOutOnPaper)
{
    std::mt19937_64 chance(20);
    std::uniform_real_distribution<double> exponents(-7, 9);
    for (int i = 0; i < 3000; ++i) {
        for (const double value : { std::bit_cast<double>(chance()), std::pow(10, exponents(chance)) }) {
            if (std::isfinite(value)) {
                ASSERT_EQ(PlainDecimalText(value), RoundedText(value, 15));
            }
        }
        const float single = std::bit_cast<float>(static_cast<std::uint32_t>(chance()));
        if (std::isfinite(single)) {
            ASSERT_EQ(PlainDecimalText(single), RoundedText(static_cast<double>(single), 7));
        }
    }
}

TEST(PlainDecimalText, WritesEveryDecimalNumberOfAtMost15DigitsAsItIsRead)
{
    std::mt19937_64 chance(22);
    for (int i = 0; i < 3000; ++i) {
        const auto units = static_cast<std::int64_t>(chance() % 1'000'000'000'000'000);
        const std::string text = WithoutLastZeros(CommaText(units, i % 15));
        ASSERT_EQ(PlainDecimalText(ParseDisplayNumber(text)), text);
    }
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

// A sign counts as a character.
TEST(FormatDisplayNumber, GroupsThousandsByARuleThatRepeatsADigitFromSevenOn)
{
    const std::pair<double, const char*> cases[] = { { 999, "999" }, { 1000, "1.000" },
        { 999999.999999, "999.999,999999" }, { 0.123456789012, "0,123456789012" }, { 1234567, "1.123.567" },
        { 12345678, "12.234.678" }, { 123456789, "123.345.789" }, { 1234567.25, "1.123.567,25" },
        { 123456789012345, "123.345.678.901.345" }, { -0.0, "0" }, { -1, "-1" }, { -12.5, "-12,5" }, { -123, "-.123" },
        { -123.75, "-.123,75" }, { -1234, "-1.234" }, { -123456, "-.-12.456" }, { -1234567, "-1.123.567" } };
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(FormatDisplayNumber(value), text);
    }
}

TEST(FormatDisplayNumber, MakesNoMoreThanSixGroupsBehindTheFirst)
{
    EXPECT_EQ(FormatDisplayNumber(123456789012345e7), "1234.456.789.012.345.000.000"); // 22 digits
    EXPECT_EQ(FormatDisplayNumber(1e300), "1" + repeated("0", 282) + repeated(".000", 6));
}

TEST(FormatDisplayNumber, FollowsTheRuleForEveryLength)
{
    std::mt19937_64 chance(24);
    for (int length = 1; length <= 30; ++length) {
        for (int i = 0; i < 60; ++i) {
            const double value = std::pow(10, length - 1) * (1 + 8.9 * static_cast<double>(chance() % 1000) / 1000)
                * (i % 2 == 0 ? 1 : -1);
            ASSERT_EQ(FormatDisplayNumber(value), DisplayedByTheRule(PlainDecimalText(value)));
        }
    }
}

TEST(DecimalText, PutsTheCommaBeforeTheDecimals)
{
    for (int units = 0; units <= 1200; ++units) {
        for (int decimals = 0; decimals <= 4; ++decimals) {
            ASSERT_EQ(DecimalText(std::to_string(units), decimals), CommaText(units, decimals));
        }
    }
}

TEST(GroupThousands, PutsAPointBeforeEveryGroupLeftOfTheComma)
{
    const std::pair<const char*, const char*> cases[] = { { "0", "0" }, { "999", "999" }, { "1000", "1.000" },
        { "123456", "123.456" }, { "1234567", "1.234.567" }, { "1234567890", "1.234.567.890" }, { "1,2345", "1,2345" },
        { "999,5", "999,5" }, { "1234567,1234567", "1.234.567,1234567" } };
    for (const auto& [number, grouped] : cases) {
        EXPECT_EQ(GroupThousands(number), grouped);
    }
}

struct Readings {
    const char* Text;
    double Display; // ParseDisplayNumber
    double Point; // LeadingNumber
    double Comma; // ParseCommaNumber
    double Whole; // LeadingWholeNumber
    std::optional<double> Typed; // ParseTypedNumber
};

void expectReadings(std::string_view text, const Readings& expected)
{
    EXPECT_EQ(ParseDisplayNumber(text), expected.Display);
    EXPECT_EQ(LeadingNumber(text), expected.Point);
    EXPECT_EQ(ParseCommaNumber(text), expected.Comma);
    EXPECT_EQ(ParseFirstCommaNumber(text), expected.Comma);
    EXPECT_EQ(LeadingWholeNumber(text), expected.Whole);
    EXPECT_EQ(ParseTypedNumber(text), expected.Typed);
}

TEST(NumberReaders, EachReadsByItsOwnRule)
{
    constexpr std::nullopt_t none = std::nullopt;
    const Readings cases[] = {
        { "", 0, 0, 0, 0, none },
        { "   ", 0, 0, 0, 0, none },
        { "0", 0, 0, 0, 0, 0 },
        { "-0", 0, 0, 0, 0, 0 },
        { "+12,5", 12.5, 12, 12.5, 0, 12.5 },
        { "-12,5", -12.5, -12, -12.5, -12, -12.5 },
        { "- 5", -5, -5, -5, -5, none },
        { "--1", 0, 0, 0, 0, none },
        { "+-1", 0, 0, 0, 0, none },
        { "-", 0, 0, 0, 0, none },
        { ",", 0, 0, 0, 0, none },
        { "-,", 0, 0, 0, 0, none },
        { "...5", 5, 0, 0, 0, none },
        { ".5", 5, 0.5, 0.5, 0, none },
        { ",5", 0.5, 0, 0.5, 0, 0.5 },
        { "-.5", -5, -0.5, -0.5, 0, none },
        { "-,5", -0.5, 0, -0.5, 0, -0.5 },
        { "5,", 5, 5, 5, 5, 5 },
        { "5.", 5, 5, 5, 5, 5 },
        { "1,5", 1.5, 1, 1.5, 1, 1.5 },
        { "1.5", 15, 1.5, 1.5, 1, 15 },
        { "1.234,5", 1234.5, 1.234, 1.234, 1, 1234.5 },
        { "1.234.567", 1234567, 1.234, 1.234, 1, 1234567 },
        { "1,2,3", 1.2, 1, 1.2, 1, none },
        { "1.2.3", 123, 1.2, 1.2, 1, 123 },
        { "1..5", 15, 1, 1, 1, none },
        { "1.,5", 1.5, 1, 1, 1, 1.5 },
        { "1,5.", 1.5, 1, 1.5, 1, none },
        { "1,5.5", 1.55, 1, 1.5, 1, none },
        { "1,234.5", 1.2345, 1, 1.234, 1, none },
        { "1.5,2", 15.2, 1.5, 1.5, 1, 15.2 },
        { "-.123", -123, -0.123, -0.123, 0, none },
        { "1 234,5", 1234.5, 1234, 1234.5, 1234, none },
        { " 1 , 5 ", 1.5, 1, 1.5, 1, none },
        { "1.234,5 ", 1234.5, 1.234, 1.234, 1, 1234.5 },
        { "\t1\t2", 12, 12, 12, 0, none },
        { "12,5a", 12.5, 12, 12.5, 12, none },
        { "12 r 3", 12, 12, 12, 12, none },
        { "5 €", 5, 5, 5, 5, none },
        { "5\n6", 5, 5, 5, 5, none },
        { "1e", 1, 1, 1, 1, none },
        { "1e3", 1000, 1000, 1000, 1, 1000 },
        { "1E3", 1000, 1000, 1000, 1, 1000 },
        { "1,5E-2", 0.015, 1, 0.015, 1, 0.015 },
        { "1.5e-2", 0.15, 0.015, 0.015, 1, 0.15 },
        { ",5e1", 5, 0, 5, 0, 5 },
        { ".e5", 0, 0, 0, 0, none },
        { "1e2,5", 100, 100, 100, 1, none },
        { "1 e 3", 1000, 1000, 1000, 1, none },
        { "1.000e-3", 1, 0.001, 0.001, 1, 1 },
        { "0e999", 0, 0, 0, 0, 0 },
        { "€5", 0, 0, 0, 0, none },
        { "inf", 0, 0, 0, 0, none },
        { "0x1F", 0, 0, 0, 0, none },
        { "9007199254740993", 9007199254740992, 9007199254740992, 9007199254740992, 9007199254740992,
            9007199254740992 },
        { "9007199254740993,0000000000000000000001", 9007199254740994, 9007199254740992, 9007199254740994,
            9007199254740992, 9007199254740994 },
        { "2,2250738585072011e-308", 2.2250738585072011e-308, 2, 2.2250738585072011e-308, 2, 2.2250738585072011e-308 },
        { "1e400", infinity, infinity, infinity, 1, infinity },
        { "-1e400", -infinity, -infinity, -infinity, -1, -infinity },
        { "1e309", infinity, infinity, infinity, 1, infinity },
        { "1,8E308", infinity, 1, infinity, 1, infinity },
        { "1e-400", 0, 0, 0, 1, 0 },
        { "2e-324", 0, 0, 0, 2, 0 },
        { "100e-400", 0, 0, 0, 100, 0 },
    };
    for (const Readings& expected : cases) {
        SCOPED_TRACE(expected.Text);
        expectReadings(expected.Text, expected);
    }
}

TEST(NumberReaders, StopAtANullCharacter)
{
    using namespace std::literals;
    expectReadings("1\0x"sv, { "", 1, 1, 1, 1, std::nullopt });
    expectReadings("1,5\0"sv, { "", 1.5, 1, 1.5, 1, std::nullopt });
    expectReadings("\0x1"sv, { "", 0, 0, 0, 0, std::nullopt });
}

TEST(NumberReaders, ReadWhatIsTooLargeAsAnInfinityAndWhatIsTooSmallAsZero)
{
    const std::pair<std::string, double> cases[] = { { repeated("9", 310), infinity }, { repeated("9", 308), 1e308 },
        { "17976931348623157e292", std::numeric_limits<double>::max() },
        { "4e-324", std::numeric_limits<double>::denorm_min() }, { "1" + repeated("0", 400) + "e-400", 1 },
        { "1" + repeated("0", 400) + "e-50", infinity }, { "-1" + repeated("0", 400) + "e-50", -infinity },
        { "1" + repeated("0", 400) + "e-800", 0 }, { repeated("0", 400) + "1e309", infinity },
        { "1e99999999999999999999", infinity }, { "-1e99999999999999999999", -infinity },
        { "1e-99999999999999999999", 0 }, { "0e99999999999999999999", 0 }, { "1e9223372036854775807", infinity },
        { "10e9223372036854775807", infinity }, { "-10e9223372036854775807", -infinity },
        { "1e-9223372036854775808", 0 } };
    for (const auto& [text, value] : cases) {
        SCOPED_TRACE(text);
        EXPECT_EQ(ParseDisplayNumber(text), value);
        EXPECT_EQ(LeadingNumber(text), value);
        EXPECT_EQ(ParseCommaNumber(text), value);
        EXPECT_EQ(ParseTypedNumber(text), value);
    }
    const std::string withZeros = "0." + repeated("0", 400);
    for (const auto& [text, value] :
        { std::pair(withZeros + "1", 0.0), { withZeros + "1e50", 0.0 }, { withZeros + "1e401", 1.0 },
            { withZeros + "1e800", infinity }, { "0.001e400", infinity }, { "0.001e-9223372036854775808", 0.0 } }) {
        EXPECT_EQ(LeadingNumber(text), value) << text;
    }
    EXPECT_EQ(LeadingWholeNumber(repeated("9", 310)), infinity);
}

// 2^53 + 1 lies halfway between two doubles: a digit behind 20,000 zeros decides which of them is nearer.
TEST(NumberReaders, ReadTheNearestNumberHoweverManyDigitsItHas)
{
    const std::string zeros = repeated("0", 20'000);
    const std::pair<std::string, double> cases[] = { { "9007199254740993" + zeros + "0e-20001", 9007199254740992 },
        { "9007199254740993" + zeros + "1e-20001", 9007199254740994 },
        { "-9007199254740993" + zeros + "1e-20001", -9007199254740994 },
        { "9007199254740992" + repeated("9", 20'001) + "e-20001", 9007199254740992 }, { "1" + zeros + "e-20000", 1 } };
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(ParseDisplayNumber(text), value);
        EXPECT_EQ(LeadingNumber(text), value);
        EXPECT_EQ(ParseCommaNumber(text), value);
        EXPECT_EQ(ParseTypedNumber(text), value);
    }
    EXPECT_EQ(LeadingNumber("0." + zeros + "1e20001"), 1);
    EXPECT_EQ(ParseCommaNumber("9007199254740993," + zeros + "1"), 9007199254740994);
}

TEST(RequireFinite, OverflowsForAnInfinityOnly)
{
    EXPECT_EQ(RequireFinite(-1e308), -1e308);
    EXPECT_EQ(KindThrownBy([] { RequireFinite(infinity); }), RunTimeError::Kind::Overflow);
    EXPECT_EQ(KindThrownBy([] { RequireFinite(-infinity); }), RunTimeError::Kind::Overflow);
}

TEST(ParseDisplayNumber, GivesBackWhatWasFormattedUpToSixIntegerDigits)
{
    std::mt19937_64 chance(25);
    for (int i = 0; i < 3000; ++i) {
        const double value = static_cast<double>(chance() % 1'000'000'000'000) / std::pow(10, 6 + i % 7);
        ASSERT_EQ(ParseDisplayNumber(FormatDisplayNumber(value)), value);
    }
}

TEST(ParseDisplayNumber, ReadsTextsOfUpTo32767CharactersAndOverflowsForLongerOnes)
{
    EXPECT_EQ(ParseDisplayNumber(repeated("0", 32766) + "7"), 7);
    EXPECT_EQ(ParseDisplayNumber(repeated(".", 32766) + "7"), 7);
    for (const char* character : { "0", " ", ".", ",", "a", "ñ", "€" }) { // of one to three bytes
        const double sevenAndMore = *character == '0' ? infinity : 7;
        EXPECT_EQ(ParseDisplayNumber("7" + repeated(character, 32766)), sevenAndMore) << character;
        const std::string tooLong = repeated(character, 32768);
        EXPECT_EQ(KindThrownBy([&] { ParseDisplayNumber(tooLong); }), RunTimeError::Kind::Overflow) << character;
    }
}

TEST(LengthInCharacters, CountsCharactersAndNotBytes)
{
    EXPECT_EQ(LengthInCharacters(""), 0);
    EXPECT_EQ(LengthInCharacters("5 €"), 3);
    EXPECT_EQ(LengthInCharacters("señal"), 5);
}

TEST(PadLeft, PutsBlanksBeforeTheTextUpToTheWidthAndRefusesALongerOneAndSaysWhich)
{
    const std::tuple<const char*, int, const char*> padded[]
        = { { "7", 3, "  7" }, { "100", 3, "100" }, { "", 2, "  " }, { "", 0, "" }, { " 7", 4, "   7" } };
    for (const auto& [text, width, result] : padded) {
        EXPECT_EQ(PadLeft(text, width), result);
    }
    const std::pair<std::string, int> tooLong[] = { { "1000", 3 }, { "1", 0 }, { "1", -1 }, { "", -1 } };
    for (const auto& [text, width] : tooLong) {
        ExpectError(RunTimeError::Kind::InvalidArgument,
            "El número " + text + " no cabe en " + std::to_string(width) + " caracteres.",
            [&, text = text, width = width] { PadLeft(text, width); });
    }
}

TEST(Trimmed, TakesTheBlanksOfBothEndsAway)
{
    for (const auto& [text, trimmed] : { std::pair("  905,16", "905,16"), { "1.234,5 ", "1.234,5" },
             { "   a  b   ", "a  b" }, { "a", "a" }, { " ", "" }, { "    ", "" }, { "", "" } }) {
        EXPECT_EQ(Trimmed(text), trimmed);
    }
}

// One line for each function, so that a test can compare all of them at once.
std::string everythingWritten()
{
    std::string all;
    all += PlainDecimalText(1234567.25) + "\n" + PlainDecimalText(1234.5F) + "\n";
    all += FormatDisplayNumber(123456.78) + "\n" + FormatDisplayNumber(-1234.5) + "\n";
    all += GroupThousands(DecimalText("123450", 2)) + "\n";
    all += PlainDecimalText(ParseDisplayNumber("1.234,5")) + "\n" + PlainDecimalText(ParseDisplayNumber("1;5")) + "\n";
    all += PlainDecimalText(LeadingNumber("1.5")) + "\n" + PlainDecimalText(LeadingNumber("1,5")) + "\n";
    all += PlainDecimalText(ParseCommaNumber("1,5")) + "\n" + PlainDecimalText(LeadingWholeNumber("12")) + "\n";
    all += PlainDecimalText(ParseTypedNumber("1.234,5e1").value()) + "\n";
    all += ParseTypedNumber("1;5") ? "number\n" : "no number\n";
    all += PadLeft("999", 5) + "\n";
    return all;
}

TEST(NumberText, IsTheSameUnderEveryLocale)
{
    const std::locale strange(std::locale::classic(), new StrangePunctuation);
    const std::string expected
        = "1234567,25\n1234,5\n123.456,78\n-1.234,5\n1.234,50\n1234,5\n1\n1,5\n1\n1,5\n12\n12345\nno number\n"
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
