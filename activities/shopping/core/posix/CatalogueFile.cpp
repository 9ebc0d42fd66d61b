#include "activities/shopping/core/CatalogueReplacement.h"

#include "activities/shopping/core/FileParts.h"
#include "activities/shopping/core/posix/Files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <chrono>
#include <cstdio>
#include <thread>

namespace numbrela {

namespace {

constexpr mode_t whatTheUmaskAllows = 0666;

[[noreturn]] void failToWrite(const std::filesystem::path& path)
{
    FailTo("escribir", path);
}

// Flushes to the disk what has been written. Some file systems have no such call for folders and need none.
bool syncToDisk(const Descriptor& descriptor)
{
    return UntilDone([&] { return ::fsync(descriptor.Number()); }) == 0 || errno == EINVAL || errno == ENOTSUP;
}

// A folder on a file system that has no locks is not locked.
bool knowsNoLocks(int error)
{
    return error == EINVAL || error == ENOTSUP || error == ENOSYS || error == ENOLCK || error == EBADF;
}

// Follows links, also to a file that is gone, so that a save replaces the file itself and a link to it stays a link.
std::filesystem::path fileBehind(std::filesystem::path path)
{
    constexpr int mostLinks = 40; // as many as the system follows
    std::error_code isNoLink;
    for (int links = 0; links < mostLinks; ++links) {
        const std::filesystem::path target = std::filesystem::read_symlink(path, isNoLink);
        if (isNoLink) {
            break;
        }
        path = FolderOf(path) / target;
    }
    std::error_code unresolved;
    const std::filesystem::path folder = std::filesystem::canonical(FolderOf(path), unresolved);
    return unresolved ? path : folder / path.filename();
}

int openToRead(const std::filesystem::path& path)
{
    return ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
}

// In a folder that gives its group to new files, the group's members share what is in it: a new file gets the rights of
// the folder, whatever the umask of the member who makes it. A file system without rights needs none.
void shareAsTheFolderIs(int file, const std::filesystem::path& path)
{
    struct stat folder { };
    if (::stat(FolderOf(path).c_str(), &folder) == 0 && (folder.st_mode & S_ISGID) != 0) {
        static_cast<void>(::fchmod(file, folder.st_mode & whatTheUmaskAllows));
    }
}

// A save takes only a fraction of the time that another one waits for it. When a process dies, the system releases its
// lock.
void keepOthersOut(const Descriptor& folder, const std::filesystem::path& path)
{
    constexpr int tries = 100;
    constexpr std::chrono::milliseconds pause(20);
    for (int left = tries; ::flock(folder.Number(), LOCK_EX | LOCK_NB) != 0 && !knowsNoLocks(errno); --left) {
        if (errno != EWOULDBLOCK && errno != EINTR) {
            failToWrite(path);
        }
        if (left == 0) {
            FailAt(path, "escribir", Reason::BeingSaved);
        }
        std::this_thread::sleep_for(pause);
    }
}

// Ends what a stopped save had begun when the old file was gone already.
void putTheCompleteFileInPlace(const Descriptor& folder, const std::filesystem::path& path)
{
    const std::filesystem::path name = path.filename();
    if (::renameat(folder.Number(), CompleteNameOf(name).c_str(), folder.Number(), name.c_str()) != 0
        && errno != ENOENT) {
        failToWrite(path);
    }
}

// A renaming would replace even a write-protected file, because only the permissions of the folder count.
int openNewFile(const Descriptor& folder, const std::filesystem::path& path, const std::filesystem::path& newName)
{
    struct stat old { };
    if (!folder.IsOpen()) {
        failToWrite(path);
    }
    keepOthersOut(folder, path);
    if (::stat(path.c_str(), &old) == 0) {
        constexpr mode_t anybodyMayWrite = 0222;
        if (!S_ISREG(old.st_mode)) {
            FailAt(path, "escribir", ReasonOf(S_ISDIR(old.st_mode) ? EISDIR : EINVAL));
        }
        if ((old.st_mode & anybodyMayWrite) == 0) {
            FailAt(path, "escribir", Reason::ReadOnlyFile);
        }
        if (::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0) {
            failToWrite(path);
        }
    } else if (errno != ENOENT) {
        failToWrite(path);
    } else {
        putTheCompleteFileInPlace(folder, path);
    }
    RemoveLeftovers(path, newName);
    const int file
        = ::openat(folder.Number(), newName.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, whatTheUmaskAllows);
    if (file < 0) {
        failToWrite(path);
    }
    return file;
}

// Does as much as the system lets this user do: a file system without owners refuses, and needs none of it.
void keepOwnerAndPermissions(const Descriptor& file, const std::filesystem::path& path)
{
    struct stat old { };
    if (::stat(path.c_str(), &old) != 0) {
        shareAsTheFolderIs(file.Number(), path);
        return;
    }
    bool kept = ::fchown(file.Number(), old.st_uid, old.st_gid) == 0;
    kept = kept || ::fchown(file.Number(), static_cast<uid_t>(-1), old.st_gid) == 0;
    constexpr mode_t permissions = 07777;
    kept = ::fchmod(file.Number(), old.st_mode & permissions) == 0 && kept;
    static_cast<void>(kept);
}

} // namespace

int OpenOrCreate(const std::filesystem::path& path)
{
    int found = openToRead(path);
    if (found < 0 && errno == ENOENT) {
        found = openToRead(CompleteNameOf(fileBehind(path)));
    }
    if (found >= 0 || errno != ENOENT) {
        return found;
    }
    const int created = ::open(path.c_str(), O_RDONLY | O_CREAT | O_CLOEXEC, whatTheUmaskAllows);
    if (created >= 0) {
        shareAsTheFolderIs(created, path);
    }
    return created;
}

CatalogueReplacement::CatalogueReplacement(const std::filesystem::path& path)
    : path_(fileBehind(path))
    , nameNow_(path_.filename().string() + NewNameMark + std::to_string(::getpid()))
    , folder_(::open(FolderOf(path_).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    , file_(openNewFile(folder_, path_, nameNow_))
{
    keepOwnerAndPermissions(file_, path_);
}

CatalogueReplacement::~CatalogueReplacement()
{
    // A complete file is all that there is when the old one went and the new one could not take its name.
    const std::filesystem::path name = path_.filename();
    struct stat old { };
    if (nameNow_ != name
        && (nameNow_ != CompleteNameOf(name) || ::fstatat(folder_.Number(), name.c_str(), &old, 0) == 0)) {
        ::unlinkat(folder_.Number(), nameNow_.c_str(), 0);
    }
}

void CatalogueReplacement::Write(std::span<const char> bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = UntilDone([&] { return ::write(file_.Number(), bytes.data(), bytes.size()); });
        if (count < 0) {
            failToWrite(path_);
        }
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
    if (!syncToDisk(file_)) {
        failToWrite(path_);
    }
}

CatalogueContent CatalogueReplacement::Replaced() const
{
    const Descriptor old(
        ::openat(folder_.Number(), path_.filename().c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK, whatTheUmaskAllows));
    if (!old.IsOpen()) {
        if (errno != ENOENT) {
            failToWrite(path_);
        }
        return std::nullopt;
    }
    return ReadToEnd(ReaderOf(old, "escribir", path_));
}

// The new file is completely on the disk before it takes a name that says so, and has that name on the disk before the
// old file is touched.
void CatalogueReplacement::Commit()
{
    const std::filesystem::path name = path_.filename();
    takeName(CompleteNameOf(name));
    takeName(name);
}

// With FAT, the place and the length of a file stand beside its name, and flushing the folder alone leaves them behind.
void CatalogueReplacement::takeName(const std::filesystem::path& name)
{
    if (::renameat(folder_.Number(), nameNow_.c_str(), folder_.Number(), name.c_str()) != 0) {
        failToWrite(path_);
    }
    nameNow_ = name;
    if (!syncToDisk(file_) || !syncToDisk(folder_)) {
        failToWrite(path_);
    }
}

} // namespace numbrela
