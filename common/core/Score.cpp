#include "common/core/Score.h"

#include "common/core/NumberText.h"

namespace numbrela {

void Score::CountRight()
{
    if (Scorable) {
        Scorable = false;
        ++ExerciseCount;
    }
}

void Score::CountWrong()
{
    if (Scorable) {
        ++ExerciseCount;
        ++ErrorCount;
    }
}

std::string Score::Line() const
{
    constexpr int countWidth = 3;
    return "Ejercicios:" + PadLeft(std::to_string(ExerciseCount), countWidth)
        + "; Errores:" + PadLeft(std::to_string(ErrorCount), countWidth);
}

} // namespace numbrela
