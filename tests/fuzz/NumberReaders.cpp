#include "activities/divide/core/DivisionExercise.h"
#include "activities/multiply/core/FactorText.h"
#include "activities/shopping/core/Catalogue.h"
#include "common/core/NumberText.h"
#include "common/core/RunTimeError.h"

#include "tests/support/KindThrownBy.h"
#include "tests/support/Schoolbook.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Any bytes, given to everything that reads a number. "****" in front repeats what follows until it is longer than any
// text that the answer boxes' reader takes.
namespace numbrela::testing {

namespace {

constexpr std::size_t mostCharacters = 32767;

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

std::size_t charactersIn(std::string_view utf8)
{
    return static_cast<std::size_t>(
        std::count_if(utf8.begin(), utf8.end(), [](char byte) { return (byte & 0xC0) != 0x80; }));
}

// Whether a whole text is a number as people type it, told by a table of states, one character after the other.
class TypedNumberAutomaton {
public:
    bool Accepts(std::string_view text)
    {
        for (const char character : text) {
            state_ = next(character);
        }
        return state_ == Whole || state_ == Separator || state_ == Comma || state_ == Decimals || state_ == Exponent;
    }

private:
    enum State {
        Start,
        Signed,
        Whole,
        Separator,
        BareComma,
        Comma,
        Decimals,
        ExponentMark,
        ExponentSign,
        Exponent,
        Bad
    };

    State next(char character) const
    {
        const bool sign = character == '+' || character == '-';
        const bool mark = character == 'e' || character == 'E';
        switch (state_) {
        case Start:
        case Signed:
            return isDigit(character) ? Whole
                                      : (character == ',' ? BareComma : (sign && state_ == Start ? Signed : Bad));
        case Whole:
        case Separator:
            return isDigit(character)                 ? Whole
                : character == ','                    ? Comma
                : mark                                ? ExponentMark
                : character == '.' && state_ == Whole ? Separator
                                                      : Bad;
        case BareComma:
            return isDigit(character) ? Decimals : Bad;
        case Comma:
        case Decimals:
            return isDigit(character) ? Decimals : (mark ? ExponentMark : Bad);
        case ExponentMark:
            return isDigit(character) ? Exponent : (sign ? ExponentSign : Bad);
        case ExponentSign:
        case Exponent:
            return isDigit(character) ? Exponent : Bad;
        case Bad:
            break;
        }
        return Bad;
    }

    State state_ = Start;
};

void checkTrimmed(const std::string& text)
{
    const std::string_view trimmed = Trimmed(text);
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos) {
        EXPECT_TRUE(trimmed.empty());
        return;
    }
    EXPECT_NE(trimmed.front(), ' ');
    EXPECT_NE(trimmed.back(), ' ');
    std::string whole(first, ' ');
    whole += trimmed;
    whole.resize(text.size(), ' ');
    EXPECT_EQ(whole, text);
}

void checkPadLeft(const std::string& text)
{
    for (const int width : { -1, 0, 3, 8 }) {
        if (static_cast<int>(text.size()) > width) {
            EXPECT_EQ(KindThrownBy([&] { PadLeft(text, width); }), RunTimeError::Kind::InvalidArgument);
        } else {
            const std::string padded = PadLeft(text, width);
            EXPECT_EQ(static_cast<int>(padded.size()), width);
            EXPECT_TRUE(padded.ends_with(text));
            EXPECT_EQ(padded.find_first_not_of(' '),
                text.find_first_not_of(' ') == std::string::npos
                    ? std::string::npos
                    : padded.size() - text.size() + text.find_first_not_of(' '));
        }
    }
}

void checkAnswerBoxReader(const std::string& text)
{
    if (charactersIn(text) > mostCharacters) {
        EXPECT_EQ(KindThrownBy([&] { ParseDisplayNumber(text); }), RunTimeError::Kind::Overflow);
    } else {
        EXPECT_EQ(ParseDisplayNumber(text), NumberAtTheStart(Replaced(Without(text, "."), ',', '.')));
    }
}

void checkTypedNumber(const std::string& text)
{
    const std::string_view trimmed = Trimmed(text);
    const bool isNumber = TypedNumberAutomaton().Accepts(trimmed);
    const double value = NumberAtTheStart(Replaced(Without(std::string(trimmed), "."), ',', '.'));
    std::optional<double> read;
    const auto kind = KindThrownBy([&] { read = ParseTypedNumber(text); });
    if (isNumber && std::isinf(value)) {
        EXPECT_EQ(kind, RunTimeError::Kind::Overflow);
    } else {
        EXPECT_EQ(kind, std::nullopt);
        EXPECT_EQ(read, isNumber ? std::optional(value) : std::nullopt);
    }

    const std::optional<float> price = ParsePrice(text);
    const auto single = static_cast<float>(value);
    EXPECT_EQ(price, isNumber && std::isfinite(single) ? std::optional(single) : std::nullopt);
}

void checkCommaNumbers(const std::string& text)
{
    const double value = NumberAtTheStart(Replaced(text, ',', '.'));
    if (std::isinf(value)) {
        EXPECT_EQ(KindThrownBy([&] { ParseCommaNumber(text); }), RunTimeError::Kind::Overflow);
    } else {
        EXPECT_EQ(ParseCommaNumber(text), value);
    }

    std::string firstCommaAsPoint = text;
    if (const std::size_t comma = text.find(','); comma != std::string::npos) {
        firstCommaAsPoint[comma] = '.';
    }
    EXPECT_EQ(ParseFirstCommaNumber(text), NumberAtTheStart(firstCommaAsPoint));

    const std::string digits = DigitsOnly(text);
    EXPECT_EQ(digits.size(), text.size() - (text.find(',') == std::string::npos ? 0 : 1));
    EXPECT_EQ(Without(digits, ","), Without(text, ","));
}

void check(const std::string& text)
{
    EXPECT_EQ(LeadingNumber(text), NumberAtTheStart(text));
    checkTrimmed(text);
    checkPadLeft(text);
    checkAnswerBoxReader(text);
    checkTypedNumber(text);
    checkCommaNumbers(text);
}

} // namespace

} // namespace numbrela::testing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace numbrela::testing;
    constexpr std::string_view repetitionMark = "****";
    const std::string text(data, data + size);
    if (text.size() > repetitionMark.size() && text.starts_with(repetitionMark)) {
        std::string repeated;
        while (repeated.size() <= mostCharacters) {
            repeated += text.substr(repetitionMark.size());
        }
        checkAnswerBoxReader(repeated);
    } else {
        check(text);
    }
    return 0;
}
