#include "activities/shopping/tests/FileFaults.h"

#include <sys/types.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>

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

void KillThisProcess()
{
    ::kill(::getpid(), SIGKILL);
}

void SetError(int error)
{
    errno = error;
}

namespace {

// A read or write of so many bytes. One that stutters is interrupted every other time.
template <typename Real>
ssize_t passBytes(const char* name, size_t count, Real real)
{
    static bool interrupted = false;
    interrupted = Stutters() && !interrupted;
    if (interrupted) {
        CountCall(name);
        errno = EINTR;
        return -1;
    }
    return PassCall(name, ssize_t(-1), [=] { return real(AllowedBytes(count)); });
}

} // namespace

} // namespace numbrela::testing

using namespace numbrela::testing;

ssize_t __wrap_read(int file, void* bytes, size_t count)
{
    return passBytes("read", count, [=](size_t allowed) { return __real_read(file, bytes, allowed); });
}

ssize_t __wrap_write(int file, const void* bytes, size_t count)
{
    if (StopsHalfway()) {
        __real_write(file, bytes, count / 2);
    }
    return passBytes("write", count, [=](size_t allowed) { return __real_write(file, bytes, allowed); });
}

int __wrap_fsync(int file)
{
    return PassCall("fsync", -1, [=] { return __real_fsync(file); });
}

// A file is closed even where that fails.
int __wrap_close(int file)
{
    const int result = PassCall("close", -1, [=] { return __real_close(file); });
    if (result != 0) {
        const int error = errno;
        __real_close(file);
        errno = error;
    }
    return result;
}

int __wrap_renameat(int oldFolder, const char* oldName, int newFolder, const char* newName)
{
    if (StopsHalfway()) {
        ::unlinkat(newFolder, newName, 0);
    }
    return PassCall("renameat", -1, [=] { return __real_renameat(oldFolder, oldName, newFolder, newName); });
}

int __wrap_faccessat(int folder, const char* name, int right, int flags)
{
    return PassCall("faccessat", -1, [=] { return __real_faccessat(folder, name, right, flags); });
}

int __wrap_openat(int folder, const char* name, int flags, mode_t mode)
{
    return PassCall("openat", -1, [=] { return __real_openat(folder, name, flags, mode); });
}

int __wrap_flock(int file, int operation)
{
    return PassCall("flock", -1, [=] { return __real_flock(file, operation); });
}
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)
