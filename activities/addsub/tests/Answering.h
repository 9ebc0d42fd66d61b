#pragma once

#include "activities/addsub/core/ColumnExercise.h"

#include <string_view>

namespace numbrela {

// What a window does with an answer: has it judged, then counted.
inline Verdict Check(ColumnExercise& exercise, std::string_view answer)
{
    Verdict verdict = exercise.Judge(answer);
    exercise.Score.Count(verdict.Right);
    return verdict;
}

} // namespace numbrela
