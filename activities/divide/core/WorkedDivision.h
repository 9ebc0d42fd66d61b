#pragma once

#include <string>
#include <vector>

namespace numbrela {

// A division to be worked out digit by digit.
struct DivisionTask {
    std::string Digits; // of the dividend without its comma, and the blanks that follow them on its row
    double Divisor = 1;
    int DividendDigits = 0; // integer digits
    int DividendDecimals = 0;
    int QuotientDecimals = 0;
    bool ShowSubtractions = false;
};

// One number of a working: its last character stands in this column of this row, the dividend being row 0.
struct WorkedLine {
    std::string Text;
    int Column = 0;
    int Row = 0;
};

// A quotient and the working that leads to it, from top to bottom.
struct WorkedDivision {
    std::string Quotient;
    std::vector<WorkedLine> Lines;
};

// Works a division out to the decimals of its dividend, or of its quotient if that has more. Each line holds a
// remainder with the next digit brought down beside it; with subtractions, what is subtracted stands above it. A 0 in
// the quotient only brings down the next digit. Throws RunTimeError::Overflow when a running remainder, or the divisor,
// does not fit 32 bits.
WorkedDivision WorkOut(const DivisionTask& task);

} // namespace numbrela
