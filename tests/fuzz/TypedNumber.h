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

// Whether a whole text is a number as people type it: digits, among and behind which there may be single points, then a
// comma with digits before or behind it, then an exponent.
inline bool IsTypedNumber(std::string_view text)
{
    const auto take = [&text](std::string_view characters) {
        const bool stands = !text.empty() && characters.find(text.front()) != std::string_view::npos;
        text.remove_prefix(stands ? 1 : 0);
        return stands;
    };
    const auto takeDigits = [&take] {
        bool any = false;
        while (take("0123456789")) {
            any = true;
        }
        return any;
    };
    take("+-");
    bool isNumber = takeDigits();
    while (isNumber && take(".") && takeDigits()) { }
    if (take(",")) {
        isNumber = takeDigits() || isNumber;
    }
    if (isNumber && take("eE")) {
        take("+-");
        isNumber = takeDigits();
    }
    return isNumber && text.empty();
}

// The number that is typed, an infinity when it is too large; nothing when it is none.
inline std::optional<double> TypedNumberOnPaper(const std::string& text)
{
    const std::size_t first = std::min(text.find_first_not_of(' '), text.size());
    const std::string trimmed = text.substr(first, text.find_last_not_of(' ') + 1 - first);
    if (!IsTypedNumber(trimmed)) {
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
