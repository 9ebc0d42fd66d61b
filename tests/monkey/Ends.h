#pragma once

#include <string>

namespace numbrela::testing {

// A run-time error that nobody caught and that has ended the program.
struct ProgramEnd {
    std::string Window; // that it came out of
    std::string Kind; // the Spanish name of the error's kind
    std::string Detail; // what the person at the screen is told, without the text that it quotes

    // The same for all errors of one cause: numbers are left out of the detail.
    std::string Cause() const;

    // Whether the program is meant to end by it.
    bool IsByDesign() const;
};

// Reads it from the text of the box in which the program says goodbye; the kind is empty when it is another box.
ProgramEnd EndToldIn(const std::string& boxText);

} // namespace numbrela::testing
