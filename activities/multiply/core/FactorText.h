#pragma once

#include <string>
#include <string_view>

// The digits of written factors and products. Factors and answers are plain decimal text with a comma ("12,05"); a
// whole number is a text of digits, behind a "-" when it is negative.
namespace numbrela {

// The text without its first comma: "12,05" gives "1205".
std::string DigitsOnly(std::string_view text);

// The product of two whole numbers, exact however many digits they have, without zeros in front: "007" and "30" give
// "210".
std::string WholeProduct(std::string_view number1, std::string_view number2);

// A whole number of units of the last decimal place as Spanish text, "." between thousands: 123450 with two decimals
// gives "1.234,50", 5 gives "0,05".
std::string GroupedDecimalText(std::string_view wholeNumber, int decimals);

} // namespace numbrela
