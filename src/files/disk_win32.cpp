#include <algorithm>
#include <utility>

#include "files/disk.h"
#include "files/disk_failure.h"
#include "files/utf16.h"

namespace velmoran {

namespace {

constexpr DWORD DiskQuotaExceeded = 1295;  // ERROR_DISK_QUOTA_EXCEEDED, which not every SDK names

Reason ReasonFor(DWORD error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
      return DoesNotExist();
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE:
      return InvalidName();
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
    case ERROR_PRIVILEGE_NOT_HELD:
      return PermissionDenied();
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
      return InUse();
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case DiskQuotaExceeded:
      return DiskIsFull();
    case ERROR_FILE_TOO_LARGE:
      return FileSizeLimit();
    default:
      return SystemError(error);
  }
}

std::string Locate(std::string_view path) {
  constexpr std::size_t LongestPath = 32767;  // in units of UTF-16, of which a path in UTF-8 has at least as many bytes
  if (path.size() > 3 * LongestPath) return std::string(path);  // which the system refuses
  const std::wstring wide = ToUtf16(path);
  std::wstring whole(GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr), L'\0');
  whole.resize(GetFullPathNameW(wide.c_str(), static_cast<DWORD>(whole.size()), whole.data(), nullptr));
  // The system would take the path to end at a zero byte: it names no file, and is shown as it was given.
  return whole.empty() || path.find('\0') != std::string_view::npos ? std::string(path) : ToUtf8(whole);
}

struct Handle {
  explicit Handle(HANDLE opened) : file(opened) {}
  ~Handle() {
    if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
  }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  // Closes it now. Returns whether that succeeded.
  bool Close() { return CloseHandle(std::exchange(file, INVALID_HANDLE_VALUE)) != 0; }

  HANDLE file;
};

HANDLE Open(const std::string& path, DWORD access, DWORD disposition) {
  if (path.find('\0') != std::string::npos) {
    SetLastError(ERROR_INVALID_NAME);
    return INVALID_HANDLE_VALUE;
  }
  return CreateFileW(ToUtf16(path).c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, disposition,
                     FILE_ATTRIBUTE_NORMAL, nullptr);
}

bool IsFolder(const std::string& path) {
  const DWORD attributes = GetFileAttributesW(ToUtf16(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// Why a file can't be opened for writing, which would create it if only the file were missing.
Reason ReasonForWriting(const std::string& path, DWORD error) {
  if (IsFolder(path)) return IsAFolder();
  return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND ? FolderDoesNotExist() : ReasonFor(error);
}

// While one exists, a request to end the program waits: Ctrl+C, closing the console or logging off (with these two, the
// system waits for a few seconds only). The system delivers such a request on a thread of its own.
class EndHeld {
 public:
  EndHeld() {
    AcquireSRWLockExclusive(&writing);
    SetConsoleCtrlHandler(WaitForWrite, TRUE);
  }
  // Releases the lock first: a request that waits for it then goes on, and unregistering waits for no request.
  ~EndHeld() {
    ReleaseSRWLockExclusive(&writing);
    SetConsoleCtrlHandler(WaitForWrite, FALSE);
  }
  EndHeld(const EndHeld&) = delete;
  EndHeld& operator=(const EndHeld&) = delete;

 private:
  static BOOL WINAPI WaitForWrite(DWORD /*request*/) {
    AcquireSRWLockShared(&writing);
    ReleaseSRWLockShared(&writing);
    return FALSE;  // the system then ends the program
  }
  static inline SRWLOCK writing = SRWLOCK_INIT;
};

// Waits until no other Velmoran is writing the file; the lock lasts until the file is closed. Returns false if another
// program has kept it locked for some seconds. A file system without locks counts as locked.
bool Lock(HANDLE file) {
  constexpr int Tries = 50;
  constexpr DWORD Pause = 100;  // in milliseconds
  OVERLAPPED place{};           // one byte far beyond the end, so that nobody is kept from the file's own bytes
  place.OffsetHigh = 0x4000'0000U;
  for (int tried = 0; tried < Tries; ++tried) {
    if (LockFileEx(file, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place) != 0) return true;
    const DWORD error = GetLastError();
    if (error != ERROR_LOCK_VIOLATION && error != ERROR_IO_PENDING) return true;
    Sleep(Pause);
  }
  return false;
}

// Cuts the file to its first bytes. If that fails, GetLastError has the reason.
bool CutTo(HANDLE file, std::size_t size) {
  LARGE_INTEGER end;
  end.QuadPart = static_cast<LONGLONG>(size);
  return SetFilePointerEx(file, end, nullptr, FILE_BEGIN) != 0 && SetEndOfFile(file) != 0;
}

// Returns how many bytes the system has written. If that isn't all, GetLastError has the reason.
std::size_t WriteAll(HANDLE file, std::span<const Byte> bytes) {
  std::size_t written = 0;
  while (written < bytes.size()) {  // once, unless the system writes only a part
    DWORD count = 0;
    const DWORD rest = static_cast<DWORD>(std::min<std::size_t>(bytes.size() - written, MAXDWORD));
    if (::WriteFile(file, bytes.data() + written, rest, &count, nullptr) == 0 || count == 0) break;
    written += count;
  }
  return written;
}

bool FlushToDisk(HANDLE file) {
  if (FlushFileBuffers(file) != 0) return true;
  const DWORD error = GetLastError();
  return error == ERROR_INVALID_FUNCTION || error == ERROR_NOT_SUPPORTED;  // not every file system supports it
}

}  // namespace

std::string CurrentDirectory() {
  std::wstring path(GetCurrentDirectoryW(0, nullptr), L'\0');
  path.resize(GetCurrentDirectoryW(static_cast<DWORD>(path.size()), path.data()));
  return ToUtf8(path);
}

InputFile::InputFile(std::string_view path, std::string_view advice) : path_(Locate(path)) {
  Handle opened(Open(path_, GENERIC_READ, OPEN_EXISTING));
  if (opened.file == INVALID_HANDLE_VALUE) {
    const DWORD error = GetLastError();
    throw CannotOpen(path_, IsFolder(path_) ? IsAFolder() : ReasonFor(error), advice);
  }
  if (GetFileType(opened.file) != FILE_TYPE_DISK) throw CannotOpen(path_, NotARegularFile(), advice);
  handle_ = reinterpret_cast<std::intptr_t>(std::exchange(opened.file, INVALID_HANDLE_VALUE));
}

InputFile::~InputFile() {
  CloseHandle(reinterpret_cast<HANDLE>(handle_));
}

std::vector<Byte> InputFile::ReadAll(std::size_t mostBytes) const {
  const HANDLE file = reinterpret_cast<HANDLE>(handle_);
  LARGE_INTEGER size;
  if (GetFileSizeEx(file, &size) == 0) throw CannotRead(path_, ReasonFor(GetLastError()));
  if (static_cast<std::size_t>(size.QuadPart) > mostBytes) throw TooLarge(path_, mostBytes);

  std::vector<Byte> bytes(static_cast<std::size_t>(size.QuadPart));
  DWORD taken = 0;
  if (::ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &taken, nullptr) == 0) {
    throw CannotRead(path_, ReasonFor(GetLastError()));
  }
  bytes.resize(taken);  // another program may have shortened it since
  return bytes;
}

std::string PathForReport(std::string_view path) {
  return Locate(path);
}

void WriteFile(const std::string& path, std::span<const Byte> bytes, Flush flush) {
  const EndHeld held;
  Handle opened(Open(path, GENERIC_WRITE, OPEN_ALWAYS));
  if (opened.file == INVALID_HANDLE_VALUE) {
    throw CannotOpenForWriting(path, ReasonForWriting(path, GetLastError()));
  }
  if (GetFileType(opened.file) != FILE_TYPE_DISK) throw CannotOpenForWriting(path, NotARegularFile());
  if (!Lock(opened.file)) throw CannotOpenForWriting(path, InUse());

  // From here on the file changes.
  if (!CutTo(opened.file, 0)) throw NotStored(path, ReasonFor(GetLastError()));
  const std::size_t written = WriteAll(opened.file, bytes);
  if (written < bytes.size()) throw CutShort(path, written, bytes.size(), ReasonFor(GetLastError()));
  // Another program may have made it longer meanwhile.
  if (!CutTo(opened.file, written)) throw NotStored(path, ReasonFor(GetLastError()));
  if (flush == Flush::ToDisk && !FlushToDisk(opened.file)) throw NotStored(path, ReasonFor(GetLastError()));
  if (!opened.Close()) throw NotStored(path, ReasonFor(GetLastError()));
}

}  // namespace velmoran
