#pragma once

#include <string>
#include <vector>

// Stands between the program and Windows wherever a catalogue is opened, read, written, brought to the disk, closed,
// removed or put in its place. The linker redirects those calls here (--wrap), so that a test can really end the
// process at any of them. Waiting takes no time meanwhile.
namespace numbrela::testing {

enum class FaultKind {
    KillBefore, // the process ends as it makes the call
    KillHalfway, // it ends when half of a write is done; at other calls as before them
    KillAfter, // it ends as the call returns
    Fail, // the call does nothing and fails
    KeepFailing, // and so do all later calls of its name
    Stutter, // this and all later reads and writes pass a few bytes only
};

struct Fault {
    int Call; // counted from 0
    FaultKind Kind;
    unsigned long Error = 0; // what GetLastError() tells of a call that fails
};

// How a process ends that is killed.
inline constexpr unsigned KilledStatus = 77;

// From now on calls are counted, and the fault happens at the call that it names.
void ArmFault(Fault fault);

// Lets all calls through again, and returns the names of those that were made meanwhile.
std::vector<std::string> DisarmFault();

} // namespace numbrela::testing
