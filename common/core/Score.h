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

    // A right answer counts one exercise, once: it makes the exercise unscorable.
    void CountRight();

    // A wrong answer counts one exercise and one error, every time anew: it leaves the exercise scorable.
    void CountWrong();

    // The score line, each count right-aligned in three characters: "Ejercicios:  7; Errores: 12".
    // Throws RunTimeError::InvalidArgument when a count has more than three digits.
    std::string Line() const;
};

} // namespace numbrela
