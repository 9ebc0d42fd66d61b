#include "activities/shopping/tests/OtherProcess.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <filesystem>

namespace numbrela::testing {

namespace {

constexpr const wchar_t* taskVariable = L"NUMBRELA_TEST_TASK";

// What the other process runs. Without a task, by itself, there is nothing to do; hence it is no test of its own.
TEST(OtherProcess, DISABLED_DoesItsTask)
{
    wchar_t task[2 * MAX_PATH] {};
    ASSERT_NE(::GetEnvironmentVariableW(taskVariable, task, 2 * MAX_PATH), 0U);
    EXPECT_EQ(DoTask(std::filesystem::path(task).string()), 0);
}

} // namespace

OtherProcess::OtherProcess(const std::string& task)
{
    wchar_t program[MAX_PATH] {};
    ::GetModuleFileNameW(nullptr, program, MAX_PATH);
    std::wstring command = L"\"" + std::wstring(program)
        + L"\" --gtest_also_run_disabled_tests --gtest_filter=OtherProcess.* --gtest_brief=1";
    STARTUPINFOW start {};
    start.cb = sizeof start;
    PROCESS_INFORMATION process {};
    ::SetEnvironmentVariableW(taskVariable, std::filesystem::path(task).c_str());
    EXPECT_NE(
        ::CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process), 0);
    ::SetEnvironmentVariableW(taskVariable, nullptr);
    ::CloseHandle(process.hThread);
    process_ = HandleToLong(process.hProcess);
}

int OtherProcess::ExitStatus()
{
    const HANDLE process = LongToHandle(static_cast<long>(process_));
    DWORD status = 0;
    EXPECT_EQ(::WaitForSingleObject(process, INFINITE), WAIT_OBJECT_0);
    EXPECT_NE(::GetExitCodeProcess(process, &status), 0);
    ::CloseHandle(process);
    return static_cast<int>(status);
}

} // namespace numbrela::testing
