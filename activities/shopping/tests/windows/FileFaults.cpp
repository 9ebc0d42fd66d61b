#include "activities/shopping/tests/windows/FileFaults.h"

#include <windows.h>

#include <algorithm>
#include <optional>
#include <utility>

// The names are the linker's. A function of a DLL is called through a pointer whose name begins with __imp_: the
// program takes __wrap___imp_ReadFile for that pointer, and __real___imp_ReadFile is the pointer itself.
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming)
extern "C" {
extern decltype(&CreateFileW) __real___imp_CreateFileW;
extern decltype(&GetFileAttributesW) __real___imp_GetFileAttributesW;
extern decltype(&ReadFile) __real___imp_ReadFile;
extern decltype(&WriteFile) __real___imp_WriteFile;
extern decltype(&FlushFileBuffers) __real___imp_FlushFileBuffers;
extern decltype(&CloseHandle) __real___imp_CloseHandle;
extern decltype(&DeleteFileW) __real___imp_DeleteFileW;
extern decltype(&MoveFileExW) __real___imp_MoveFileExW;
extern decltype(&Sleep) __real___imp_Sleep;
}

namespace numbrela::testing {

namespace {

std::optional<Fault> armed;
std::vector<std::string> calls;

void killThisProcess()
{
    ::TerminateProcess(::GetCurrentProcess(), KilledStatus);
}

bool isTheOne()
{
    return armed && std::cmp_equal(calls.size(), armed->Call);
}

bool fails(const char* name)
{
    const bool isLater = armed->Kind == FaultKind::KeepFailing && std::cmp_greater(calls.size(), armed->Call)
        && calls[static_cast<std::size_t>(armed->Call)] == name;
    return isLater || (isTheOne() && (armed->Kind == FaultKind::Fail || armed->Kind == FaultKind::KeepFailing));
}

// Makes a call, or makes it fail with this value if it is the one chosen.
template <typename Real, typename Value>
auto pass(const char* name, Value failure, Real real) -> decltype(real())
{
    if (!armed) {
        return real();
    }
    const bool chosen = isTheOne();
    const bool failing = fails(name);
    calls.emplace_back(name);
    if (failing) {
        ::SetLastError(armed->Error);
        return failure;
    }
    if (chosen && (armed->Kind == FaultKind::KillBefore || armed->Kind == FaultKind::KillHalfway)) {
        killThisProcess();
    }
    const auto result = real();
    if (chosen && armed->Kind == FaultKind::KillAfter) {
        killThisProcess();
    }
    return result;
}

// As many bytes as a read or write may pass.
DWORD allowed(DWORD count)
{
    constexpr DWORD fewBytes = 1000;
    const bool stutters
        = armed && armed->Kind == FaultKind::Stutter && std::cmp_greater_equal(calls.size(), armed->Call);
    return stutters ? std::min(count, fewBytes) : count;
}

HANDLE WINAPI createFile(
    LPCWSTR name, DWORD access, DWORD shared, LPSECURITY_ATTRIBUTES rights, DWORD creation, DWORD flags, HANDLE model)
{
    return pass("CreateFileW", INVALID_HANDLE_VALUE,
        [=] { return __real___imp_CreateFileW(name, access, shared, rights, creation, flags, model); });
}

DWORD WINAPI getFileAttributes(LPCWSTR name)
{
    return pass("GetFileAttributesW", INVALID_FILE_ATTRIBUTES, [=] { return __real___imp_GetFileAttributesW(name); });
}

BOOL WINAPI readFile(HANDLE file, LPVOID bytes, DWORD count, LPDWORD done, LPOVERLAPPED overlapped)
{
    return pass("ReadFile", FALSE,
        [=, few = allowed(count)] { return __real___imp_ReadFile(file, bytes, few, done, overlapped); });
}

BOOL WINAPI writeFile(HANDLE file, LPCVOID bytes, DWORD count, LPDWORD done, LPOVERLAPPED overlapped)
{
    if (isTheOne() && armed->Kind == FaultKind::KillHalfway) {
        __real___imp_WriteFile(file, bytes, count / 2, done, overlapped);
    }
    return pass("WriteFile", FALSE,
        [=, few = allowed(count)] { return __real___imp_WriteFile(file, bytes, few, done, overlapped); });
}

BOOL WINAPI flushFileBuffers(HANDLE file)
{
    return pass("FlushFileBuffers", FALSE, [=] { return __real___imp_FlushFileBuffers(file); });
}

// A file is closed even where that fails.
BOOL WINAPI closeHandle(HANDLE file)
{
    const BOOL result = pass("CloseHandle", FALSE, [=] { return __real___imp_CloseHandle(file); });
    if (result == FALSE) {
        const DWORD error = ::GetLastError();
        __real___imp_CloseHandle(file);
        ::SetLastError(error);
    }
    return result;
}

BOOL WINAPI deleteFile(LPCWSTR name)
{
    return pass("DeleteFileW", FALSE, [=] { return __real___imp_DeleteFileW(name); });
}

BOOL WINAPI moveFile(LPCWSTR from, LPCWSTR to, DWORD how)
{
    return pass("MoveFileExW", FALSE, [=] { return __real___imp_MoveFileExW(from, to, how); });
}

void WINAPI sleepNot(DWORD milliseconds)
{
    if (!armed) {
        __real___imp_Sleep(milliseconds);
    }
}

} // namespace

void ArmFault(Fault fault)
{
    calls.clear();
    armed = fault;
}

std::vector<std::string> DisarmFault()
{
    armed.reset();
    return std::exchange(calls, {});
}

} // namespace numbrela::testing

extern "C" {
decltype(&CreateFileW) __wrap___imp_CreateFileW = &numbrela::testing::createFile;
decltype(&GetFileAttributesW) __wrap___imp_GetFileAttributesW = &numbrela::testing::getFileAttributes;
decltype(&ReadFile) __wrap___imp_ReadFile = &numbrela::testing::readFile;
decltype(&WriteFile) __wrap___imp_WriteFile = &numbrela::testing::writeFile;
decltype(&FlushFileBuffers) __wrap___imp_FlushFileBuffers = &numbrela::testing::flushFileBuffers;
decltype(&CloseHandle) __wrap___imp_CloseHandle = &numbrela::testing::closeHandle;
decltype(&DeleteFileW) __wrap___imp_DeleteFileW = &numbrela::testing::deleteFile;
decltype(&MoveFileExW) __wrap___imp_MoveFileExW = &numbrela::testing::moveFile;
decltype(&Sleep) __wrap___imp_Sleep = &numbrela::testing::sleepNot;
}
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)
