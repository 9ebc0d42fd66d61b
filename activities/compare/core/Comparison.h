#pragma once

#include "common/core/Int16.h"
#include "common/core/Random.h"
#include "common/core/Verdict.h"

#include <array>
#include <string>

namespace numbrela {

// Which of six numbers is the greatest, or the smallest: draws the question, judges a click and counts. Windows and
// buttons, and which of them have vanished, are the form's.
class Comparison {
public:
    static constexpr std::size_t ButtonCount = 6;

    // Draws from `random`, which must outlive the comparison. The first question is drawn by the first NewComparison().
    explicit Comparison(RandomSource& random);

    Int16 CorrectButton; // index of the button that holds the answer
    Int16 Hits; // right answers since the window was opened
    Int16 Errors; // wrong clicks since then
    std::string Instruction; // what the question asks for
    std::array<std::string, ButtonCount> Captions; // the numbers, for example "4,127"

    // A new question: four different digits, none of them 0 or 8; the first one stands before the comma of every
    // number, the other three behind it in each of their six orders. No two numbers are equal.
    void NewComparison();

    // Judges a click on a button, "CORRECTO" or "ERROR", and counts it as a hit or as an error. Wrong clicks on one
    // question are counted each.
    // Throws RunTimeError::Overflow when a count passes 32767.
    Verdict Judge(int index);

    // The two counts: "Aciertos: 3;   Errores: 1."
    std::string ScoreLine() const;

private:
    std::array<char, 4> drawDigits();

    RandomSource& random_;
};

} // namespace numbrela
