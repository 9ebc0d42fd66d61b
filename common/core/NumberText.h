#pragma once

#include <optional>
#include <string>
#include <string_view>

// Numbers as text, in the Spanish convention ("." between thousands, "," before the decimals), whatever the machine's
// own regional settings are. All text is UTF-8.
namespace numbrela {

// The number with "," before its decimals, no grouping, no exponent, at most 15 significant digits (a double) or 7
// (a float), no trailing zeros: 1234.5 gives "1234,5", 0.25 gives "0,25", 1200 gives "1200", -3 gives "-3".
// Throws RunTimeError::Overflow for what is not finite.
std::string PlainDecimalText(double value);
std::string PlainDecimalText(float value);

// PlainDecimalText with "." between groups of thousands: 123456.78 gives "123.456,78". A sign counts as a character, so
// -123 gives "-.123". From seven characters before the comma on, the groups left of the last one start one place too
// far to the left, on purpose, which repeats a digit and drops another: 1234567 gives "1.123.567".
std::string FormatDisplayNumber(double value);

// Reads what FormatDisplayNumber writes and what pupils type: "." is dropped, "," is the decimal point, reading stops
// at the first character that cannot continue the number: "1.234,5" gives 1234.5, "12,5a" gives 12.5, "" gives 0.
// Throws RunTimeError::Overflow for a text of more than 32767 characters.
double ParseDisplayNumber(std::string_view text);

// The number that a text begins with, "." being the decimal point: blanks anywhere are skipped; sign, digits, one point
// and an exponent are read as far as they go; no number gives 0. What a double cannot hold gives an infinity.
double LeadingNumber(std::string_view text);

// The number that a person typed into an input box, read whole or not at all: blanks around it, a sign, digits with "."
// between groups, "," and decimals, an exponent. "1.5" is fifteen, "1,5" one and a half. No number gives nothing.
// Throws RunTimeError::Overflow when a double cannot hold it.
std::optional<double> ParseTypedNumber(std::string_view text);

// The text (of ASCII characters, as numbers are) with blanks before it up to the width in characters.
// Throws RunTimeError::InvalidArgument when the text is longer than that: numbers in columns are never cut.
std::string PadLeft(std::string_view text, int width);

// The text without the blanks before and behind it.
std::string_view Trimmed(std::string_view text);

} // namespace numbrela
