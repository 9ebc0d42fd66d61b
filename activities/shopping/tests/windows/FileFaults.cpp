#include "activities/shopping/tests/FileFaults.h"

#include "activities/shopping/tests/OtherProcess.h"

#include <windows.h>

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

// Waiting takes no time while calls are counted.
void WINAPI sleepNot(DWORD milliseconds)
{
    if (!IsArmed()) {
        __real___imp_Sleep(milliseconds);
    }
}

} // namespace

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
