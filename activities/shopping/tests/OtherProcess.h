#pragma once

#include <string>

namespace numbrela::testing {

// Another process of this test program, which does a task that DoTask() knows.
class OtherProcess {
public:
    explicit OtherProcess(const std::string& task);

    // Waits for the end. Whoever was killed has ended with KilledStatus.
    int ExitStatus();

private:
    long long process_; // as the system knows it
};

inline constexpr int KilledStatus = 137; // 128 and the number of the signal, as a shell tells it

// Does a task in this process, and returns its exit status. The tests that start processes define it.
int DoTask(const std::string& task);

} // namespace numbrela::testing
