#pragma once

#include <string>
#include <vector>

// Stands between the program and the operating system wherever a file is read, written, brought to the disk, closed,
// locked or renamed, and where a save asks for its right to write and opens the new file and the old one. The linker
// redirects those calls here (--wrap), so that a test can really stop the process at any of them.
namespace numbrela::testing {

enum class FaultKind {
    KillBefore, // the process is killed as it makes the call
    KillHalfway, // it is killed when half of a write is done; at other calls as before them
    KillAfter, // it is killed as the call returns
    Fail, // the call does nothing and fails
    Stutter, // reads and writes are interrupted and pass a few bytes only, in turn; other calls are not touched
};

struct Fault {
    int Call; // counted from 0
    FaultKind Kind;
    int Error = 0; // errno of a call that fails
};

// From now on calls are counted, and the fault happens at the call that it names, or, with Stutter, at that call and
// all later ones.
void ArmFault(Fault fault);

// Lets all calls through again, and returns the names of those that were made meanwhile.
std::vector<std::string> DisarmFault();

} // namespace numbrela::testing
