#include "activities/shopping/tests/FileFaults.h"

#include <algorithm>
#include <utility>

namespace numbrela::testing {

namespace {

std::optional<Fault> armed;
std::vector<std::string> calls;
int timePassed = 0;

bool isTheOne()
{
    return armed && std::cmp_equal(calls.size(), armed->Call);
}

bool failsAgain(const char* name)
{
    return armed && armed->Kind == FaultKind::KeepFailing && timePassed < armed->Milliseconds
        && std::cmp_greater(calls.size(), armed->Call) && calls[static_cast<std::size_t>(armed->Call)] == name;
}

} // namespace

void ArmFault(Fault fault)
{
    calls.clear();
    timePassed = 0;
    armed = fault;
}

std::vector<std::string> DisarmFault()
{
    armed.reset();
    return std::exchange(calls, {});
}

int TimePassed()
{
    return timePassed;
}

void PassTime(int milliseconds)
{
    timePassed += milliseconds;
}

bool IsArmed()
{
    return armed.has_value();
}

bool Stutters()
{
    return armed && armed->Kind == FaultKind::Stutter && std::cmp_greater_equal(calls.size(), armed->Call);
}

bool StopsHalfway()
{
    return isTheOne() && (armed->Kind == FaultKind::KillHalfway || armed->Kind == FaultKind::FailHalfway);
}

std::size_t AllowedBytes(std::size_t count)
{
    constexpr std::size_t few = 1000;
    return Stutters() ? std::min(count, few) : count;
}

std::optional<Fault> CountCall(const char* name)
{
    if (!armed) {
        return std::nullopt;
    }
    const bool happens = isTheOne() || failsAgain(name);
    calls.emplace_back(name);
    return happens ? armed : std::nullopt;
}

} // namespace numbrela::testing
