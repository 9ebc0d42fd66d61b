#include "activities/shopping/tests/OtherProcess.h"

#include "activities/shopping/tests/posix/Fork.h"

namespace numbrela::testing {

OtherProcess::OtherProcess(const std::string& task)
    : process_(Fork([&] { return DoTask(task); }))
{
}

int OtherProcess::ExitStatus()
{
    return ExitStatusOf(static_cast<pid_t>(process_));
}

} // namespace numbrela::testing
