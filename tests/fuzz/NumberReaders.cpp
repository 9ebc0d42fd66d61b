#include "activities/multiply/core/FactorText.h"
#include "activities/shopping/core/Money.h"
#include "common/core/NumberText.h"
#include "common/core/RunTimeError.h"

#include "tests/fuzz/FuzzInput.h"
#include "tests/fuzz/TypedNumber.h"
#include "tests/support/KindThrownBy.h"
#include "tests/support/Schoolbook.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

// Any bytes, given to everything that reads a number. "****" in front repeats what follows until it is longer than any
// text that the answer boxes' reader takes.
namespace numbrela::testing {

namespace {

constexpr std::size_t mostCharacters = 32767;

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
    if (CharactersIn(text) > mostCharacters) {
        EXPECT_EQ(KindThrownBy([&] { ParseDisplayNumber(text); }), RunTimeError::Kind::Overflow);
    } else {
        EXPECT_EQ(ParseDisplayNumber(text), CommaNumberAtTheStart(Without(text, ".")));
    }
}

void checkTypedNumber(const std::string& text)
{
    EXPECT_EQ(ParseTypedNumber(text), TypedNumberOnPaper(text));
    EXPECT_EQ(ParsePrice(text), TypedPriceOnPaper(text));
}

void checkCommaNumbers(const std::string& text)
{
    EXPECT_EQ(ParseCommaNumber(text), CommaNumberAtTheStart(text));
    EXPECT_EQ(ParseFirstCommaNumber(text), FirstCommaNumberAtTheStart(text));
    const std::string digits = DigitsOnly(text);
    EXPECT_EQ(digits.size(), text.size() - (text.find(',') == std::string::npos ? 0 : 1));
    EXPECT_EQ(Without(digits, ","), Without(text, ","));
}

// Blanks are passed over, a "-" may lead, and the digits go as far as they go.
void checkWholeNumber(const std::string& text)
{
    std::string solid = Without(text, " ");
    const std::size_t sign = solid.starts_with('-') ? 1 : 0;
    solid.resize(std::min(solid.find_first_not_of("0123456789", sign), solid.size()));
    EXPECT_EQ(LeadingWholeNumber(text), std::strtod(solid.c_str(), nullptr));
}

void checkText(const std::string& text)
{
    EXPECT_EQ(LeadingNumber(text), NumberAtTheStart(text));
    checkWholeNumber(text);
    EXPECT_EQ(static_cast<std::size_t>(LengthInCharacters(text)), CharactersIn(text));
    checkTrimmed(text);
    checkPadLeft(text);
    checkAnswerBoxReader(text);
    checkTypedNumber(text);
    checkCommaNumbers(text);
}

} // namespace

void Check(FuzzInput input)
{
    constexpr std::string_view repetitionMark = "****";
    const std::string text = input.TakeAll();
    if (text.size() > repetitionMark.size() && text.starts_with(repetitionMark)) {
        std::string repeated;
        while (repeated.size() <= mostCharacters) {
            repeated += text.substr(repetitionMark.size());
        }
        checkAnswerBoxReader(repeated);
    } else {
        checkText(text);
    }
}

} // namespace numbrela::testing
