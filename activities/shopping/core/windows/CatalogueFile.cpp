#include "activities/shopping/core/CatalogueFile.h"

#include "activities/shopping/core/FileParts.h"

#include <windows.h>

#include <iterator>

namespace numbrela {

namespace {

constexpr const wchar_t* lockMark = L".guardando"; // behind the name of a catalogue that is being saved
constexpr DWORD sharedWithAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr DWORD sharedWithNobody = 0;

// Errors that the compiler's headers have no names for.
constexpr DWORD noSuchDevice = 433;
constexpr DWORD diskQuotaExceeded = 1295;

// What the system says itself, in its language and without the end of its line.
std::string systemsOwnWords(DWORD error)
{
    wchar_t text[512] {};
    constexpr DWORD how = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
    DWORD length = ::FormatMessageW(how, nullptr, error, 0, text, std::size(text), nullptr);
    while (length > 0 && (text[length - 1] == L'\n' || text[length - 1] == L'\r' || text[length - 1] == L'.')) {
        --length;
    }
    return std::filesystem::path(std::wstring(text, length)).string();
}

std::string reasonOf(DWORD error)
{
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_DIRECTORY:
        return "la carpeta no existe";
    case ERROR_ACCESS_DENIED:
    case ERROR_NETWORK_ACCESS_DENIED:
    case ERROR_PRIVILEGE_NOT_HELD:
        return "no hay permiso";
    case ERROR_WRITE_PROTECT:
        return "el disco es de solo lectura";
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case diskQuotaExceeded:
        return "el disco está lleno";
    case ERROR_FILE_TOO_LARGE:
        return "el archivo sería demasiado grande";
    case ERROR_CRC:
    case ERROR_SECTOR_NOT_FOUND:
    case ERROR_READ_FAULT:
    case ERROR_WRITE_FAULT:
    case ERROR_IO_DEVICE:
    case ERROR_FILE_CORRUPT:
    case ERROR_DISK_CORRUPT:
        return "el disco falla";
    case ERROR_NOT_READY:
    case ERROR_GEN_FAILURE: // what the drivers of many sticks say when the stick is pulled out
    case ERROR_DEV_NOT_EXIST:
    case ERROR_WRONG_DISK:
    case ERROR_FILE_INVALID:
    case ERROR_NO_MEDIA_IN_DRIVE:
    case noSuchDevice:
    case ERROR_DEVICE_NOT_CONNECTED:
    case ERROR_DEVICE_REMOVED:
        return "el disco ya no está conectado";
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
        return "otro programa lo tiene abierto";
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_BUFFER_OVERFLOW:
        return "el nombre es demasiado largo";
    case ERROR_INVALID_NAME:
        return "el nombre no es válido";
    default:
        return "error " + std::to_string(error) + " del sistema (" + systemsOwnWords(error) + ")";
    }
}

[[noreturn]] void failTo(const char* action, const std::filesystem::path& path, DWORD error)
{
    // Of a name that is too long the system says no more than that it cannot find it.
    const bool isNotFound
        = error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND || error == ERROR_INVALID_NAME;
    const bool isTooLong = isNotFound && path.native().size() >= MAX_PATH;
    FailAt(path, action, reasonOf(isTooLong ? ERROR_FILENAME_EXCED_RANGE : error));
}

[[noreturn]] void failToWrite(const std::filesystem::path& path, DWORD error)
{
    failTo("escribir", path, error);
}

HANDLE handleOf(const Descriptor& file)
{
    return LongToHandle(file.Number());
}

// A virus scanner, a backup or another program may hold a file open for a moment. A right that is missing is reported
// in the same way as a file that is about to be deleted or is to be replaced while it is open.
bool mayPass(DWORD error)
{
    return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION || error == ERROR_USER_MAPPED_FILE
        || error == ERROR_ACCESS_DENIED || error == ERROR_DELETE_PENDING;
}

// Makes a call, and makes it again for as long as somebody may be holding the file, but no longer than this. The call
// answers whether it has succeeded.
template <typename Call>
bool succeedsWithin(DWORD milliseconds, Call call)
{
    constexpr DWORD pause = 20;
    for (DWORD waited = 0; !call(); waited += pause) {
        if (waited >= milliseconds || !mayPass(::GetLastError())) {
            return false;
        }
        ::Sleep(pause);
    }
    return true;
}

constexpr DWORD forOthers = 1000; // milliseconds until somebody who only looks at a file has let it go
constexpr DWORD forOtherSaves = 2000; // many times what a save takes

// Returns the number of the open file, or -1 when the system knows the error.
int openWithin(DWORD milliseconds, const std::filesystem::path& path, DWORD access, DWORD shared, DWORD creation,
    DWORD flags = FILE_ATTRIBUTE_NORMAL)
{
    HANDLE file = INVALID_HANDLE_VALUE;
    succeedsWithin(milliseconds, [&] {
        file = ::CreateFileW(path.c_str(), access, shared, nullptr, creation, flags, nullptr);
        return file != INVALID_HANDLE_VALUE;
    });
    return HandleToLong(file);
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
        FailAt(path, "leer", "es una carpeta");
    }
    const auto open = [](const std::filesystem::path& name, DWORD creation) {
        return openWithin(forOthers, name, GENERIC_READ, sharedWithAll, creation);
    };
    int file = open(path, OPEN_EXISTING);
    if (file < 0 && ::GetLastError() == ERROR_FILE_NOT_FOUND) {
        file = open(CompleteNameOf(path), OPEN_EXISTING);
    }
    return file >= 0 || ::GetLastError() != ERROR_FILE_NOT_FOUND ? file : open(path, OPEN_ALWAYS);
}

// Windows cannot lock a folder. A file that only one process can have open stands for it; the system removes the file
// when it is closed, also when the process dies.
int lockFolderOf(const std::filesystem::path& path)
{
    reportMissingDisksToUsAlone();
    constexpr DWORD flags = FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE;
    const int lock = openWithin(forOtherSaves, std::filesystem::path(path) += lockMark, GENERIC_WRITE | DELETE,
        sharedWithNobody, OPEN_ALWAYS, flags);
    if (lock < 0) {
        const DWORD error = ::GetLastError();
        if (error == ERROR_SHARING_VIOLATION) {
            FailAt(path, "escribir", "otro programa lo está guardando");
        }
        failToWrite(path, error);
    }
    return lock;
}

// Gives a file another name, over one that has it, and comes back when this is on the disk. Answers whether it could.
bool isRenamed(const std::filesystem::path& from, const std::filesystem::path& to)
{
    constexpr DWORD how = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    return succeedsWithin(forOthers, [&] { return ::MoveFileExW(from.c_str(), to.c_str(), how) != 0; });
}

bool isThere(const std::filesystem::path& path)
{
    return ::GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

// Ends what a stopped save had begun when the old file was gone already.
void putTheCompleteFileInPlace(const std::filesystem::path& path)
{
    if (!isRenamed(CompleteNameOf(path), path) && ::GetLastError() != ERROR_FILE_NOT_FOUND) {
        failToWrite(path, ::GetLastError());
    }
}

// A new file takes the place of the old one whatever the rights to that are, so they are looked at first.
void seeThatItMayBeWritten(const std::filesystem::path& path)
{
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        if (::GetLastError() != ERROR_FILE_NOT_FOUND) {
            failToWrite(path, ::GetLastError());
        }
        putTheCompleteFileInPlace(path);
        return;
    }
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        FailAt(path, "escribir", "es una carpeta");
    }
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) {
        FailAt(path, "escribir", "el archivo es de solo lectura");
    }
    if (!Descriptor(openWithin(forOthers, path, GENERIC_WRITE, sharedWithAll, OPEN_EXISTING)).IsOpen()) {
        failToWrite(path, ::GetLastError());
    }
}

// Makes the new file, which belongs to whom saves and has the rights that the folder gives.
int openNewFile(const std::filesystem::path& path, const std::filesystem::path& newName)
{
    seeThatItMayBeWritten(path);
    RemoveLeftovers(path, newName);
    const int file = openWithin(forOthers, newName, GENERIC_WRITE, sharedWithNobody, CREATE_ALWAYS);
    if (file < 0) {
        failToWrite(path, ::GetLastError());
    }
    return file;
}

// Reads a part of the file into the buffer. Returns the number of bytes, or -1.
long long readFrom(const Descriptor& file, std::span<char> buffer)
{
    DWORD count = 0;
    const auto wanted = static_cast<DWORD>(buffer.size());
    return ::ReadFile(handleOf(file), buffer.data(), wanted, &count, nullptr) != 0 ? static_cast<long long>(count) : -1;
}

// Why a file could not be replaced. The system refuses a file that somebody has open as it does one without rights.
DWORD errorOfReplacing(const std::filesystem::path& path)
{
    const DWORD error = ::GetLastError();
    if (error != ERROR_ACCESS_DENIED
        || Descriptor(openWithin(0, path, DELETE, sharedWithNobody, OPEN_EXISTING)).IsOpen()) {
        return error;
    }
    return ::GetLastError() == ERROR_SHARING_VIOLATION ? ERROR_SHARING_VIOLATION : error;
}

} // namespace

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
    if (!file_.IsOpen()) {
        failTo("leer", path_, ::GetLastError());
    }
    if (::GetFileType(handleOf(file_)) != FILE_TYPE_DISK) {
        FailAt(path_, "leer", "no es un archivo de datos");
    }
    if (::GetFileSizeEx(handleOf(file_), &size) == 0) {
        failTo("leer", path_, ::GetLastError());
    }
    size_ = static_cast<std::size_t>(size.QuadPart);
}

std::size_t CatalogueReader::Read(std::span<char> buffer)
{
    const std::optional<std::size_t> filled
        = Fill(buffer, [this](std::span<char> rest) { return readFrom(file_, rest); });
    if (!filled) {
        failTo("leer", path_, ::GetLastError());
    }
    return *filled;
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
        ::DeleteFileW(nameNow_.c_str());
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
    const Descriptor old(openWithin(forOthers, path_, GENERIC_READ, sharedWithAll, OPEN_EXISTING));
    if (!old.IsOpen()) {
        if (::GetLastError() != ERROR_FILE_NOT_FOUND) {
            failToWrite(path_, ::GetLastError());
        }
        return std::nullopt;
    }
    std::optional<std::string> content = ReadToEnd([&](std::span<char> buffer) { return readFrom(old, buffer); });
    if (!content) {
        failToWrite(path_, ::GetLastError());
    }
    return content;
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
    if (!isRenamed(nameNow_, name)) {
        failToWrite(path_, errorOfReplacing(name));
    }
    nameNow_ = name;
}

} // namespace numbrela
