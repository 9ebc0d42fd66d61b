#include "activities/divide/core/WorkedDivision.h"

#include "common/core/RunTimeError.h"

#include <algorithm>
#include <cstdint>

namespace numbrela {

namespace {

std::int64_t in32Bits(double wholeNumber)
{
    if (wholeNumber < INT32_MIN || wholeNumber > INT32_MAX) {
        throw RunTimeError(RunTimeError::Kind::Overflow,
            "Los números de esta división son demasiado grandes para resolverla paso a paso.");
    }
    return static_cast<std::int64_t>(wholeNumber);
}

// The work on one task, step by step. Steps, like the digits of the dividend, are counted from 1, and the digit of step
// k stands in column k of the dividend's row, because that begins with a blank.
class Worker {
public:
    explicit Worker(const DivisionTask& task)
        : task_(task)
        , divisor_(in32Bits(task.Divisor))
    {
    }

    WorkedDivision Result()
    {
        const int steps = task_.DividendDigits + std::max(task_.DividendDecimals, task_.QuotientDecimals);
        for (int step = 1; step <= steps; ++step) {
            const std::int64_t bringDown = in32Bits(static_cast<double>(remainder_) * 10 + digitAt(step));
            const std::int64_t digit = bringDown / divisor_;
            remainder_ = bringDown % divisor_;
            writeStep(step, digit, step == steps);
            if (step == task_.DividendDigits) {
                endIntegerPart();
            }
        }
        return result_;
    }

private:
    void writeStep(int step, std::int64_t digit, bool last)
    {
        if (digit >= 1) {
            result_.Quotient += std::to_string(digit);
            if (task_.ShowSubtractions) {
                write("-" + std::to_string(digit * divisor_), step, ++row_);
            }
            write(std::to_string(remainder_) + characterAt(step + 1), last ? step : step + 1, ++row_);
        } else if (!result_.Quotient.empty()) {
            result_.Quotient += std::to_string(digit);
            write(characterAt(step + 1), step + 1, row_);
        }
    }

    void endIntegerPart()
    {
        if (result_.Quotient.empty()) {
            result_.Quotient = "0";
        }
        if (task_.DividendDecimals > 0 || task_.QuotientDecimals >= 1) {
            result_.Quotient += ",";
        }
    }

    void write(const std::string& text, int column, int row) { result_.Lines.push_back({ text, column, row }); }

    // The character itself; nothing behind the end.
    std::string characterAt(int step) const
    {
        const auto index = static_cast<std::size_t>(step - 1);
        return index < task_.Digits.size() ? task_.Digits.substr(index, 1) : std::string();
    }

    // What is no digit counts 0: blanks are the zeros that are brought down for decimals.
    int digitAt(int step) const
    {
        const std::string character = characterAt(step);
        return character >= "0" && character <= "9" ? character[0] - '0' : 0;
    }

    const DivisionTask& task_;
    std::int64_t divisor_;
    std::int64_t remainder_ = 0;
    int row_ = 0;
    WorkedDivision result_;
};

} // namespace

WorkedDivision WorkOut(const DivisionTask& task)
{
    return Worker(task).Result();
}

} // namespace numbrela
