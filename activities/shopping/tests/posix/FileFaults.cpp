#include "activities/shopping/tests/posix/FileFaults.h"

#include <sys/types.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <optional>
#include <utility>

// The names are the linker's: a call of write() goes to __wrap_write(), and __real_write() is what was called.
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming)
extern "C" {
ssize_t __real_read(int file, void* bytes, size_t count);
ssize_t __real_write(int file, const void* bytes, size_t count);
int __real_fsync(int file);
int __real_close(int file);
int __real_renameat(int oldFolder, const char* oldName, int newFolder, const char* newName);
int __real_faccessat(int folder, const char* name, int right, int flags);
int __real_openat(int folder, const char* name, int flags, mode_t mode);
int __real_flock(int file, int operation);
ssize_t __wrap_read(int file, void* bytes, size_t count);
ssize_t __wrap_write(int file, const void* bytes, size_t count);
int __wrap_fsync(int file);
int __wrap_close(int file);
int __wrap_renameat(int oldFolder, const char* oldName, int newFolder, const char* newName);
int __wrap_faccessat(int folder, const char* name, int right, int flags);
int __wrap_openat(int folder, const char* name, int flags, mode_t mode);
int __wrap_flock(int file, int operation);
}

namespace numbrela::testing {

namespace {

std::optional<Fault> armed;
std::vector<std::string> calls;
bool interrupted = false;

void killThisProcess()
{
    ::kill(::getpid(), SIGKILL);
}

// Makes a call, or makes it fail if it is the one chosen.
template <typename Real>
auto pass(const char* name, Real real) -> decltype(real())
{
    if (!armed) {
        return real();
    }
    const bool isTheOne = std::cmp_equal(calls.size(), armed->Call);
    calls.emplace_back(name);
    if (!isTheOne) {
        return real();
    }
    switch (armed->Kind) {
    case FaultKind::KillBefore:
    case FaultKind::KillHalfway:
        killThisProcess();
        return -1;
    case FaultKind::KillAfter:
        real();
        killThisProcess();
        return -1;
    case FaultKind::Fail:
        errno = armed->Error;
        return -1;
    case FaultKind::Stutter:
        break;
    }
    return real();
}

bool stutters()
{
    return armed && armed->Kind == FaultKind::Stutter;
}

// Is interrupted, or passes a few bytes only, in turn.
template <typename Real>
ssize_t stutter(const char* name, size_t count, Real real)
{
    constexpr size_t fewBytes = 1000;
    calls.emplace_back(name);
    interrupted = !interrupted;
    if (interrupted) {
        errno = EINTR;
        return -1;
    }
    return real(std::min(count, fewBytes));
}

} // namespace

void ArmFault(Fault fault)
{
    calls.clear();
    interrupted = false;
    armed = fault;
}

std::vector<std::string> DisarmFault()
{
    armed.reset();
    return std::exchange(calls, {});
}

} // namespace numbrela::testing

using namespace numbrela::testing;

ssize_t __wrap_read(int file, void* bytes, size_t count)
{
    if (stutters()) {
        return stutter("read", count, [=](size_t few) { return __real_read(file, bytes, few); });
    }
    return pass("read", [=] { return __real_read(file, bytes, count); });
}

ssize_t __wrap_write(int file, const void* bytes, size_t count)
{
    if (stutters()) {
        return stutter("write", count, [=](size_t few) { return __real_write(file, bytes, few); });
    }
    if (armed && armed->Kind == FaultKind::KillHalfway && std::cmp_equal(calls.size(), armed->Call)) {
        __real_write(file, bytes, count / 2);
    }
    return pass("write", [=] { return __real_write(file, bytes, count); });
}

int __wrap_fsync(int file)
{
    return pass("fsync", [=] { return __real_fsync(file); });
}

// A file is closed even where that fails.
int __wrap_close(int file)
{
    const int result = pass("close", [=] { return __real_close(file); });
    if (result != 0) {
        const int error = errno;
        __real_close(file);
        errno = error;
    }
    return result;
}

int __wrap_renameat(int oldFolder, const char* oldName, int newFolder, const char* newName)
{
    return pass("renameat", [=] { return __real_renameat(oldFolder, oldName, newFolder, newName); });
}

int __wrap_faccessat(int folder, const char* name, int right, int flags)
{
    return pass("faccessat", [=] { return __real_faccessat(folder, name, right, flags); });
}

int __wrap_openat(int folder, const char* name, int flags, mode_t mode)
{
    return pass("openat", [=] { return __real_openat(folder, name, flags, mode); });
}

int __wrap_flock(int file, int operation)
{
    return pass("flock", [=] { return __real_flock(file, operation); });
}
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)
