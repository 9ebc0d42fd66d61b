#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <vector>

// Stands between the program and the operating system wherever a catalogue is opened, read, written, brought to the
// disk, closed, locked, removed or put in its place. The linker redirects those calls (--wrap) to the FileFaults.cpp of
// the system, so that a test can really end the process at any of them.
namespace numbrela::testing {

enum class FaultKind {
    KillBefore, // the process ends as it makes the call
    KillHalfway, // it ends when half of a write is done, or the file that is to be replaced is gone; else as before
    KillAfter, // it ends as the call returns
    Fail, // the call does nothing and fails
    FailHalfway, // it fails when as much is done as with KillHalfway
    KeepFailing, // and so do all later calls of its name
    Stutter, // this and all later reads and writes pass a few bytes only
};

struct Fault {
    int Call; // counted from 0
    FaultKind Kind;
    int Error = 0; // the system's number for why a call fails
    int Milliseconds = std::numeric_limits<int>::max(); // how long a call keeps failing, by the clock of PassTime()
};

// From now on calls are counted, and the fault happens at the call that it names.
void ArmFault(Fault fault);

// Lets all calls through again, and returns the names of those that were made meanwhile.
std::vector<std::string> DisarmFault();

// The time that the program has waited since then, in milliseconds. Waiting takes no time of the test's.
int TimePassed();

// What the two systems' calls share; tests use only what is above.

void PassTime(int milliseconds);

bool IsArmed();

// Whether the next call is a read or write that passes a few bytes only, or is stopped halfway.
bool Stutters();
bool StopsHalfway();

// How many bytes of so many a read or write may pass.
std::size_t AllowedBytes(std::size_t count);

// Counts a call, and returns the fault that happens at it.
std::optional<Fault> CountCall(const char* name);

// The system's own.
void KillThisProcess();
void SetError(int error);

// Makes a call, or makes it fail with this value if it is the one chosen.
template <typename Value, typename Real>
Value PassCall(const char* name, Value failure, Real real)
{
    const std::optional<Fault> fault = CountCall(name);
    if (!fault || fault->Kind == FaultKind::Stutter) {
        return real();
    }
    if (fault->Kind == FaultKind::KillAfter) {
        real();
    }
    if (fault->Kind <= FaultKind::KillAfter) {
        KillThisProcess();
    }
    SetError(fault->Error);
    return failure;
}

} // namespace numbrela::testing
