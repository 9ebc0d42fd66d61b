#pragma once

#include <optional>
#include <string>
#include <string_view>

// Numbers as text, in the Spanish convention ("." between thousands, "," before the decimals), whatever the machine's
// own regional settings are. All text is UTF-8.
namespace numbrela {

// --- Written numbers -------------------------------------------------------------------------------------------------

// The number with "," before its decimals, no grouping, no exponent, at most 15 significant digits (a double) or 7
// (a float), no trailing zeros: 1234.5 gives "1234,5", 0.25 gives "0,25", 1200 gives "1200", -3 gives "-3".
// Throws RunTimeError::Overflow for what is not finite.
std::string PlainDecimalText(double value);
std::string PlainDecimalText(float value);

// PlainDecimalText with "." between groups of thousands: 123456.78 gives "123.456,78". A sign counts as a character, so
// -123 gives "-.123". From seven characters before the comma on, the groups left of the last one start one place too
// far to the left, on purpose, which repeats a digit and drops another: 1234567 gives "1.123.567".
std::string FormatDisplayNumber(double value);

// A text of digits that counts units of the last decimal place, with its comma: "5" with two decimals gives "0,05",
// "1200" gives "12,00".
std::string DecimalText(std::string_view digits, int decimals);

// The text of a number without a sign, with "." between all groups of thousands: "1234567,5" gives "1.234.567,5".
std::string GroupThousands(std::string number);

// --- Read numbers ----------------------------------------------------------------------------------------------------
//
// A number is a sign, digits, a decimal mark, digits and an exponent. All but the digits on one side of the mark may be
// missing, and an exponent has digits of its own: "-12,5", "7", "5,", ",5", "1,5E-2". How the readers differ:
//
//   reader                 takes           decimal mark  passes over                        no number is
//   ParseDisplayNumber     the beginning   ,             blanks, tabs and . anywhere        0
//   LeadingNumber          the beginning   .             blanks and tabs anywhere           0
//   ParseCommaNumber       the beginning   , or .        blanks and tabs anywhere           0
//   LeadingWholeNumber     the beginning   none          blanks anywhere                    0
//   ParseTypedNumber       the whole text  ,             blanks around it, . behind digits  nothing
//
// No number is an error. What is too large for a double is read as an infinity, what is too small as 0.

// What FormatDisplayNumber writes and what pupils answer: "1.234,5" gives 1234.5, "12,5a" gives 12.5, "1.5" gives 15.
// Throws RunTimeError::Overflow for a text of more than 32767 characters, read or not.
double ParseDisplayNumber(std::string_view text);

// "1.5" gives 1.5, "1,5" gives 1, " 1 2x3" gives 12.
double LeadingNumber(std::string_view text);

// "1,5" and "1.5" give 1.5. A number has one mark only: a second one ends it, so that "1,2,3" gives 1.2 and "1.234,5"
// gives 1.234. The second name is that of divisions, which ask for the first comma.
double ParseCommaNumber(std::string_view text);
inline double ParseFirstCommaNumber(std::string_view text)
{
    return ParseCommaNumber(text);
}

// Without "+" and without an exponent: "  1 5" gives 15, "- 7" gives -7, "3,14" gives 3.
double LeadingWholeNumber(std::string_view text);

// What a person typed into an input box: "1.5" is fifteen, "1,5" one and a half, "1 5" and "1,5 €" are nothing.
std::optional<double> ParseTypedNumber(std::string_view text);

// Returns the number, for callers that cannot use one too large for a double: throws RunTimeError::Overflow for an
// infinity.
double RequireFinite(double number);

// --- Characters ------------------------------------------------------------------------------------------------------

// How many characters a text has: "5 €" has three.
int LengthInCharacters(std::string_view utf8);

// The text (of ASCII characters, as numbers are) with blanks before it up to the width in characters.
// Throws RunTimeError::InvalidArgument when the text is longer than that: numbers in columns are never cut.
std::string PadLeft(std::string_view text, int width);

// The text without the blanks before and behind it.
std::string_view Trimmed(std::string_view text);

} // namespace numbrela
