#include "activities/shopping/tests/CatalogueFaultTest.h"

#include "activities/shopping/core/windows/ErrorNumbers.h"
#include "common/core/RunTimeError.h"

#include <windows.h>

#include <algorithm>
#include <limits>

namespace numbrela::testing {

const char* const ReadingCall = "ReadFile";
const char* const RenamingCall = "MoveFileExW";

std::vector<std::string> CallsOfASave()
{
    return { "CreateFileW", "GetFileAttributesW", "CreateFileW", "CloseHandle", "GetFileAttributesW", "CreateFileW",
        "WriteFile", "FlushFileBuffers", "CloseHandle", "CreateFileW", "ReadFile", "ReadFile", "CloseHandle",
        "MoveFileExW", "MoveFileExW", "CloseHandle" };
}

// All that the program knows, besides what it tries again and "file not found", which is no failure; and one more.
std::vector<std::pair<int, std::string>> FailuresOfTheDisk()
{
    const std::vector<std::pair<std::string, std::vector<DWORD>>> reasons {
        { "la carpeta no existe", { ERROR_PATH_NOT_FOUND, ERROR_DIRECTORY } },
        { "no hay permiso", { ERROR_NETWORK_ACCESS_DENIED, ERROR_PRIVILEGE_NOT_HELD } },
        { "el disco es de solo lectura", { ERROR_WRITE_PROTECT } },
        { "el disco está lleno", { ERROR_DISK_FULL, ERROR_HANDLE_DISK_FULL, DiskQuotaExceeded } },
        { "el archivo sería demasiado grande", { ERROR_FILE_TOO_LARGE } },
        { "el disco falla",
            { ERROR_CRC, ERROR_SECTOR_NOT_FOUND, ERROR_READ_FAULT, ERROR_WRITE_FAULT, ERROR_IO_DEVICE,
                ERROR_FILE_CORRUPT, ERROR_DISK_CORRUPT } },
        { "el disco ya no está conectado",
            { ERROR_INVALID_DRIVE, ERROR_NOT_READY, ERROR_GEN_FAILURE, ERROR_DEV_NOT_EXIST, ERROR_WRONG_DISK,
                ERROR_FILE_INVALID, ERROR_NO_MEDIA_IN_DRIVE, NoSuchDevice, ERROR_DEVICE_NOT_CONNECTED,
                ERROR_DEVICE_REMOVED } },
        { "no se llega a la carpeta por la red",
            { ERROR_BAD_NETPATH, ERROR_BAD_NET_NAME, ERROR_NETNAME_DELETED, ERROR_UNEXP_NET_ERR,
                ERROR_NETWORK_UNREACHABLE, ERROR_HOST_UNREACHABLE, ERROR_SEM_TIMEOUT } },
        { "el nombre es demasiado largo", { ERROR_FILENAME_EXCED_RANGE, ERROR_BUFFER_OVERFLOW } },
        { "el nombre no es válido", { ERROR_INVALID_NAME } },
        { "error 536870913 del sistema", { 536870913 } }, // the system has no words for it
    };
    std::vector<std::pair<int, std::string>> failures;
    for (const auto& [reason, errors] : reasons) {
        for (const DWORD error : errors) {
            failures.emplace_back(static_cast<int>(error), reason);
        }
    }
    return failures;
}

// Closes what has been flushed or was only read, or the lock, or looks for a folder of that name, which is told anyway,
// or for what other saves have left.
bool IsHarmless(const std::vector<std::string>& calls, std::size_t call)
{
    return calls[call] == "CloseHandle"
        || (calls[call] == "GetFileAttributesW" && (call == 0 || calls[call - 1] == "CloseHandle"));
}

namespace {

class WindowsCatalogueFaultTest : public CatalogueFaultTest {
protected:
    // Saves while a call and all later ones of its name fail for some time.
    std::string failureWhileHeld(int call, DWORD error, int milliseconds = std::numeric_limits<int>::max()) const
    {
        return failureWith({ call, FaultKind::KeepFailing, static_cast<int>(error), milliseconds });
    }
};

constexpr std::pair<DWORD, const char*> errorsThatMayPass[] = {
    { ERROR_SHARING_VIOLATION, "otro programa lo tiene abierto" },
    { ERROR_LOCK_VIOLATION, "otro programa lo tiene abierto" },
    { ERROR_USER_MAPPED_FILE, "otro programa lo tiene abierto" },
    { ERROR_DELETE_PENDING, "otro programa lo tiene abierto" },
    { ERROR_ACCESS_DENIED, "no hay permiso" },
};

constexpr int almostASecond = 960; // milliseconds
constexpr int second = 1000;

// Whether the program has tried for so long, and not much longer.
void expectTriedFor(int milliseconds)
{
    constexpr int onePause = 31;
    EXPECT_GE(TimePassed(), milliseconds);
    EXPECT_LE(TimePassed(), milliseconds + onePause);
}

bool isTriedAgain(const std::vector<std::string>& calls, std::size_t call)
{
    const std::string& name = calls[call];
    return name == "CreateFileW" || name == "MoveFileExW" || name == "ReadFile"
        || (name == "GetFileAttributesW" && !IsHarmless(calls, call));
}

TEST_F(WindowsCatalogueFaultTest, SavesAlthoughSomebodyHoldsAFileForAlmostASecondAndSaysSoAfterASecond)
{
    putOldFile();
    const std::vector<std::string> calls = callsOfASave();
    for (const auto& [error, reason] : errorsThatMayPass) {
        for (int call = 0; std::cmp_less(call, calls.size()); ++call) {
            if (!isTriedAgain(calls, static_cast<std::size_t>(call))) {
                continue;
            }
            SCOPED_TRACE(std::to_string(error) + " at call " + std::to_string(call) + ", "
                + calls[static_cast<std::size_t>(call)]);
            EXPECT_EQ(failureWhileHeld(call, error, almostASecond), "nothing");
            expectOnly(NewTable());

            const bool isLock = call == 0 && error == ERROR_SHARING_VIOLATION;
            EXPECT_EQ(failureWhileHeld(call, error), unwritable(isLock ? "otro programa lo está guardando" : reason));
            expectTriedFor(isLock ? 2 * second : second);
            expectOnly(OldTable());
        }
    }
}

TEST_F(WindowsCatalogueFaultTest, ReadsAlthoughSomebodyHoldsTheFileForAlmostASecondAndSaysSoAfterASecond)
{
    putOldFile();
    const std::vector<std::string> calls = callsOfReading();
    for (const auto& [error, reason] : errorsThatMayPass) {
        for (int call = 0; std::cmp_less(call, calls.size()); ++call) {
            if (!isTriedAgain(calls, static_cast<std::size_t>(call))) {
                continue;
            }
            const auto number = static_cast<int>(error);
            EXPECT_EQ(failureToReadWith({ call, FaultKind::KeepFailing, number, almostASecond }), "nothing");
            EXPECT_EQ(failureToReadWith({ call, FaultKind::KeepFailing, number }), unreadable(path_, reason));
            expectTriedFor(second);
        }
    }
}

TEST_F(WindowsCatalogueFaultTest, LeavesNothingBesideTheFileWhereTheNewOneIsHeldForAMoment)
{
    putOldFile();
    const auto saveOverSomethingElse = [this] { return SaveCatalogueIfUnchanged(path_, NewTable(), "other").Saved; };
    ArmFault({ -1, FaultKind::Fail });
    EXPECT_FALSE(saveOverSomethingElse());
    const std::vector<std::string> calls = DisarmFault();
    const auto removing = std::find(calls.begin(), calls.end(), "DeleteFileW") - calls.begin();
    ASSERT_TRUE(std::cmp_less(removing, calls.size()));
    ArmFault({ static_cast<int>(removing), FaultKind::KeepFailing, ERROR_SHARING_VIOLATION, almostASecond });
    EXPECT_FALSE(saveOverSomethingElse());
    DisarmFault();
    expectOnly(OldTable());
}

TEST_F(WindowsCatalogueFaultTest, SaysAnErrorThatItDoesNotKnowInTheWordsOfTheSystem)
{
    putOldFile();
    const std::string said = failureToReadWith({ 1, FaultKind::Fail, ERROR_TOO_MANY_OPEN_FILES });
    const std::string beginning = unreadable(path_, "error 4 del sistema (").substr(0, said.find('(') + 1);
    EXPECT_EQ(said.substr(0, beginning.size()), beginning);
    EXPECT_GT(said.size(), beginning.size() + 2);
    EXPECT_EQ(said.substr(said.size() - 2), ").");
    EXPECT_EQ(said.find_first_of("\r\n"), std::string::npos);
}

TEST_F(WindowsCatalogueFaultTest, SaysThatTheDiskIsGoneWhenItsLetterIs)
{
    char letter = 'Z';
    while (((::GetLogicalDrives() >> (letter - 'A')) & 1U) != 0) {
        --letter;
    }
    const std::filesystem::path path = std::string(1, letter) + ":\\Numbrela\\productos.dat";
    EXPECT_EQ(FailureOf([&] { LoadCatalogue(path); }), unreadable(path, "el disco ya no está conectado"));
    EXPECT_EQ(FailureOf([&] { SaveCatalogue(path, NewTable()); }),
        "No se puede escribir el archivo «" + path.string() + "»: el disco ya no está conectado.");
}

TEST_F(WindowsCatalogueFaultTest, NamesAFileWhoseNameIsNoText)
{
    const std::filesystem::path path = folder_.Path() / L"missing \xD83D" / L"productos.dat";
    EXPECT_EQ(FailureOf([&] { LoadCatalogue(path); }),
        unreadable(folder_.Path() / u8"missing \uFFFD" / "productos.dat", "la carpeta no existe"));
}

// A file that somebody really holds: without sharing it for writing or for removal, as many programs do. Windows
// refuses to replace it then as if a right were missing.
TEST_F(WindowsCatalogueFaultTest, SaysThatAnotherProgramHasTheFileOpenAndKeepsIt)
{
    putOldFile();
    ArmFault({ -1, FaultKind::Fail });
    SaveCatalogue(path_, OldTable());
    const std::vector<std::string> calls = DisarmFault();
    const auto last = std::find(calls.rbegin(), calls.rend(), RenamingCall);
    const int replacing = static_cast<int>(calls.rend() - last) - 1;
    constexpr DWORD sharedToRead = FILE_SHARE_READ;
    constexpr DWORD sharedToWrite = FILE_SHARE_READ | FILE_SHARE_WRITE;
    for (const DWORD shared : { DWORD(0), sharedToRead, sharedToWrite }) {
        const HANDLE held = ::CreateFileW(
            path_.c_str(), GENERIC_READ, shared, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
        ASSERT_NE(held, INVALID_HANDLE_VALUE);
        ArmFault(shared == sharedToWrite ? Fault { replacing, FaultKind::KeepFailing, ERROR_ACCESS_DENIED }
                                         : Fault { -1, FaultKind::Fail });
        EXPECT_EQ(FailureOf([&] { SaveCatalogue(path_, NewTable()); }), unwritable("otro programa lo tiene abierto"));
        DisarmFault();
        ::CloseHandle(held);
        expectOnly(OldTable());
    }
}

TEST_F(WindowsCatalogueFaultTest, KeepsAHiddenFileHidden)
{
    putOldFile();
    ASSERT_NE(::SetFileAttributesW(path_.c_str(), FILE_ATTRIBUTE_HIDDEN), 0);
    SaveCatalogue(path_, NewTable());
    EXPECT_NE(::GetFileAttributesW(path_.c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);
    expectOnly(NewTable());
}

TEST_F(WindowsCatalogueFaultTest, NamesADeviceAsNoFile)
{
    EXPECT_EQ(FailureOf([] { LoadCatalogue("NUL"); }), "No se puede leer el archivo «NUL»: no es un archivo de datos.");
}

TEST_F(WindowsCatalogueFaultTest, ReadsAndWritesInAFolderWhoseNameHasAccentsAndBlanks)
{
    const std::filesystem::path path = folder_.Path() / u8"Aula 3º" / u8"productos ñ.dat";
    std::filesystem::create_directory(path.parent_path());
    SaveCatalogue(path, OldTable());
    EXPECT_TRUE(LoadCatalogue(path) == OldTable());
    EXPECT_TRUE(std::filesystem::exists(folder_.Path() / L"Aula 3\u00BA" / L"productos \u00F1.dat"));
}

} // namespace

} // namespace numbrela::testing
