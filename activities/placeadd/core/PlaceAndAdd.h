#pragma once

#include "common/core/Int16.h"
#include "common/core/OptionList.h"
#include "common/core/Random.h"
#include "common/core/Verdict.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace numbrela {

// Decimal numbers of different lengths that are to be placed under each other and added: draws them, says how they and
// their sum stand in columns, and judges the sum. Where the pupil places them is not judged. Boxes, signs, highlights
// and the focus are the form's.
class PlaceAndAdd {
public:
    static constexpr OptionList AddendCountChoices { 2, 5 };
    static constexpr OptionList MaxDigitsChoices { 2, 4 };
    static constexpr std::size_t MostAddends = 6;

    // The numbers as they stand under each other, units in the fourth column.
    struct Placement {
        std::vector<std::string> Addends;
        std::string Sum;
    };

    // Draws from `random`, which must outlive the exercise. The first exercise is drawn by the first NewPlaceAndAdd().
    explicit PlaceAndAdd(RandomSource& random);

    Int16 AddendCount = 4;
    Int16 MaxDigits = 3; // most digits of an addend before its comma is set
    std::array<float, MostAddends> Addends {}; // those from AddendCount on belong to no exercise
    float AddendSum = 0; // added up in the order of the addends, in single precision

    // Draws the addends, at least one of them short: of at most `MaxDigits` - 1 digits (or 1 and that many zeros).
    void NewPlaceAndAdd();

    // The addends in one line: "12,5 + 0,7 + 130".
    std::string DataLine() const;

    // The verdict on the sum in the answer box. `shown` is the last verdict: when it is repeated, a blank is added, so
    // that the pupil sees that the check was done. Only the whole part of what is written counts ("123,5" is 123),
    // blanks between its digits are ignored, and it must equal the sum exactly: so a sum that has decimals in single
    // precision is never right when it is typed with its comma.
    Verdict Judge(std::string_view answer, std::string_view shown) const;

    // The solution. Throws RunTimeError::InvalidArgument, with a sentence for the pupil, when the sum has more than the
    // four integer digits that there are columns for; no addend is longer than the sum.
    Placement Solution() const;

private:
    int drawUpTo(double end);
    void drawAddend(std::size_t index, bool& hasShort);
    std::size_t lastIndex() const { return static_cast<std::size_t>(AddendCount) - 1; }

    RandomSource& random_;
};

} // namespace numbrela
