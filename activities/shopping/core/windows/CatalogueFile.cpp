#include "activities/shopping/core/CatalogueReplacement.h"

#include "activities/shopping/core/FileParts.h"
#include "activities/shopping/core/windows/ErrorNumbers.h"

#include <windows.h>

#include <iterator>

namespace numbrela {

namespace {

constexpr const wchar_t* lockMark = L".guardando"; // behind the name of a catalogue that is being saved
constexpr DWORD sharedWithAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr DWORD sharedWithNobody = 0;

std::string utf8Of(std::wstring_view text)
{
    const auto convert = [&](char* buffer, int room) {
        const auto length = static_cast<int>(text.size());
        return ::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, buffer, room, nullptr, nullptr);
    };
    std::string converted(static_cast<std::size_t>(convert(nullptr, 0)), '\0');
    convert(converted.data(), static_cast<int>(converted.size()));
    return converted;
}

// What the system says itself, in its language and without the end of its line.
std::string systemsOwnWords(DWORD error)
{
    wchar_t text[512] {};
    constexpr DWORD how = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
    DWORD length = ::FormatMessageW(how, nullptr, error, 0, text, std::size(text), nullptr);
    while (length > 0 && (text[length - 1] == L'\n' || text[length - 1] == L'\r' || text[length - 1] == L'.')) {
        --length;
    }
    return utf8Of({ text, length });
}

constexpr const char* diskIsGone = "el disco ya no está conectado";

std::string reasonOf(DWORD error)
{
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_DIRECTORY:
        return Reason::NoFolder;
    case ERROR_ACCESS_DENIED:
    case ERROR_NETWORK_ACCESS_DENIED:
    case ERROR_PRIVILEGE_NOT_HELD:
        return Reason::NoRight;
    case ERROR_WRITE_PROTECT:
        return Reason::ReadOnlyDisk;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case DiskQuotaExceeded:
        return Reason::DiskFull;
    case ERROR_FILE_TOO_LARGE:
        return Reason::TooLarge;
    case ERROR_CRC:
    case ERROR_SECTOR_NOT_FOUND:
    case ERROR_READ_FAULT:
    case ERROR_WRITE_FAULT:
    case ERROR_IO_DEVICE:
    case ERROR_FILE_CORRUPT:
    case ERROR_DISK_CORRUPT:
        return Reason::DiskFails;
    case ERROR_INVALID_DRIVE:
    case ERROR_NOT_READY:
    case ERROR_GEN_FAILURE: // what the drivers of many sticks say when the stick is pulled out
    case ERROR_DEV_NOT_EXIST:
    case ERROR_WRONG_DISK:
    case ERROR_FILE_INVALID:
    case ERROR_NO_MEDIA_IN_DRIVE:
    case NoSuchDevice:
    case ERROR_DEVICE_NOT_CONNECTED:
    case ERROR_DEVICE_REMOVED:
        return diskIsGone;
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_NETNAME_DELETED:
    case ERROR_UNEXP_NET_ERR:
    case ERROR_NETWORK_UNREACHABLE:
    case ERROR_HOST_UNREACHABLE:
    case ERROR_SEM_TIMEOUT:
        return "no se llega a la carpeta por la red";
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
    case ERROR_DELETE_PENDING:
        return "otro programa lo tiene abierto";
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_BUFFER_OVERFLOW:
        return Reason::NameTooLong;
    case ERROR_INVALID_NAME:
        return "el nombre no es válido";
    default:
        return Reason::Unknown(error, systemsOwnWords(error));
    }
}

bool isOnADriveThatIsGone(const std::filesystem::path& path)
{
    std::error_code unknown;
    const std::wstring drive = std::filesystem::absolute(path, unknown).root_name().native();
    return drive.ends_with(L':') && ::GetDriveTypeW((drive + L'\\').c_str()) == DRIVE_NO_ROOT_DIR;
}

// Of a name that is too long and of a drive that is gone, the system says no more than that it cannot find the file.
[[noreturn]] void failTo(const char* action, const std::filesystem::path& path, DWORD error)
{
    const bool isNotFound
        = error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND || error == ERROR_INVALID_NAME;
    if (isNotFound && path.native().size() >= MAX_PATH) {
        FailAt(path, action, Reason::NameTooLong);
    }
    FailAt(path, action, isNotFound && isOnADriveThatIsGone(path) ? diskIsGone : reasonOf(error));
}

[[noreturn]] void failToWrite(const std::filesystem::path& path, DWORD error)
{
    failTo("escribir", path, error);
}

HANDLE handleOf(const Descriptor& file)
{
    return LongToHandle(file.Number());
}

// A virus scanner, a backup or another program may hold a file open for a moment. Windows reports ERROR_ACCESS_DENIED
// both for a missing right and for a file that is being deleted, or is open while it is to be replaced.
bool mayPass(DWORD error)
{
    return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION || error == ERROR_USER_MAPPED_FILE
        || error == ERROR_ACCESS_DENIED || error == ERROR_DELETE_PENDING;
}

constexpr DWORD forOthers = 1000; // milliseconds until somebody who only looks at a file has let it go
constexpr DWORD forOtherSaves = 2000; // many times what a save takes

// Makes a call, and makes it again for as long as somebody may be holding the file. The call answers whether it has
// succeeded. Returns the error of the last try.
template <typename Call>
DWORD errorOf(Call call, DWORD longestOpen = forOthers)
{
    constexpr DWORD pause = 20;
    const ULONGLONG start = ::GetTickCount64();
    while (!call()) {
        const DWORD error = ::GetLastError();
        const DWORD longest = error == ERROR_SHARING_VIOLATION ? longestOpen : forOthers;
        if (!mayPass(error) || ::GetTickCount64() - start >= longest) {
            return error;
        }
        ::Sleep(pause);
    }
    return NO_ERROR;
}

// The number of an open file, or -1 and why it could not be opened.
struct Opened {
    int Number;
    DWORD Error;
};

Opened open(const std::filesystem::path& path, DWORD access, DWORD shared, DWORD creation,
    DWORD flags = FILE_ATTRIBUTE_NORMAL, DWORD longestOpen = forOthers)
{
    HANDLE file = INVALID_HANDLE_VALUE;
    const auto isOpened = [&] {
        file = ::CreateFileW(path.c_str(), access, shared, nullptr, creation, flags, nullptr);
        return file != INVALID_HANDLE_VALUE;
    };
    const DWORD error = errorOf(isOpened, longestOpen);
    return { .Number = HandleToLong(file), .Error = error };
}

// Without this, the system would show a box of its own for a stick that has been pulled out.
void reportMissingDisksToUsAlone()
{
    ::SetErrorMode(::GetErrorMode() | SEM_FAILCRITICALERRORS);
}

bool isFolder(const std::filesystem::path& path)
{
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

int openToRead(const std::filesystem::path& path)
{
    reportMissingDisksToUsAlone();
    if (isFolder(path)) {
        FailAt(path, "leer", Reason::IsFolder);
    }
    const auto openOne = [](const std::filesystem::path& name, DWORD creation) {
        return open(name, GENERIC_READ, sharedWithAll, creation);
    };
    Opened file = openOne(path, OPEN_EXISTING);
    if (file.Error == ERROR_FILE_NOT_FOUND) {
        file = openOne(CompleteNameOf(path), OPEN_EXISTING);
    }
    if (file.Error == ERROR_FILE_NOT_FOUND) {
        file = openOne(path, OPEN_ALWAYS);
    }
    if (file.Error != NO_ERROR) {
        failTo("leer", path, file.Error);
    }
    return file.Number;
}

// Windows cannot lock a folder. A file that only one process can have open stands for it; the system removes the file
// when it is closed, also when the process dies.
int lockFolderOf(const std::filesystem::path& path)
{
    reportMissingDisksToUsAlone();
    constexpr DWORD flags = FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE;
    const Opened lock = open(std::filesystem::path(path) += lockMark, GENERIC_WRITE | DELETE, sharedWithNobody,
        OPEN_ALWAYS, flags, forOtherSaves);
    if (lock.Error == ERROR_SHARING_VIOLATION) {
        FailAt(path, "escribir", Reason::BeingSaved);
    }
    if (lock.Error != NO_ERROR) {
        failToWrite(path, lock.Error);
    }
    return lock.Number;
}

// Gives a file another name, over one that has it, and comes back when this is on the disk.
DWORD errorOfRenaming(const std::filesystem::path& from, const std::filesystem::path& to)
{
    constexpr DWORD how = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    return errorOf([&] { return ::MoveFileExW(from.c_str(), to.c_str(), how) != 0; });
}

bool isThere(const std::filesystem::path& path)
{
    return ::GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

// Ends what a stopped save had begun when the old file was gone already.
void putTheCompleteFileInPlace(const std::filesystem::path& path)
{
    const DWORD error = errorOfRenaming(CompleteNameOf(path), path);
    if (error != NO_ERROR && error != ERROR_FILE_NOT_FOUND) {
        failToWrite(path, error);
    }
}

// A new file takes the place of the old one whatever the rights to that are, so they are looked at first. Returns the
// attributes that it is to have.
DWORD seeThatItMayBeWritten(const std::filesystem::path& path)
{
    DWORD attributes = INVALID_FILE_ATTRIBUTES;
    const auto isSeen = [&] {
        attributes = ::GetFileAttributesW(path.c_str());
        return attributes != INVALID_FILE_ATTRIBUTES;
    };
    const DWORD error = errorOf(isSeen);
    if (error == ERROR_FILE_NOT_FOUND) {
        putTheCompleteFileInPlace(path);
        return FILE_ATTRIBUTE_NORMAL;
    }
    if (error != NO_ERROR) {
        failToWrite(path, error);
    }
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        FailAt(path, "escribir", Reason::IsFolder);
    }
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) {
        FailAt(path, "escribir", Reason::ReadOnlyFile);
    }
    const Opened file = open(path, GENERIC_WRITE, sharedWithAll, OPEN_EXISTING);
    const Descriptor closed(file.Number);
    if (file.Error != NO_ERROR) {
        failToWrite(path, file.Error);
    }
    constexpr DWORD kept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    return (attributes & kept) != 0 ? attributes & kept : FILE_ATTRIBUTE_NORMAL;
}

// Makes the new file, which belongs to whom saves and has the rights that the folder gives.
int openNewFile(const std::filesystem::path& path, const std::filesystem::path& newName)
{
    const DWORD attributes = seeThatItMayBeWritten(path);
    RemoveLeftovers(path, newName);
    const Opened file = open(newName, GENERIC_WRITE, sharedWithNobody, CREATE_ALWAYS, attributes);
    if (file.Error != NO_ERROR) {
        failToWrite(path, file.Error);
    }
    return file.Number;
}

// What reads a part of the file and can say that this is a part of the action.
auto readerOf(const Descriptor& file, const char* action, const std::filesystem::path& path)
{
    return [&file, action, &path](std::span<char> buffer) {
        DWORD count = 0;
        const auto wanted = static_cast<DWORD>(buffer.size());
        const DWORD error
            = errorOf([&] { return ::ReadFile(handleOf(file), buffer.data(), wanted, &count, nullptr) != 0; });
        if (error != NO_ERROR) {
            failTo(action, path, error);
        }
        return static_cast<std::size_t>(count);
    };
}

// Whether somebody has the file open, which the system refuses to replace then as if a right were missing.
bool isHeldOpen(const std::filesystem::path& path)
{
    const HANDLE file
        = ::CreateFileW(path.c_str(), DELETE, sharedWithNobody, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    const DWORD error = ::GetLastError();
    const bool isOpened = Descriptor(HandleToLong(file)).IsOpen();
    return !isOpened && error == ERROR_SHARING_VIOLATION;
}

} // namespace

std::string TextOf(const std::filesystem::path& path)
{
    return utf8Of(path.native());
}

void Descriptor::Close()
{
    if (IsOpen()) {
        ::CloseHandle(handleOf(*this)); // what was written has been flushed before
        number_ = -1;
    }
}

CatalogueReader::CatalogueReader(const std::filesystem::path& path)
    : path_(path)
    , file_(openToRead(path))
{
    LARGE_INTEGER size {};
    const DWORD type = ::GetFileType(handleOf(file_));
    if (type == FILE_TYPE_UNKNOWN && ::GetLastError() != NO_ERROR) {
        failTo("leer", path_, ::GetLastError());
    }
    if (type != FILE_TYPE_DISK) {
        FailAt(path_, "leer", Reason::NoDataFile);
    }
    if (::GetFileSizeEx(handleOf(file_), &size) == 0) {
        failTo("leer", path_, ::GetLastError());
    }
    size_ = static_cast<std::size_t>(size.QuadPart);
}

std::size_t CatalogueReader::Read(std::span<char> buffer)
{
    return Fill(buffer, readerOf(file_, "leer", path_));
}

CatalogueReplacement::CatalogueReplacement(const std::filesystem::path& path)
    : path_(path)
    , nameNow_((std::filesystem::path(path_) += NewNameMark) += std::to_string(::GetCurrentProcessId()))
    , folder_(lockFolderOf(path_))
    , file_(openNewFile(path_, nameNow_))
{
}

CatalogueReplacement::~CatalogueReplacement()
{
    file_.Close();
    // A complete file is all that there is when the old one went and the new one could not take its name.
    if (nameNow_ != path_ && (nameNow_ != CompleteNameOf(path_) || isThere(path_))) {
        errorOf([this] { return ::DeleteFileW(nameNow_.c_str()) != 0; });
    }
}

void CatalogueReplacement::Write(std::span<const char> bytes)
{
    while (!bytes.empty()) {
        DWORD count = 0;
        if (::WriteFile(handleOf(file_), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr) == 0) {
            failToWrite(path_, ::GetLastError());
        }
        bytes = bytes.subspan(count);
    }
    if (::FlushFileBuffers(handleOf(file_)) == 0) {
        failToWrite(path_, ::GetLastError());
    }
    file_.Close();
}

CatalogueContent CatalogueReplacement::Replaced() const
{
    const Opened opened = open(path_, GENERIC_READ, sharedWithAll, OPEN_EXISTING);
    const Descriptor old(opened.Number);
    if (opened.Error == ERROR_FILE_NOT_FOUND) {
        return std::nullopt;
    }
    if (opened.Error != NO_ERROR) {
        failToWrite(path_, opened.Error);
    }
    return ReadToEnd(readerOf(old, "escribir", path_));
}

// The new file is completely on the disk before it takes a name that says so, and has that name on the disk before the
// old file is touched.
void CatalogueReplacement::Commit()
{
    takeName(CompleteNameOf(path_));
    takeName(path_);
}

void CatalogueReplacement::takeName(const std::filesystem::path& name)
{
    const DWORD error = errorOfRenaming(nameNow_, name);
    if (error != NO_ERROR) {
        failToWrite(path_, error == ERROR_ACCESS_DENIED && isHeldOpen(name) ? ERROR_SHARING_VIOLATION : error);
    }
    nameNow_ = name;
}

} // namespace numbrela
