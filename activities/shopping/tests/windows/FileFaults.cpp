#include "activities/shopping/tests/FileFaults.h"

#include "activities/shopping/tests/OtherProcess.h"

#include <windows.h>

// The names are the linker's. A function of a DLL is called through a pointer whose name begins with __imp_: the
// program takes __wrap___imp_ReadFile for that pointer, and __real___imp_ReadFile is the pointer itself.
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming)
extern "C" {
extern decltype(&CreateFileW) __real___imp_CreateFileW;
extern decltype(&GetFileAttributesW) __real___imp_GetFileAttributesW;
extern decltype(&GetFileType) __real___imp_GetFileType;
extern decltype(&GetFileSizeEx) __real___imp_GetFileSizeEx;
extern decltype(&ReadFile) __real___imp_ReadFile;
extern decltype(&WriteFile) __real___imp_WriteFile;
extern decltype(&FlushFileBuffers) __real___imp_FlushFileBuffers;
extern decltype(&CloseHandle) __real___imp_CloseHandle;
extern decltype(&DeleteFileW) __real___imp_DeleteFileW;
extern decltype(&MoveFileExW) __real___imp_MoveFileExW;
extern decltype(&GetTickCount64) __real___imp_GetTickCount64;
extern decltype(&Sleep) __real___imp_Sleep;
}

namespace numbrela::testing {

void KillThisProcess()
{
    ::TerminateProcess(::GetCurrentProcess(), KilledStatus);
}

void SetError(int error)
{
    ::SetLastError(static_cast<DWORD>(error));
}

namespace {

DWORD allowed(DWORD count)
{
    return static_cast<DWORD>(AllowedBytes(count));
}

HANDLE WINAPI createFile(
    LPCWSTR name, DWORD access, DWORD shared, LPSECURITY_ATTRIBUTES rights, DWORD creation, DWORD flags, HANDLE model)
{
    return PassCall("CreateFileW", INVALID_HANDLE_VALUE,
        [=] { return __real___imp_CreateFileW(name, access, shared, rights, creation, flags, model); });
}

DWORD WINAPI getFileAttributes(LPCWSTR name)
{
    return PassCall(
        "GetFileAttributesW", INVALID_FILE_ATTRIBUTES, [=] { return __real___imp_GetFileAttributesW(name); });
}

DWORD WINAPI getFileType(HANDLE file)
{
    return PassCall(
        "GetFileType", static_cast<DWORD>(FILE_TYPE_UNKNOWN), [=] { return __real___imp_GetFileType(file); });
}

BOOL WINAPI getFileSize(HANDLE file, PLARGE_INTEGER size)
{
    return PassCall("GetFileSizeEx", FALSE, [=] { return __real___imp_GetFileSizeEx(file, size); });
}

BOOL WINAPI readFile(HANDLE file, LPVOID bytes, DWORD count, LPDWORD done, LPOVERLAPPED overlapped)
{
    return PassCall(
        "ReadFile", FALSE, [=] { return __real___imp_ReadFile(file, bytes, allowed(count), done, overlapped); });
}

BOOL WINAPI writeFile(HANDLE file, LPCVOID bytes, DWORD count, LPDWORD done, LPOVERLAPPED overlapped)
{
    if (StopsHalfway()) {
        __real___imp_WriteFile(file, bytes, count / 2, done, overlapped);
    }
    return PassCall(
        "WriteFile", FALSE, [=] { return __real___imp_WriteFile(file, bytes, allowed(count), done, overlapped); });
}

BOOL WINAPI flushFileBuffers(HANDLE file)
{
    return PassCall("FlushFileBuffers", FALSE, [=] { return __real___imp_FlushFileBuffers(file); });
}

// A file is closed even where that fails.
BOOL WINAPI closeHandle(HANDLE file)
{
    const BOOL result = PassCall("CloseHandle", FALSE, [=] { return __real___imp_CloseHandle(file); });
    if (result == FALSE) {
        const DWORD error = ::GetLastError();
        __real___imp_CloseHandle(file);
        ::SetLastError(error);
    }
    return result;
}

BOOL WINAPI deleteFile(LPCWSTR name)
{
    return PassCall("DeleteFileW", FALSE, [=] { return __real___imp_DeleteFileW(name); });
}

BOOL WINAPI moveFile(LPCWSTR from, LPCWSTR to, DWORD how)
{
    if (StopsHalfway()) {
        __real___imp_DeleteFileW(to);
    }
    return PassCall("MoveFileExW", FALSE, [=] { return __real___imp_MoveFileExW(from, to, how); });
}

constexpr int oversleeping = 11; // milliseconds

ULONGLONG WINAPI getTickCount()
{
    return IsArmed() ? static_cast<ULONGLONG>(TimePassed()) : __real___imp_GetTickCount64();
}

// Windows wakes nobody up between two ticks of its clock.
void WINAPI sleepByTicks(DWORD milliseconds)
{
    if (IsArmed()) {
        PassTime(static_cast<int>(milliseconds) + oversleeping);
    } else {
        __real___imp_Sleep(milliseconds);
    }
}

} // namespace

} // namespace numbrela::testing

extern "C" {
decltype(&CreateFileW) __wrap___imp_CreateFileW = &numbrela::testing::createFile;
decltype(&GetFileAttributesW) __wrap___imp_GetFileAttributesW = &numbrela::testing::getFileAttributes;
decltype(&GetFileType) __wrap___imp_GetFileType = &numbrela::testing::getFileType;
decltype(&GetFileSizeEx) __wrap___imp_GetFileSizeEx = &numbrela::testing::getFileSize;
decltype(&ReadFile) __wrap___imp_ReadFile = &numbrela::testing::readFile;
decltype(&WriteFile) __wrap___imp_WriteFile = &numbrela::testing::writeFile;
decltype(&FlushFileBuffers) __wrap___imp_FlushFileBuffers = &numbrela::testing::flushFileBuffers;
decltype(&CloseHandle) __wrap___imp_CloseHandle = &numbrela::testing::closeHandle;
decltype(&DeleteFileW) __wrap___imp_DeleteFileW = &numbrela::testing::deleteFile;
decltype(&MoveFileExW) __wrap___imp_MoveFileExW = &numbrela::testing::moveFile;
decltype(&GetTickCount64) __wrap___imp_GetTickCount64 = &numbrela::testing::getTickCount;
decltype(&Sleep) __wrap___imp_Sleep = &numbrela::testing::sleepByTicks;
}
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)
