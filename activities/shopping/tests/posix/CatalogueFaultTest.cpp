#include "activities/shopping/tests/CatalogueFaultTest.h"

#include "activities/shopping/tests/posix/Fork.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>

namespace numbrela::testing {

const char* const ReadingCall = "read";
const char* const RenamingCall = "renameat";

std::vector<std::string> CallsOfASave()
{
    return { "flock", "faccessat", "openat", "write", "fsync", "openat", "read", "read", "close", "renameat", "fsync",
        "fsync", "renameat", "fsync", "fsync", "close", "close" };
}

std::vector<std::pair<int, std::string>> FailuresOfTheDisk()
{
    return { { ENOSPC, "el disco está lleno" }, { EDQUOT, "el disco está lleno" }, { EIO, "el disco falla" },
        { EROFS, "el disco es de solo lectura" }, { EFBIG, "el archivo sería demasiado grande" },
        { EACCES, "no hay permiso" }, { EPERM, "no hay permiso" },
        { EMFILE, "error " + std::to_string(EMFILE) + " del sistema (" + std::strerror(EMFILE) + ")" } };
}

// Closes what has been flushed or was only read.
bool IsHarmless(const std::vector<std::string>& calls, std::size_t call)
{
    return calls[call] == "close";
}

namespace {

class PosixCatalogueFaultTest : public CatalogueFaultTest {
protected:
    // Saves over the old file while a call fails, and returns the calls that were made.
    std::vector<std::string> callsOfASaveThatSucceedsAlthough(Fault fault) const
    {
        putOldFile();
        const CatalogueContent expected = contentNow();
        ArmFault(fault);
        save(expected);
        std::vector<std::string> calls = DisarmFault();
        EXPECT_TRUE(LoadCatalogue(path_) == NewTable());
        return calls;
    }
};

TEST_F(PosixCatalogueFaultTest, SavesWhereAFolderCannotBeLockedOrIsLockedForAMoment)
{
    for (const int error : { EINVAL, ENOTSUP, ENOSYS, ENOLCK, EBADF, EWOULDBLOCK, EINTR }) {
        const std::vector<std::string> calls = callsOfASaveThatSucceedsAlthough({ 0, FaultKind::Fail, error });
        const bool isTriedAgain = error == EWOULDBLOCK || error == EINTR;
        EXPECT_EQ(std::count(calls.begin(), calls.end(), "flock"), isTriedAgain ? 2 : 1) << error;
    }
}

TEST_F(PosixCatalogueFaultTest, SaysThatAnotherProgramIsSavingWhenThatDoesNotEnd)
{
    putOldFile();
    const Descriptor folder(::open(folder_.Path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    ASSERT_EQ(::flock(folder.Number(), LOCK_EX), 0);
    EXPECT_EQ(FailureOf([&] { save(); }), unwritable("otro programa lo está guardando"));
    expectOnly(OldTable());
}

// What was interrupted on its way to the disk is brought there again; a file whose closing was interrupted is closed.
TEST_F(PosixCatalogueFaultTest, GoesOnAfterAnInterruptionAndWhereAFolderCannotBeBroughtToTheDiskByACall)
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
    const int flushOfFolder = static_cast<int>(calls.size()) - 3;
    for (const int error : { EINVAL, ENOTSUP }) {
        callsOfASaveThatSucceedsAlthough({ flushOfFolder, FaultKind::Fail, error });
    }
}

TEST_F(PosixCatalogueFaultTest, KeepsTheCompleteFileWhenItCannotBePutInPlace)
{
    putOldFileAsComplete();
    const std::vector<std::string> calls = callsOfASave();
    const auto puttingInPlace = std::find(calls.begin(), calls.end(), RenamingCall) - calls.begin();
    putOldFileAsComplete();
    const CatalogueContent expected = contentNow();
    ArmFault({ static_cast<int>(puttingInPlace), FaultKind::Fail, EIO });
    const std::string said = FailureOf([&] { save(expected); });
    DisarmFault();
    EXPECT_EQ(said, unwritable("el disco falla"));
    EXPECT_FALSE(std::filesystem::exists(path_));
    EXPECT_TRUE(LoadCatalogue(path_) == OldTable());
}

TEST_F(PosixCatalogueFaultTest, KeepsTheOldFileWhenTheSystemTakesNoMoreBytes)
{
    putOldFile();
    EXPECT_EQ(ExitStatusOf(Fork([&] {
        constexpr rlim_t inTheMiddle = 300 * 1000 + 1;
        const rlimit limit { inTheMiddle, inTheMiddle };
        std::signal(SIGXFSZ, SIG_IGN);
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const std::string said = FailureOf([&] { SaveCatalogue(path_, NewTable()); });
        return said.find(": el archivo sería demasiado grande.") != std::string::npos ? 0 : 1;
    })),
        0);
    expectOnly(OldTable());
}

// Whether the condition is true for the user "nobody": root may write everything.
bool isTrueWithoutRights(const std::function<bool()>& condition)
{
    return ExitStatusOf(Fork([&] {
        constexpr uid_t nobody = 65534;
        return (::geteuid() != 0 || ::setuid(nobody) == 0) && condition() ? 0 : 1;
    })) == 0;
}

TEST_F(PosixCatalogueFaultTest, SaysThatThereIsNoPermissionInAFolderForReadingAloneAndReadsWhatIsThere)
{
    const std::filesystem::path missing = folder_ / "missing.dat";
    for (const bool isOnlyComplete : { false, true }) {
        ASSERT_EQ(::chmod(folder_.Path().c_str(), 0755), 0);
        isOnlyComplete ? putOldFileAsComplete() : putOldFile();
        const std::vector<std::string> names = folder_.Names();
        ASSERT_EQ(::chmod((folder_ / names.front().c_str()).c_str(), 0666), 0);
        ASSERT_EQ(::chmod(folder_.Path().c_str(), 0555), 0);
        EXPECT_TRUE(isTrueWithoutRights([&] {
            return FailureOf([&] { SaveCatalogue(path_, NewTable()); }) == unwritable("no hay permiso")
                && FailureOf([&] { LoadCatalogue(missing); }) == unreadable(missing, "no hay permiso")
                && LoadCatalogue(path_) == OldTable();
        }));
        EXPECT_EQ(folder_.Names(), names);
    }
}

// The new file then belongs to the user who saved, and keeps the permissions of the old one.
TEST_F(PosixCatalogueFaultTest, SavesSomebodyElsesFileWhereThatIsAllowedAndReadsNoneThatIsNot)
{
    putOldFile();
    ASSERT_EQ(::chmod(folder_.Path().c_str(), 0777), 0);
    ASSERT_EQ(::chmod(path_.c_str(), 0666), 0);
    EXPECT_TRUE(isTrueWithoutRights([&] { return FailureOf([&] { SaveCatalogue(path_, NewTable()); }) == "nothing"; }));
    EXPECT_TRUE(LoadCatalogue(path_) == NewTable());
    EXPECT_EQ(std::filesystem::status(path_).permissions(), std::filesystem::perms(0666));

    putOldFile();
    ASSERT_EQ(::chmod(path_.c_str(), 0200), 0);
    EXPECT_TRUE(isTrueWithoutRights(
        [&] { return FailureOf([&] { LoadCatalogue(path_); }) == unreadable(path_, "no hay permiso"); }));
}

} // namespace

} // namespace numbrela::testing
