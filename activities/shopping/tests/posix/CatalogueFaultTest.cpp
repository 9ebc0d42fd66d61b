#include "activities/shopping/core/Catalogue.h"

#include "activities/shopping/tests/TemporaryFolder.h"
#include "activities/shopping/tests/posix/FileFaults.h"
#include "common/core/RunTimeError.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <functional>
#include <set>
#include <utility>

namespace numbrela {

namespace {

using namespace testing;

ProductTable products(int count, float price)
{
    ProductTable table(1);
    for (int i = 0; i < count; ++i) {
        const std::string name = "Producto " + std::to_string(i);
        AddProduct(
            table, { .Nombre = std::string_view(name), .Precio = price, .Tienda = std::string_view("Frutería") });
    }
    return table;
}

// Runs the action in a process of its own.
pid_t start(const std::function<int()>& action)
{
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit(action());
    }
    return child;
}

// Waits for a process and returns how it ended, as waitpid() tells it.
int endOf(pid_t process)
{
    int status = -1;
    EXPECT_EQ(::waitpid(process, &status, 0), process);
    return status;
}

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

class CatalogueFaultTest : public ::testing::Test {
protected:
    // As the editor saves: over what it has read.
    void save() const { save(contentNow()); }
    void save(const CatalogueContent& expected) const
    {
        EXPECT_TRUE(SaveCatalogueIfUnchanged(path_, new_, expected).Saved);
    }

    CatalogueContent contentNow() const
    {
        return std::filesystem::exists(path_) ? CatalogueContent(ReadBytes(path_)) : std::nullopt;
    }

    // What a whole save calls, in its order.
    std::vector<std::string> callsOfASave() const
    {
        const CatalogueContent expected = contentNow();
        ArmFault({ -1, FaultKind::Fail });
        save(expected);
        return DisarmFault();
    }

    // Whether a call closes a file that was only read: its failure loses nothing.
    static bool endsReading(const std::vector<std::string>& calls, int call)
    {
        const auto index = static_cast<std::size_t>(call);
        return calls[index] == "close" && calls[index - 1] == "read";
    }

    void putOldFile() const
    {
        std::filesystem::remove_all(path_);
        SaveCatalogue(path_, old_);
    }

    // Saves over the old file while a call fails, and returns the calls that were made.
    std::vector<std::string> callsOfASaveThatSucceedsAlthough(Fault fault) const
    {
        putOldFile();
        const CatalogueContent expected = contentNow();
        ArmFault(fault);
        save(expected);
        std::vector<std::string> calls = DisarmFault();
        EXPECT_TRUE(LoadCatalogue(path_) == new_);
        return calls;
    }

    void expectOnlyTheOldFile() const
    {
        EXPECT_TRUE(LoadCatalogue(path_) == old_);
        EXPECT_EQ(folder_.Names(), std::vector<std::string> { "productos.dat" });
    }

    std::string unwritable(const std::string& reason) const
    {
        return "No se puede escribir el archivo «" + path_.string() + "»: " + reason + ".";
    }

    static std::string unreadable(const std::filesystem::path& path, const std::string& reason)
    {
        return "No se puede leer el archivo «" + path.string() + "»: " + reason + ".";
    }

    void expectStaysWholeWhenKilled(
        FaultKind kind, const std::function<void()>& prepare, const ProductTable& before) const
    {
        prepare();
        const std::vector<std::string> calls = callsOfASave();
        const auto rename = std::find(calls.begin(), calls.end(), "renameat") - calls.begin();
        for (int call = 0; call < static_cast<int>(calls.size()); ++call) {
            SCOPED_TRACE("call " + std::to_string(call) + ", " + calls[static_cast<std::size_t>(call)]);
            prepare();
            const CatalogueContent expected = contentNow();
            const int status = endOf(start([&] {
                ArmFault({ call, kind });
                save(expected);
                return 0;
            }));
            ASSERT_TRUE(WIFSIGNALED(status));
            EXPECT_EQ(WTERMSIG(status), SIGKILL);

            const bool isRenamed = call > rename || (call == rename && kind == FaultKind::KillAfter);
            EXPECT_TRUE(LoadCatalogue(path_) == (isRenamed ? new_ : before));
            save();
            EXPECT_TRUE(LoadCatalogue(path_) == new_);
            EXPECT_EQ(folder_.Names(), std::vector<std::string> { "productos.dat" });
        }
    }

    TemporaryFolder folder_;
    std::filesystem::path path_ = folder_ / "productos.dat";
    const ProductTable old_ = products(2500, 1);
    const ProductTable new_ = products(3000, 2);
};

// The old file is read immediately before the new one takes its name, and nobody else can save in between.
TEST_F(CatalogueFaultTest, PutsTheNewFileOnTheDiskThenLooksAtTheOldOneThenTakesTheNameAndPutsThatOnTheDisk)
{
    putOldFile();
    EXPECT_EQ(callsOfASave(),
        (std::vector<std::string> { "flock", "faccessat", "openat", "write", "fsync", "close", "openat", "read", "read",
            "close", "renameat", "fsync", "close" }));
}

class CatalogueKillTest : public CatalogueFaultTest, public ::testing::WithParamInterface<FaultKind> { };

TEST_P(CatalogueKillTest, LeavesTheOldFileOrNoneOrTheNewOneWholeWhereverItIsStopped)
{
    expectStaysWholeWhenKilled(
        GetParam(), [this] { putOldFile(); }, old_);
    expectStaysWholeWhenKilled(
        GetParam(), [this] { std::filesystem::remove(path_); }, ProductTable(1));
}

INSTANTIATE_TEST_SUITE_P(
    Moments, CatalogueKillTest, ::testing::Values(FaultKind::KillBefore, FaultKind::KillHalfway, FaultKind::KillAfter));

TEST_F(CatalogueFaultTest, KeepsAFileWholeAndNothingBesideItWhenACallFails)
{
    const std::pair<int, std::string> reasons[] = { { ENOSPC, "el disco está lleno" },
        { EDQUOT, "el disco está lleno" }, { EIO, "el disco falla" }, { EROFS, "el disco es de solo lectura" },
        { EFBIG, "el archivo sería demasiado grande" }, { EACCES, "no hay permiso" }, { EPERM, "no hay permiso" },
        { EMFILE, "error " + std::to_string(EMFILE) + " del sistema (" + std::strerror(EMFILE) + ")" } };
    putOldFile();
    const std::vector<std::string> calls = callsOfASave();
    const int lastCall = static_cast<int>(calls.size()) - 1; // closes the folder, of which nothing was written
    const auto rename = std::find(calls.begin(), calls.end(), "renameat") - calls.begin();
    for (const auto& [error, reason] : reasons) {
        for (int call = 0; call < lastCall; ++call) {
            if (endsReading(calls, call)) {
                continue;
            }
            SCOPED_TRACE(reason + " at call " + std::to_string(call));
            putOldFile();
            const CatalogueContent expected = contentNow();
            ArmFault({ call, FaultKind::Fail, error });
            const std::string said = failureOf([&] { save(expected); });
            DisarmFault();
            EXPECT_EQ(said, unwritable(reason));
            EXPECT_TRUE(LoadCatalogue(path_) == (call > rename ? new_ : old_));
            EXPECT_EQ(folder_.Names(), std::vector<std::string> { "productos.dat" });

            save(expected); // also where the new file has taken the name already
            EXPECT_TRUE(LoadCatalogue(path_) == new_);
        }
    }
}

TEST_F(CatalogueFaultTest, SavesWhereAFolderCannotBeLockedOrIsLockedForAMoment)
{
    for (const int error : { EINVAL, ENOTSUP, ENOSYS, ENOLCK, EBADF, EWOULDBLOCK, EINTR }) {
        const std::vector<std::string> calls = callsOfASaveThatSucceedsAlthough({ 0, FaultKind::Fail, error });
        const bool isTriedAgain = error == EWOULDBLOCK || error == EINTR;
        EXPECT_EQ(std::count(calls.begin(), calls.end(), "flock"), isTriedAgain ? 2 : 1) << error;
    }
}

TEST_F(CatalogueFaultTest, SaysThatAnotherProgramIsSavingWhenThatDoesNotEnd)
{
    putOldFile();
    const Descriptor folder(::open(folder_.Path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    ASSERT_EQ(::flock(folder.Number(), LOCK_EX), 0);
    EXPECT_EQ(failureOf([&] { save(); }), unwritable("otro programa lo está guardando"));
    expectOnlyTheOldFile();
}

// Several teachers add products one by one, and each starts again from the new file when another was faster.
TEST_F(CatalogueFaultTest, LosesNothingWhenSeveralProcessesSaveAtOnce)
{
    constexpr int teachers = 4;
    constexpr int productsOfEach = 25;
    const auto addProducts = [&](int teacher) {
        for (int added = 0; added < productsOfEach;) {
            CatalogueContent read;
            ProductTable table = LoadCatalogue(path_, read);
            const std::string name = std::to_string(teacher) + "-" + std::to_string(added);
            AddProduct(table, { .Nombre = std::string_view(name), .Precio = 1, .Tienda = std::string_view("Kiosko") });
            added += SaveCatalogueIfUnchanged(path_, table, read).Saved ? 1 : 0;
        }
        return 0;
    };
    std::vector<pid_t> processes;
    for (int teacher = 0; teacher < teachers; ++teacher) {
        processes.push_back(start([&] { return addProducts(teacher); }));
    }
    for (const pid_t process : processes) {
        EXPECT_EQ(endOf(process), 0);
    }
    std::set<std::string> names;
    for (const Product& product : LoadCatalogue(path_)) {
        names.insert(product.Nombre.Trimmed());
    }
    EXPECT_EQ(names.size(), static_cast<std::size_t>(teachers) * productsOfEach);
    EXPECT_EQ(folder_.Names(), std::vector<std::string> { "productos.dat" });
}

// What was interrupted on its way to the disk is brought there again; a file whose closing was interrupted is closed.
TEST_F(CatalogueFaultTest, GoesOnAfterAnInterruptionAndWhereAFolderCannotBeBroughtToTheDiskByACall)
{
    putOldFile();
    const std::vector<std::string> calls = callsOfASave();
    for (int call = 0; call < static_cast<int>(calls.size()); ++call) {
        const std::string& name = calls[static_cast<std::size_t>(call)];
        if (name == "fsync" || name == "close") {
            SCOPED_TRACE("call " + std::to_string(call) + ", " + name);
            EXPECT_EQ(callsOfASaveThatSucceedsAlthough({ call, FaultKind::Fail, EINTR }).size(),
                calls.size() + (name == "fsync" ? 1 : 0));
        }
    }
    const int flushOfFolder = static_cast<int>(calls.size()) - 2;
    for (const int error : { EINVAL, ENOTSUP }) {
        callsOfASaveThatSucceedsAlthough({ flushOfFolder, FaultKind::Fail, error });
    }
}

TEST_F(CatalogueFaultTest, SaysWhyAFileCannotBeRead)
{
    putOldFile();
    ArmFault({ 0, FaultKind::Fail, EIO });
    const std::string said = failureOf([&] { LoadCatalogue(path_); });
    EXPECT_EQ(DisarmFault().front(), "read");
    EXPECT_EQ(said, unreadable(path_, "el disco falla"));
}

TEST_F(CatalogueFaultTest, GoesOnAfterAnInterruptedOrAPartialReadOrWrite)
{
    ArmFault({ 0, FaultKind::Stutter });
    SaveCatalogue(path_, new_);
    EXPECT_GT(DisarmFault().size(), new_.size() * 154 / 1000);
    ArmFault({ 0, FaultKind::Stutter });
    const ProductTable loaded = LoadCatalogue(path_);
    EXPECT_GT(DisarmFault().size(), new_.size() * 154 / 1000);
    EXPECT_TRUE(loaded == new_);
    EXPECT_TRUE(LoadCatalogue(path_) == new_);
}

TEST_F(CatalogueFaultTest, KeepsTheOldFileWhenTheSystemTakesNoMoreBytes)
{
    putOldFile();
    EXPECT_EQ(endOf(start([&] {
        constexpr rlim_t inTheMiddle = 300 * 1000 + 1;
        const rlimit limit { inTheMiddle, inTheMiddle };
        std::signal(SIGXFSZ, SIG_IGN);
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const std::string said = failureOf([&] { SaveCatalogue(path_, new_); });
        return said.find(": el archivo sería demasiado grande.") != std::string::npos ? 0 : 1;
    })),
        0);
    expectOnlyTheOldFile();
}

// Whether the condition is true for the user "nobody": root may write everything.
bool isTrueWithoutRights(const std::function<bool()>& condition)
{
    return endOf(start([&] {
        constexpr uid_t nobody = 65534;
        return (::geteuid() != 0 || ::setuid(nobody) == 0) && condition() ? 0 : 1;
    })) == 0;
}

TEST_F(CatalogueFaultTest, SaysThatThereIsNoPermissionInAFolderForReadingAlone)
{
    putOldFile();
    ASSERT_EQ(::chmod(path_.c_str(), 0666), 0);
    ASSERT_EQ(::chmod(folder_.Path().c_str(), 0555), 0);
    const std::filesystem::path missing = folder_ / "missing.dat";
    EXPECT_TRUE(isTrueWithoutRights([&] {
        return failureOf([&] { SaveCatalogue(path_, new_); }) == unwritable("no hay permiso")
            && failureOf([&] { LoadCatalogue(missing); }) == unreadable(missing, "no hay permiso")
            && LoadCatalogue(path_) == old_;
    }));
    ASSERT_EQ(::chmod(folder_.Path().c_str(), 0755), 0);
    expectOnlyTheOldFile();
}

// The new file then belongs to the user who saved, and keeps the permissions of the old one.
TEST_F(CatalogueFaultTest, SavesSomebodyElsesFileWhereThatIsAllowedAndReadsNoneThatIsNot)
{
    putOldFile();
    ASSERT_EQ(::chmod(folder_.Path().c_str(), 0777), 0);
    ASSERT_EQ(::chmod(path_.c_str(), 0666), 0);
    EXPECT_TRUE(isTrueWithoutRights([&] { return failureOf([&] { SaveCatalogue(path_, new_); }) == "nothing"; }));
    EXPECT_TRUE(LoadCatalogue(path_) == new_);
    EXPECT_EQ(std::filesystem::status(path_).permissions(), std::filesystem::perms(0666));

    putOldFile();
    ASSERT_EQ(::chmod(path_.c_str(), 0200), 0);
    EXPECT_TRUE(isTrueWithoutRights(
        [&] { return failureOf([&] { LoadCatalogue(path_); }) == unreadable(path_, "no hay permiso"); }));
}

} // namespace

} // namespace numbrela
