#include "activities/shopping/tests/CatalogueFaultTest.h"

#include <windows.h>

namespace numbrela::testing {

const char* const RenamingCall = "MoveFileExW";

std::vector<std::string> CallsOfASave()
{
    return { "CreateFileW", "GetFileAttributesW", "CreateFileW", "CloseHandle", "GetFileAttributesW", "CreateFileW",
        "WriteFile", "FlushFileBuffers", "CloseHandle", "CreateFileW", "ReadFile", "ReadFile", "CloseHandle",
        "MoveFileExW", "MoveFileExW", "CloseHandle" };
}

std::vector<std::pair<int, std::string>> FailuresOfTheDisk()
{
    constexpr int diskQuotaExceeded = 1295; // the compiler's headers have no name for it
    return { { ERROR_DISK_FULL, "el disco está lleno" }, { ERROR_HANDLE_DISK_FULL, "el disco está lleno" },
        { diskQuotaExceeded, "el disco está lleno" }, { ERROR_WRITE_PROTECT, "el disco es de solo lectura" },
        { ERROR_PATH_NOT_FOUND, "la carpeta no existe" }, { ERROR_IO_DEVICE, "el disco falla" },
        { ERROR_CRC, "el disco falla" }, { ERROR_NOT_READY, "el disco ya no está conectado" },
        { ERROR_GEN_FAILURE, "el disco ya no está conectado" },
        { ERROR_DEVICE_NOT_CONNECTED, "el disco ya no está conectado" },
        { ERROR_NETNAME_DELETED, "no se llega a la carpeta por la red" },
        { ERROR_BAD_NETPATH, "no se llega a la carpeta por la red" },
        { ERROR_FILE_TOO_LARGE, "el archivo sería demasiado grande" } };
}

// Closes what has been flushed or was only read, or the lock, or looks for what other saves have left.
bool IsHarmless(const std::vector<std::string>& calls, std::size_t call)
{
    return calls[call] == "CloseHandle" || (calls[call] == "GetFileAttributesW" && calls[call - 1] == "CloseHandle");
}

namespace {

class WindowsCatalogueFaultTest : public CatalogueFaultTest { };

// What a virus scanner or another program holds for a moment is tried again; what is held for longer is told.
TEST_F(WindowsCatalogueFaultTest, TriesAgainWhatSomebodyHoldsForAMomentAndSaysSoWhenThatDoesNotEnd)
{
    putOldFile();
    const std::vector<std::string> calls = callsOfASave();
    const std::pair<int, std::string> reasons[] = { { ERROR_SHARING_VIOLATION, "otro programa lo tiene abierto" },
        { ERROR_LOCK_VIOLATION, "otro programa lo tiene abierto" },
        { ERROR_USER_MAPPED_FILE, "otro programa lo tiene abierto" }, { ERROR_ACCESS_DENIED, "no hay permiso" } };
    for (const auto& [error, reason] : reasons) {
        for (int call = 0; std::cmp_less(call, calls.size()); ++call) {
            const std::string& name = calls[static_cast<std::size_t>(call)];
            if (name != "CreateFileW" && name != "MoveFileExW") {
                continue;
            }
            SCOPED_TRACE(reason + " at call " + std::to_string(call) + ", " + name);
            EXPECT_EQ(failureWith({ call, FaultKind::Fail, error }), "nothing");
            expectOnly(NewTable());

            const bool isLock = call == 0 && error == ERROR_SHARING_VIOLATION;
            EXPECT_EQ(failureWith({ call, FaultKind::KeepFailing, error }),
                unwritable(isLock ? "otro programa lo está guardando" : reason));
            expectOnly(OldTable());
        }
    }
}

// A file that somebody really holds: without sharing it for writing or for removal, as many programs do.
TEST_F(WindowsCatalogueFaultTest, SaysThatAnotherProgramHasTheFileOpenAndKeepsIt)
{
    putOldFile();
    for (const DWORD shared : { 0UL, static_cast<unsigned long>(FILE_SHARE_READ) }) {
        const HANDLE held = ::CreateFileW(
            path_.c_str(), GENERIC_READ, shared, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
        ASSERT_NE(held, INVALID_HANDLE_VALUE);
        EXPECT_EQ(FailureOf([&] { SaveCatalogue(path_, NewTable()); }), unwritable("otro programa lo tiene abierto"));
        ::CloseHandle(held);
        expectOnly(OldTable());
    }
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
