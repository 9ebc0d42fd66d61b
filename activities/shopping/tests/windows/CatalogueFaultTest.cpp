#include "activities/shopping/core/Catalogue.h"

#include "activities/shopping/tests/TemporaryFolder.h"
#include "activities/shopping/tests/TestTables.h"
#include "activities/shopping/tests/windows/FileFaults.h"
#include "common/core/RunTimeError.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <functional>
#include <set>
#include <sstream>
#include <utility>

namespace numbrela {

namespace {

using namespace testing;

constexpr const wchar_t* taskVariable = L"NUMBRELA_TEST_TASK"; // what another process of this test is to do

ProductTable products(int count, float price)
{
    ProductTable table(1);
    for (int i = 0; i < count; ++i) {
        AddProduct(table, ProductOf("Producto " + std::to_string(i), "Frutería", price));
    }
    return table;
}

ProductTable oldTable()
{
    return products(2500, 1);
}
ProductTable newTable()
{
    return products(3000, 2);
}

std::filesystem::path pathOf(const std::string& utf8)
{
    return std::u8string(utf8.begin(), utf8.end());
}

// Another process of this test program, and the task that it is given.
class Process {
public:
    explicit Process(const std::string& task)
    {
        wchar_t program[MAX_PATH] {};
        ::GetModuleFileNameW(nullptr, program, MAX_PATH);
        std::wstring command = L"\"" + std::wstring(program)
            + L"\" --gtest_also_run_disabled_tests --gtest_filter=AnotherProcess.* --gtest_brief=1";
        STARTUPINFOW start {};
        start.cb = sizeof start;
        ::SetEnvironmentVariableW(taskVariable, pathOf(task).c_str());
        EXPECT_NE(
            ::CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process_),
            0);
        ::SetEnvironmentVariableW(taskVariable, nullptr);
    }

    DWORD ExitStatus()
    {
        DWORD status = 0;
        EXPECT_EQ(::WaitForSingleObject(process_.hProcess, INFINITE), WAIT_OBJECT_0);
        EXPECT_NE(::GetExitCodeProcess(process_.hProcess, &status), 0);
        ::CloseHandle(process_.hThread);
        ::CloseHandle(process_.hProcess);
        return status;
    }

private:
    PROCESS_INFORMATION process_ {};
};

// The text of the error that the action threw.
std::string failureOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.ErrorKind(), RunTimeError::Kind::File);
        return error.what();
    }
    return "nothing";
}

CatalogueContent contentOf(const std::filesystem::path& path)
{
    return std::filesystem::exists(path) ? CatalogueContent(ReadBytes(path)) : std::nullopt;
}

// As the editor saves: over what it has read.
void saveNew(const std::filesystem::path& path, const CatalogueContent& expected)
{
    EXPECT_TRUE(SaveCatalogueIfUnchanged(path, newTable(), expected).Saved);
}

class CatalogueFaultTest : public ::testing::Test {
protected:
    void save() const { saveNew(path_, contentOf(path_)); }

    std::vector<std::string> callsOfASave() const
    {
        const CatalogueContent expected = contentOf(path_);
        ArmFault({ -1, FaultKind::Fail });
        saveNew(path_, expected);
        return DisarmFault();
    }

    // Whether a call closes a file that was only read or the lock, or looks for what other saves have left.
    static bool losesNothing(const std::vector<std::string>& calls, int call)
    {
        const auto index = static_cast<std::size_t>(call);
        const std::string before = index > 0 ? calls[index - 1] : "";
        return (calls[index] == "CloseHandle" && before != "FlushFileBuffers")
            || (calls[index] == "GetFileAttributesW" && before == "CloseHandle");
    }

    void putOldFile() const
    {
        std::filesystem::remove(path_);
        SaveCatalogue(path_, oldTable());
    }

    std::string unwritable(const std::string& reason) const
    {
        return "No se puede escribir el archivo «" + path_.string() + "»: " + reason + ".";
    }

    void expectOnlyTheCatalogue() const { EXPECT_EQ(folder_.Names(), std::vector<std::string> { "productos.dat" }); }

    // What is said when a call of a save over the old file fails.
    std::string failureWith(Fault fault) const
    {
        putOldFile();
        const CatalogueContent expected = contentOf(path_);
        ArmFault(fault);
        const std::string said = failureOf([&] { saveNew(path_, expected); });
        DisarmFault();
        return said;
    }

    void expectStaysWholeWhenKilled(
        FaultKind kind, const std::function<void()>& prepare, const ProductTable& before) const
    {
        prepare();
        const std::vector<std::string> calls = callsOfASave();
        const auto move = std::find(calls.begin(), calls.end(), "MoveFileExW") - calls.begin();
        for (int call = 0; std::cmp_less(call, calls.size()); ++call) {
            SCOPED_TRACE("call " + std::to_string(call) + ", " + calls[static_cast<std::size_t>(call)]);
            prepare();
            std::ostringstream task;
            task << "save " << call << ' ' << static_cast<int>(kind) << ' ' << path_.string();
            ASSERT_EQ(Process(task.str()).ExitStatus(), KilledStatus);

            const bool isMoved = call > move || (call == move && kind == FaultKind::KillAfter);
            EXPECT_TRUE(LoadCatalogue(path_) == (isMoved ? newTable() : before));
            save();
            EXPECT_TRUE(LoadCatalogue(path_) == newTable());
            expectOnlyTheCatalogue();
        }
    }

    TemporaryFolder folder_;
    std::filesystem::path path_ = folder_ / "productos.dat";
};

// The tasks of other processes. Run by itself, without a task, it does nothing; hence it is no test of its own.
TEST(AnotherProcess, DISABLED_DoesItsTask)
{
    wchar_t task[2 * MAX_PATH] {};
    ASSERT_NE(::GetEnvironmentVariableW(taskVariable, task, 2 * MAX_PATH), 0U);
    std::istringstream words(std::filesystem::path(task).string());
    std::string what;
    std::string name;
    words >> what;
    if (what == "save") {
        int call = 0;
        int kind = 0;
        words >> call >> kind;
        std::getline(words >> std::ws, name);
        const std::filesystem::path path = pathOf(name);
        const CatalogueContent expected = contentOf(path);
        ArmFault({ call, static_cast<FaultKind>(kind) });
        saveNew(path, expected);
        DisarmFault();
        return;
    }
    ASSERT_EQ(what, "add");
    int teacher = 0;
    int count = 0;
    words >> teacher >> count;
    std::getline(words >> std::ws, name);
    const std::filesystem::path path = pathOf(name);
    for (int added = 0; added < count;) {
        CatalogueContent read;
        ProductTable table = LoadCatalogue(path, read);
        AddProduct(table, ProductOf(std::to_string(teacher) + "-" + std::to_string(added), "Kiosko"));
        added += SaveCatalogueIfUnchanged(path, table, read).Saved ? 1 : 0;
    }
}

// The old file is read immediately before the new one takes its place, and nobody else can save in between.
TEST_F(CatalogueFaultTest, LocksThenFlushesTheNewFileThenLooksAtTheOldOneThenReplacesItByOneCall)
{
    putOldFile();
    EXPECT_EQ(callsOfASave(),
        (std::vector<std::string> { "CreateFileW", "GetFileAttributesW", "CreateFileW", "CloseHandle",
            "GetFileAttributesW", "CreateFileW", "WriteFile", "FlushFileBuffers", "CloseHandle", "CreateFileW",
            "ReadFile", "ReadFile", "CloseHandle", "MoveFileExW", "CloseHandle" }));
}

class CatalogueKillTest : public CatalogueFaultTest, public ::testing::WithParamInterface<FaultKind> { };

TEST_P(CatalogueKillTest, LeavesTheOldFileOrNoneOrTheNewOneWholeWhereverItIsStopped)
{
    expectStaysWholeWhenKilled(
        GetParam(), [this] { putOldFile(); }, oldTable());
    expectStaysWholeWhenKilled(
        GetParam(), [this] { std::filesystem::remove(path_); }, ProductTable(1));
}

INSTANTIATE_TEST_SUITE_P(
    Moments, CatalogueKillTest, ::testing::Values(FaultKind::KillBefore, FaultKind::KillHalfway, FaultKind::KillAfter));

TEST_F(CatalogueFaultTest, KeepsAFileWholeAndNothingBesideItWhenACallFails)
{
    const std::pair<DWORD, std::string> reasons[] = { { ERROR_DISK_FULL, "el disco está lleno" },
        { ERROR_HANDLE_DISK_FULL, "el disco está lleno" }, { 1295, "el disco está lleno" },
        { ERROR_WRITE_PROTECT, "el disco es de solo lectura" }, { ERROR_PATH_NOT_FOUND, "la carpeta no existe" },
        { ERROR_IO_DEVICE, "el disco falla" }, { ERROR_CRC, "el disco falla" },
        { ERROR_NOT_READY, "el disco ya no está conectado" }, { ERROR_GEN_FAILURE, "el disco ya no está conectado" },
        { ERROR_DEVICE_NOT_CONNECTED, "el disco ya no está conectado" },
        { ERROR_NETNAME_DELETED, "no se llega a la carpeta por la red" },
        { ERROR_BAD_NETPATH, "no se llega a la carpeta por la red" },
        { ERROR_FILE_TOO_LARGE, "el archivo sería demasiado grande" } };
    putOldFile();
    const std::vector<std::string> calls = callsOfASave();
    for (const auto& [error, reason] : reasons) {
        for (int call = 0; std::cmp_less(call, calls.size()); ++call) {
            const std::string& name = calls[static_cast<std::size_t>(call)];
            if (losesNothing(calls, call)) {
                continue;
            }
            SCOPED_TRACE(reason + " at call " + std::to_string(call) + ", " + name);
            EXPECT_EQ(failureWith({ call, FaultKind::Fail, error }), unwritable(reason));
            EXPECT_TRUE(LoadCatalogue(path_) == oldTable());
            expectOnlyTheCatalogue();
        }
    }
}

// What a virus scanner or another program holds for a moment is tried again; what is held for longer is told.
TEST_F(CatalogueFaultTest, TriesAgainWhatSomebodyHoldsForAMomentAndSaysSoWhenThatDoesNotEnd)
{
    putOldFile();
    const std::vector<std::string> calls = callsOfASave();
    const std::pair<DWORD, std::string> reasons[] = { { ERROR_SHARING_VIOLATION, "otro programa lo tiene abierto" },
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
            EXPECT_TRUE(LoadCatalogue(path_) == newTable());
            expectOnlyTheCatalogue();

            const bool isLock = call == 0 && error == ERROR_SHARING_VIOLATION;
            EXPECT_EQ(failureWith({ call, FaultKind::KeepFailing, error }),
                unwritable(isLock ? "otro programa lo está guardando" : reason));
            EXPECT_TRUE(LoadCatalogue(path_) == oldTable());
            expectOnlyTheCatalogue();
        }
    }
}

TEST_F(CatalogueFaultTest, GoesOnAfterAPartialReadOrWrite)
{
    ArmFault({ 0, FaultKind::Stutter });
    SaveCatalogue(path_, newTable());
    const ProductTable loaded = LoadCatalogue(path_);
    EXPECT_GT(DisarmFault().size(), 2 * newTable().size() * 154 / 1000);
    EXPECT_TRUE(loaded == newTable());
    EXPECT_TRUE(LoadCatalogue(path_) == newTable());
}

// Several teachers add products one by one, and each starts again from the new file when another was faster.
TEST_F(CatalogueFaultTest, LosesNothingWhenSeveralProcessesSaveAtOnce)
{
    constexpr int teachers = 4;
    constexpr int productsOfEach = 10;
    std::vector<Process> processes;
    for (int teacher = 0; teacher < teachers; ++teacher) {
        std::ostringstream task;
        task << "add " << teacher << ' ' << productsOfEach << ' ' << path_.string();
        processes.emplace_back(task.str());
    }
    for (Process& process : processes) {
        EXPECT_EQ(process.ExitStatus(), 0U);
    }
    std::set<std::string> names;
    for (const Product& product : LoadCatalogue(path_)) {
        names.insert(product.Nombre.Trimmed());
    }
    EXPECT_EQ(names.size(), static_cast<std::size_t>(teachers) * productsOfEach);
    expectOnlyTheCatalogue();
}

// A file that somebody really holds: without sharing it for writing or for removal, as many programs do.
TEST_F(CatalogueFaultTest, SaysThatAnotherProgramHasTheFileOpenAndKeepsIt)
{
    putOldFile();
    for (const DWORD shared : { 0UL, static_cast<unsigned long>(FILE_SHARE_READ) }) {
        const HANDLE held = ::CreateFileW(
            path_.c_str(), GENERIC_READ, shared, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
        ASSERT_NE(held, INVALID_HANDLE_VALUE);
        EXPECT_EQ(failureOf([&] { SaveCatalogue(path_, newTable()); }), unwritable("otro programa lo tiene abierto"));
        ::CloseHandle(held);
        EXPECT_TRUE(LoadCatalogue(path_) == oldTable());
        expectOnlyTheCatalogue();
    }
}

TEST_F(CatalogueFaultTest, NamesADeviceAsNoFile)
{
    EXPECT_EQ(failureOf([] { LoadCatalogue("NUL"); }), "No se puede leer el archivo «NUL»: no es un archivo de datos.");
}

TEST_F(CatalogueFaultTest, RemovesWhatStoppedSavesHaveLeftAndNothingElse)
{
    for (const char* name :
        { "productos.dat.nuevo-4", "productos.dat.guardando", "productos.dat.copia", "otros.dat.nuevo-4" }) {
        WriteBytes(folder_ / name, "half");
    }
    SaveCatalogue(path_, ProductTable(1));
    EXPECT_EQ(
        folder_.Names(), (std::vector<std::string> { "otros.dat.nuevo-4", "productos.dat", "productos.dat.copia" }));
}

TEST_F(CatalogueFaultTest, ReadsAndWritesInAFolderWhoseNameHasAccentsAndBlanks)
{
    const std::filesystem::path path = folder_.Path() / u8"Aula 3º" / u8"productos ñ.dat";
    std::filesystem::create_directory(path.parent_path());
    SaveCatalogue(path, oldTable());
    EXPECT_TRUE(LoadCatalogue(path) == oldTable());
    EXPECT_TRUE(std::filesystem::exists(folder_.Path() / L"Aula 3\u00BA" / L"productos \u00F1.dat"));
}

} // namespace

} // namespace numbrela
