#pragma once

#include "common/core/Int16.h"

#include <string>

namespace numbrela {

// The running count of exercises and errors of one activity window, and whether the exercise on the screen still
// changes it. What is right and what is wrong is for the activity to say.
class Score {
public:
    Int16 ExerciseCount; // exercises counted
    Int16 ErrorCount; // errors counted
    bool Scorable = true; // the current exercise still changes the counts

    // Counts a judged answer, as long as the exercise is scorable, and returns the score line. A right answer counts as
    // one exercise and makes the exercise unscorable, so that it counts only once. A wrong one counts as one exercise
    // and one error, every time. Throws RunTimeError::InvalidArgument, and counts nothing, when a count would have more
    // than three digits; RunTimeError::Overflow when it would not even fit 16 bits.
    std::string Count(bool right);

    // The score line, each count right-aligned in three characters: "Ejercicios:  7; Errores: 12".
    // Throws RunTimeError::InvalidArgument when a count has more than three digits.
    std::string Line() const;
};

} // namespace numbrela
