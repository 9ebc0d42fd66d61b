#pragma once

#include <optional>
#include <string>
#include <string_view>

// Money in euros, held in single precision as the catalogue holds its prices, and how the shopping activity reads and
// writes it.
namespace numbrela {

// Compares two amounts: 0 when they lie closer together than 0.0001, else -1 when the first is the smaller one and 1
// when it is the greater one.
int CompareMoney(float a, float b);

// The next multiple of 5 euros strictly above the amount rounded to whole euros (halves to even): what a person hands
// over in banknotes. 12.35 gives 15, 15 gives 20, 24.5 gives 25.
float NotesAbove(float amount);

// The amount that a person typed, "1,25"; nothing when the text is no number, or one that a single cannot hold.
std::optional<float> ParsePrice(std::string_view text);

// The amount that a text begins with, "." being the decimal point: "1,25" gives 1, "abc" gives 0; nothing when a single
// cannot hold it.
std::optional<float> LeadingPrice(std::string_view text);

// A price as it stands in a column, two decimals, right-aligned in six characters: "  0,85".
// Throws RunTimeError::InvalidArgument for a price that has no room there: 1000 and more.
std::string PriceText(float price);

// A price of any size as a plain number, "12,5"; "infinito" for an infinite one, which a catalogue file may hold
// because any price above zero is valid.
std::string PlainPriceText(float price);

// The money that a pupil sets out with, in whole euros of at least two digits: "25€", "05€", "1.250€".
std::string PurseText(float money);

// The money that is left after a purchase: "17,4 €".
std::string RemainderText(float money);

// A time in seconds as minutes and seconds, "25 : 00", "3 : 07"; empty when no time is left.
std::string TimeText(int seconds);

} // namespace numbrela
