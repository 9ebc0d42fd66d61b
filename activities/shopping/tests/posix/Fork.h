#pragma once

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <functional>

namespace numbrela::testing {

// Runs the action in a process of its own.
inline pid_t Fork(const std::function<int()>& action)
{
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit([&]() noexcept { return action(); }()); // an exception must not run the other tests here
    }
    return child;
}

// Waits for a process, and returns how it ended as a shell tells it.
inline int ExitStatusOf(pid_t process)
{
    constexpr int bySignal = 128;
    int status = -1;
    EXPECT_EQ(::waitpid(process, &status, 0), process);
    return WIFSIGNALED(status) ? bySignal + WTERMSIG(status) : WEXITSTATUS(status);
}

} // namespace numbrela::testing
