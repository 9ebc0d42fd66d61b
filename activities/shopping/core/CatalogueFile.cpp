#include "activities/shopping/core/CatalogueFile.h"

#include "common/core/RunTimeError.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <thread>

namespace numbrela {

namespace {

constexpr const char* newNameMark = ".nuevo-"; // followed by the process id
constexpr mode_t whatTheUmaskAllows = 0666;

std::string reasonOf(int error)
{
    switch (error) {
    case ENOENT:
    case ENOTDIR:
        return "la carpeta no existe";
    case EACCES:
    case EPERM:
        return "no hay permiso";
    case EROFS:
        return "el disco es de solo lectura";
    case ENOSPC:
    case EDQUOT:
        return "el disco está lleno";
    case EFBIG:
        return "el archivo sería demasiado grande";
    case EISDIR:
        return "es una carpeta";
    case EIO:
        return "el disco falla";
    case ENAMETOOLONG:
        return "el nombre es demasiado largo";
    case EINVAL:
        return "no es un archivo de datos";
    default:
        return std::string("error ") + std::to_string(error) + " del sistema (" + std::strerror(error) + ")";
    }
}

[[noreturn]] void failAt(const std::filesystem::path& path, const char* action, const std::string& reason)
{
    throw RunTimeError(RunTimeError::Kind::File,
        std::string("No se puede ") + action + " el archivo «" + path.string() + "»: " + reason + ".");
}

// Repeats a call that a signal has interrupted.
template <typename Call>
auto untilDone(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

// Flushes to the disk what has been written. Some file systems have no such call for folders and need none.
bool syncToDisk(const Descriptor& descriptor)
{
    return untilDone([&] { return ::fsync(descriptor.Number()); }) == 0 || errno == EINVAL || errno == ENOTSUP;
}

// Fills the buffer as far as the file reaches. Returns the number of bytes read, or nothing if the system cannot read.
std::optional<std::size_t> fill(std::span<char> buffer, const Descriptor& file)
{
    std::size_t filled = 0;
    while (filled < buffer.size()) {
        const std::span<char> rest = buffer.subspan(filled);
        const ssize_t count = untilDone([&] { return ::read(file.Number(), rest.data(), rest.size()); });
        if (count < 0) {
            return std::nullopt;
        }
        if (count == 0) {
            break;
        }
        filled += static_cast<std::size_t>(count);
    }
    return filled;
}

// A folder on a file system that has no locks is not locked.
bool knowsNoLocks(int error)
{
    return error == EINVAL || error == ENOTSUP || error == ENOSYS || error == ENOLCK || error == EBADF;
}

// Follows links, so that a save replaces the file itself and a link to it stays a link.
std::filesystem::path fileBehind(const std::filesystem::path& path)
{
    std::error_code unresolved;
    const std::filesystem::path file = std::filesystem::canonical(path, unresolved);
    return unresolved ? path : file;
}

// Whether another process with this id is running: it may still be writing its new file.
bool isOfAnotherSave(const std::string& processNumber)
{
    pid_t process = 0;
    const char* const end = processNumber.data() + processNumber.size();
    const auto [stop, error] = std::from_chars(processNumber.data(), end, process);
    return error == std::errc() && stop == end && process > 0 && process != ::getpid()
        && (::kill(process, 0) == 0 || errno == EPERM);
}

int openOrCreate(const std::filesystem::path& path)
{
    const int found = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    return found >= 0 || errno != ENOENT ? found
                                         : ::open(path.c_str(), O_RDONLY | O_CREAT | O_CLOEXEC, whatTheUmaskAllows);
}

std::filesystem::path folderOf(const std::filesystem::path& path)
{
    return path.has_parent_path() ? path.parent_path() : std::filesystem::path(".");
}

} // namespace

Descriptor::~Descriptor()
{
    Close();
}

bool Descriptor::Close()
{
    const int number = number_;
    number_ = -1;
    return number < 0 || ::close(number) == 0 || errno == EINTR; // closed even when a signal has interrupted the call
}

CatalogueReader::CatalogueReader(const std::filesystem::path& path)
    : path_(path)
    , file_(openOrCreate(path))
{
    struct stat status { };
    if (!file_.IsOpen() || ::fstat(file_.Number(), &status) != 0) {
        failAt(path_, "leer", reasonOf(errno));
    }
    if (!S_ISREG(status.st_mode)) {
        failAt(path_, "leer", reasonOf(S_ISDIR(status.st_mode) ? EISDIR : EINVAL));
    }
    size_ = static_cast<std::size_t>(status.st_size);
}

std::size_t CatalogueReader::Read(std::span<char> buffer)
{
    const std::optional<std::size_t> filled = fill(buffer, file_);
    if (!filled) {
        failAt(path_, "leer", reasonOf(errno));
    }
    return *filled;
}

CatalogueReplacement::CatalogueReplacement(const std::filesystem::path& path)
    : path_(fileBehind(path))
    , newName_(path_.filename().string() + newNameMark + std::to_string(::getpid()))
    , folder_(::open(folderOf(path_).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    , file_(openNewFile())
{
    keepOwnerAndPermissions();
}

CatalogueReplacement::~CatalogueReplacement()
{
    if (!committed_) {
        ::unlinkat(folder_.Number(), newName_.c_str(), 0);
    }
}

void CatalogueReplacement::Write(std::span<const char> bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = untilDone([&] { return ::write(file_.Number(), bytes.data(), bytes.size()); });
        if (count < 0) {
            fail();
        }
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
    if (!syncToDisk(file_) || !file_.Close()) {
        fail();
    }
}

CatalogueContent CatalogueReplacement::Replaced() const
{
    const Descriptor old(
        ::openat(folder_.Number(), path_.filename().c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK, whatTheUmaskAllows));
    if (!old.IsOpen()) {
        if (errno != ENOENT) {
            fail();
        }
        return std::nullopt;
    }
    constexpr std::size_t atATime = 1U << 20U;
    std::string content;
    std::optional<std::size_t> filled = atATime;
    while (filled == atATime) {
        const std::size_t before = content.size();
        content.resize(before + atATime);
        filled = fill(std::span(content).subspan(before), old);
        if (!filled) {
            fail();
        }
        content.resize(before + *filled);
    }
    return content;
}

// The new file is completely on the disk before it takes over the name, and the folder is flushed before the save
// counts as done.
void CatalogueReplacement::Commit()
{
    if (::renameat(folder_.Number(), newName_.c_str(), folder_.Number(), path_.filename().c_str()) != 0) {
        fail();
    }
    committed_ = true;
    if (!syncToDisk(folder_)) {
        fail();
    }
}

// A save takes only a fraction of the time that another one waits for it. When a process dies, the system releases its
// lock.
void CatalogueReplacement::keepOthersOut() const
{
    constexpr int tries = 100;
    constexpr std::chrono::milliseconds pause(20);
    for (int left = tries; ::flock(folder_.Number(), LOCK_EX | LOCK_NB) != 0 && !knowsNoLocks(errno); --left) {
        if (errno != EWOULDBLOCK && errno != EINTR) {
            fail();
        }
        if (left == 0) {
            failAt(path_, "escribir", "otro programa lo está guardando");
        }
        std::this_thread::sleep_for(pause);
    }
}

// A renaming would replace even a write-protected file, because only the permissions of the folder count.
int CatalogueReplacement::openNewFile() const
{
    struct stat old { };
    if (!folder_.IsOpen()) {
        fail();
    }
    keepOthersOut();
    if (::stat(path_.c_str(), &old) == 0) {
        constexpr mode_t anybodyMayWrite = 0222;
        if (!S_ISREG(old.st_mode)) {
            failAt(path_, "escribir", reasonOf(S_ISDIR(old.st_mode) ? EISDIR : EINVAL));
        }
        if ((old.st_mode & anybodyMayWrite) == 0) {
            failAt(path_, "escribir", "el archivo es de solo lectura");
        }
        if (::faccessat(AT_FDCWD, path_.c_str(), W_OK, AT_EACCESS) != 0) {
            fail();
        }
    } else if (errno != ENOENT) {
        fail();
    }
    removeLeftovers();
    const int file
        = ::openat(folder_.Number(), newName_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, whatTheUmaskAllows);
    if (file < 0) {
        fail();
    }
    return file;
}

// Removes new files left behind by saves that were killed or lost power. Any that cannot be removed do no harm.
void CatalogueReplacement::removeLeftovers() const
{
    const std::string beginning = path_.filename().string() + newNameMark;
    std::error_code ends; // set when the folder or an entry cannot be read, which ends the loop
    for (std::filesystem::directory_iterator entry(folderOf(path_), ends), end; !ends && entry != end;
         entry.increment(ends)) {
        const std::string name = entry->path().filename().string();
        if (name.compare(0, beginning.size(), beginning) == 0 && !isOfAnotherSave(name.substr(beginning.size()))) {
            ::unlinkat(folder_.Number(), name.c_str(), 0);
        }
    }
}

// Does as much as the system lets this user do: a file system without owners refuses, and needs none of it.
void CatalogueReplacement::keepOwnerAndPermissions() const
{
    struct stat old { };
    if (::stat(path_.c_str(), &old) != 0) {
        return;
    }
    bool kept = ::fchown(file_.Number(), old.st_uid, old.st_gid) == 0;
    kept = kept || ::fchown(file_.Number(), static_cast<uid_t>(-1), old.st_gid) == 0;
    constexpr mode_t permissions = 07777;
    kept = ::fchmod(file_.Number(), old.st_mode & permissions) == 0 && kept;
    static_cast<void>(kept);
}

void CatalogueReplacement::fail() const
{
    failAt(path_, "escribir", reasonOf(errno));
}

} // namespace numbrela
