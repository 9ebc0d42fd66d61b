#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

// The texts of the program, as its sources hold them.
namespace numbrela::testing {

// A text in one of the program's sources.
struct ProgramText {
    std::string File; // "Form5.cpp"
    std::string Text; // as a person sees it: without the mark of an access key, blanks collapsed, one line
    bool IsCaption = false; // it has an access key
};

// All texts of the program and of the catalogue that a new installation starts with. What is put in at run time parts a
// text in two.
const std::vector<ProgramText>& ProgramTexts();

// The parts of a quote, which "…" separates where the program puts something in.
std::vector<std::string> PartsOf(std::string_view quote);

} // namespace numbrela::testing
