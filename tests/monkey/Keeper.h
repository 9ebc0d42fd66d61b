#pragma once

#include "tests/monkey/Order.h"

#include <functional>
#include <map>
#include <string>

namespace numbrela::testing {

// Lets a monkey play in a process of its own and watches it: a crash, a hang, or an end of the program that is not
// meant to be fails the run, and it is said how to repeat it. When the program ends as it is meant to, the monkey goes
// on in a new process, as a pupil starts the program again.
class Keeper {
public:
    // `play` runs in the new process and returns whether all events have happened; otherwise the program has ended.
    Keeper(const Order& order, std::function<bool(const Order&, Progress&)> play);
    ~Keeper();
    Keeper(const Keeper&) = delete;
    Keeper& operator=(const Keeper&) = delete;

    // Whether all went well. Prints what happened.
    bool Run();

private:
    enum class Outcome { Finished, Ended, Failed };

    Outcome runProcess();
    Outcome watch(int process, int aliveness);
    bool countEnd();
    void printHowToRepeat() const;

    const Order order_;
    const std::function<bool(const Order&, Progress&)> play_;
    Progress* progress_;
    std::map<std::string, int> ends_; // how often the program has ended, by window and cause
};

} // namespace numbrela::testing
