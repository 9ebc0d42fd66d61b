#pragma once

#include "tests/support/Schoolbook.h"

#include <cmath>
#include <optional>
#include <string>
#include <string_view>

// Numbers as people type them: into boxes that read them as far as they make sense, and into boxes that take the whole
// text or refuse it.
namespace numbrela::testing {

// The number that a text begins with, of which only the first comma is a decimal one.
inline double FirstCommaNumberAtTheStart(std::string text)
{
    if (const std::size_t comma = text.find(','); comma != std::string::npos) {
        text[comma] = '.';
    }
    return NumberAtTheStart(text);
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
    static bool isDigit(char character) { return character >= '0' && character <= '9'; }

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

// The number that is typed, an infinity when it is too large; nothing when it is none.
inline std::optional<double> TypedNumberOnPaper(const std::string& text)
{
    const std::size_t first = std::min(text.find_first_not_of(' '), text.size());
    const std::string trimmed = text.substr(first, text.find_last_not_of(' ') + 1 - first);
    if (!TypedNumberAutomaton().Accepts(trimmed)) {
        return std::nullopt;
    }
    return CommaNumberAtTheStart(Without(trimmed, "."));
}

// The same as a price is kept, which is nothing when it is too large.
inline std::optional<float> TypedPriceOnPaper(const std::string& text)
{
    const auto price = static_cast<float>(TypedNumberOnPaper(text).value_or(HUGE_VAL));
    return std::isfinite(price) ? std::optional(price) : std::nullopt;
}

} // namespace numbrela::testing
